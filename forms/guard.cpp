#include "forms/guard.h"

#include <windows.h>

#include <new>

#include "text/error.h"

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

std::wstring TextOfCurrentException() {
  try {
    throw;
  } catch (const Error& known) {
    return known.TextWithCode();
  } catch (const std::bad_alloc&) {
    return L"Nedostatek paměti.";
  } catch (...) {
    return L"Neznámá chyba.";
  }
}

void ShowInBox(const std::wstring& text, const std::wstring& title) {
  MessageBoxW(GetActiveWindow(), text.c_str(), title.c_str(), MB_OK | MB_ICONEXCLAMATION | MB_TASKMODAL);
}

}  // namespace

void SetGuard(GuardSettings settings) { Settings() = std::move(settings); }

void ReportCurrentException() noexcept {
  if (IsReporting()) return;
  IsReporting() = true;
  try {
    const std::wstring text = TextOfCurrentException();
    const GuardSettings& settings = Settings();
    (settings.show ? settings.show : ShowInBox)(text, settings.title);
  } catch (...) {
    // Not even the message fits into memory, or showing it failed: there is nobody left to tell.
  }
  IsReporting() = false;
}

}  // namespace kvez::forms
