#include "platform/windows/windows_formats.h"

#include <windows.h>

#include <oleauto.h>

#include "platform/windows/owned.h"
#include "text/error.h"

namespace kvez {
namespace {

using OwnedSystemString = Owned<BSTR, [](BSTR text) { SysFreeString(text); }>;

std::wstring Format(VARIANT& value, std::wstring_view picture) {
  constexpr int firstDaySunday = 1;
  constexpr int firstWeekWithFirstJanuary = 1;
  std::wstring terminated(picture);
  BSTR made = nullptr;
  const HRESULT result = VarFormat(&value, terminated.data(), firstDaySunday, firstWeekWithFirstJanuary, 0, &made);
  if (FAILED(result)) {
    throw Error(L"Číslo nebo datum nelze zobrazit.", "VarFormat", static_cast<std::uint32_t>(result));
  }
  // A null string is an empty one here.
  const OwnedSystemString text(made);
  return std::wstring(made, SysStringLen(made));
}

}  // namespace

std::wstring WindowsFormats::Number(std::int32_t value, std::wstring_view picture) {
  VARIANT variant{};
  variant.vt = VT_I4;
  variant.lVal = value;
  return Format(variant, picture);
}

std::wstring WindowsFormats::Date(const DateTime& value, std::wstring_view picture) {
  SYSTEMTIME time{};
  time.wYear = static_cast<WORD>(value.year);
  time.wMonth = static_cast<WORD>(value.month);
  time.wDay = static_cast<WORD>(value.day);
  time.wHour = static_cast<WORD>(value.hour);
  time.wMinute = static_cast<WORD>(value.minute);
  time.wSecond = static_cast<WORD>(value.second);
  // The conversion below carries 30 February over into March; this one refuses it.
  FILETIME checked{};
  VARIANT variant{};
  variant.vt = VT_DATE;
  if (!SystemTimeToFileTime(&time, &checked) || !SystemTimeToVariantTime(&time, &variant.date)) return {};
  return Format(variant, picture);
}

}  // namespace kvez
