#include "platform/windows/windows_help_viewer.h"

// Stays below windows.h.
#include <htmlhelp.h>

#include <utility>

#include "platform/windows/system_code_page.h"
#include "platform/windows/system_library.h"

namespace kvez {
namespace {

void Help(HWND owner, const char* path, UINT command) {
  const auto help =
      SystemFunction<HWND WINAPI(HWND, LPCSTR, UINT, DWORD_PTR)>(LoadSystemLibrary(L"hhctrl.ocx"), "HtmlHelpA");
  if (help != nullptr) help(owner, path, command, 0);
}

}  // namespace

WindowsHelpViewer::WindowsHelpViewer(std::function<HWND()> owner) : m_owner(std::move(owner)) {}

bool WindowsHelpViewer::Takes(const std::wstring& path) {
  const auto bytes = ToSystemCodePageExactly(path);
  return bytes && bytes->size() < MAX_PATH;
}

void WindowsHelpViewer::Show(const std::wstring& path) {
  m_opened = true;
  Help(m_owner(), ToSystemCodePage(path).c_str(), HH_DISPLAY_TOPIC);
}

void WindowsHelpViewer::CloseAll() {
  // Without a help window there is nothing to close, and the library need not be loaded just to hear that.
  if (!m_opened) return;
  m_opened = false;
  Help(m_owner(), nullptr, HH_CLOSE_ALL);
}

}  // namespace kvez
