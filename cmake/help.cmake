# The help beside the program: the pages of help/ compiled into kvez.chm.
#
# The pages are UTF-8 like every other text file here, so that one editor and one diff do for all of them. The help
# viewer reads its contents and index in the system's 8-bit code page only, so everything is turned into Windows-1250
# on the way.
find_program(KVEZ_CHMCMD chmcmd DOC "Compiler of help files (Debian: fp-utils-3.2.2)")
find_program(KVEZ_ICONV iconv DOC "Converter of character sets")

if(KVEZ_CHMCMD AND KVEZ_ICONV)
  file(GLOB help_pages CONFIGURE_DEPENDS help/*.html)
  file(GLOB help_pictures CONFIGURE_DEPENDS help/pictures/*.png)
  set(help_sources ${help_pages} ${help_pictures}
      ${PROJECT_SOURCE_DIR}/help/kvez.hhp ${PROJECT_SOURCE_DIR}/help/kvez.hhc ${PROJECT_SOURCE_DIR}/help/kvez.hhk
      ${PROJECT_SOURCE_DIR}/help/kvez.css)
  add_custom_command(
    OUTPUT ${KVEZ_PROGRAM_FOLDER}/kvez.chm
    COMMAND ${CMAKE_COMMAND} -DSOURCE=${PROJECT_SOURCE_DIR}/help -DWORK=${PROJECT_BINARY_DIR}/help
            -DTARGET=${KVEZ_PROGRAM_FOLDER}/kvez.chm -DCHMCMD=${KVEZ_CHMCMD} -DICONV=${KVEZ_ICONV}
            -P ${PROJECT_SOURCE_DIR}/cmake/compile-help.cmake
    DEPENDS ${help_sources} ${PROJECT_SOURCE_DIR}/cmake/compile-help.cmake
    COMMENT "Compiling kvez.chm" VERBATIM)
  add_custom_target(kvez_help ALL DEPENDS ${KVEZ_PROGRAM_FOLDER}/kvez.chm)
else()
  # The program offers to download a missing help, so a build without it is a whole one.
  message(WARNING "kvez.chm is not built: chmcmd (Debian: fp-utils-3.2.2) or iconv is missing.")
endif()
