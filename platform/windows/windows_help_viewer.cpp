#include "platform/windows/windows_help_viewer.h"

// Stays below windows.h.
#include <htmlhelp.h>

#include <utility>

#include "platform/windows/short_path.h"
#include "platform/windows/system_code_page.h"
#include "platform/windows/system_library.h"

namespace kvez {
namespace {

template <typename Character>
using HelpFunction = HWND WINAPI(HWND owner, const Character* path, UINT command, DWORD_PTR data);

template <typename Character>
HWND Help(const char* function, HWND owner, const Character* path, UINT command) {
  const auto help = SystemFunction<HelpFunction<Character>>(LoadSystemLibrary(L"hhctrl.ocx"), function);
  return help == nullptr ? nullptr : help(owner, path, command, 0);
}

HWND Open(HWND owner, const std::wstring& path) {
  return CallWithPath(
      path, [&](const std::string& bytes) { return Help("HtmlHelpA", owner, bytes.c_str(), HH_DISPLAY_TOPIC); },
      [&](const std::wstring& whole) { return Help("HtmlHelpW", owner, whole.c_str(), HH_DISPLAY_TOPIC); });
}

}  // namespace

WindowsHelpViewer::WindowsHelpViewer(std::function<HWND()> owner) : m_owner(std::move(owner)) {}

bool WindowsHelpViewer::Takes(const std::wstring& path) { return path.size() < MAX_PATH; }

bool WindowsHelpViewer::Show(const std::wstring& path) {
  m_opened = true;
  if (Open(m_owner(), path) != nullptr) return true;
  // Inside, viewers are 8-bit; the short path says the same without the letters that they lack.
  const std::wstring shortPath = ShortPath(path);
  return !shortPath.empty() && shortPath != path && Open(m_owner(), shortPath) != nullptr;
}

void WindowsHelpViewer::CloseAll() {
  // Without a help window there is nothing to close, and the library need not be loaded just to hear that.
  if (!m_opened) return;
  m_opened = false;
  // a-call: no text
  Help<char>("HtmlHelpA", m_owner(), nullptr, HH_CLOSE_ALL);
}

}  // namespace kvez
