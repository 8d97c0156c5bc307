# System libraries that the program needs only now and then come into the process with the first call into them:
# loading them all took as long as everything else that the start does.
#
# kvez_delay_loaded(<library> <function>@<bytes of its arguments>...): the target delayed_<library> stands for the
# import library in link lines.
function(kvez_delay_loaded library)
  set(target delayed_${library})
  add_library(${target} INTERFACE)
  get_filename_component(extension ${library} LAST_EXT)
  set(file ${library})
  if(NOT extension)
    set(file ${library}.dll)
  endif()
  if(MSVC)
    get_filename_component(name ${library} NAME_WLE)
    target_link_libraries(${target} INTERFACE ${name} delayimp)
    target_link_options(${target} INTERFACE /DELAYLOAD:${file})
    return()
  endif()
  set(functions ${ARGN})
  if(CMAKE_SIZEOF_VOID_P EQUAL 8)
    list(TRANSFORM functions REPLACE "@.*" "")
  endif()
  list(JOIN functions "\n" exports)
  set(base ${PROJECT_BINARY_DIR}/delayed/${library})
  file(CONFIGURE OUTPUT ${base}.def CONTENT "LIBRARY ${file}\nEXPORTS\n${exports}\n")
  execute_process(COMMAND ${CMAKE_DLLTOOL} --kill-at --input-def ${base}.def --output-delaylib ${base}.a
                  COMMAND_ERROR_IS_FATAL ANY)
  target_link_libraries(${target} INTERFACE ${base}.a delayimp)
endfunction()

kvez_delay_loaded(oleacc CreateStdAccessibleObject@16 LresultFromObject@12)
kvez_delay_loaded(shell32 SHBrowseForFolderA@4 SHFileOperationA@4 SHGetPathFromIDListA@8 SHGetPathFromIDListW@8
                  SHGetSpecialFolderLocation@12 ShellExecuteA@24)
kvez_delay_loaded(shlwapi PathIsDirectoryA@4 PathIsDirectoryW@4)
kvez_delay_loaded(version GetFileVersionInfoSizeW@8 GetFileVersionInfoW@16 VerQueryValueW@16)
kvez_delay_loaded(winspool.drv ClosePrinter@4 DocumentPropertiesW@24 GetDefaultPrinterW@8 OpenPrinterW@12)
