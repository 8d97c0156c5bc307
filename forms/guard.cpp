#include "forms/guard.h"

#include <windows.h>

#include <cstring>
#include <new>

namespace kvez::forms {
namespace {

GuardSettings& Settings() {
  static GuardSettings settings;
  return settings;
}

bool& IsReporting() {
  static bool reporting = false;
  return reporting;
}

std::wstring FromUtf8(const char* text) {
  const int bytes = static_cast<int>(std::strlen(text));
  const int size = MultiByteToWideChar(CP_UTF8, 0, text, bytes, nullptr, 0);
  std::wstring wide(static_cast<std::size_t>(size), L'\0');
  MultiByteToWideChar(CP_UTF8, 0, text, bytes, wide.data(), size);
  return wide;
}

void ShowInBox(const std::wstring& text, const std::wstring& title) {
  MessageBoxW(GetActiveWindow(), text.c_str(), title.c_str(), MB_OK | MB_ICONEXCLAMATION | MB_TASKMODAL);
}

}  // namespace

void SetGuard(GuardSettings settings) { Settings() = std::move(settings); }

std::wstring ErrorText(const std::exception_ptr& error) {
  if (Settings().translate) {
    std::wstring text = Settings().translate(error);
    if (!text.empty()) return text;
  }
  try {
    std::rethrow_exception(error);
  } catch (const Error& known) {
    return known.Text();
  } catch (const std::bad_alloc&) {
    return L"Nedostatek paměti.";
  } catch (const std::exception& known) {
    return FromUtf8(known.what());
  } catch (...) {
    return L"Neznámá chyba.";
  }
}

void ReportCurrentException() noexcept {
  if (IsReporting()) return;
  IsReporting() = true;
  try {
    const std::wstring text = ErrorText(std::current_exception());
    const GuardSettings& settings = Settings();
    (settings.show ? settings.show : ShowInBox)(text, settings.title);
  } catch (...) {
    // Not even the message fits into memory, or showing it failed: there is nobody left to tell.
  }
  IsReporting() = false;
}

}  // namespace kvez::forms
