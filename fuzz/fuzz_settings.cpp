// Any stored text as a setting: a yes/no setting is 0, 1 or the error of a text that is no number, a truth value is
// True, False or an error, and a setting that was written anew is what was written, whatever was there.
//
// Input: two bytes, the number that is written; then the stored text in UTF-8, or in Windows-1250 where it is none.

#include <string>
#include <string_view>

#include "fuzz/require.h"
#include "postal/clspsc.h"
#include "settings/boolean_text.h"
#include "tests/core/fakes.h"
#include "text/error.h"
#include "text/numeric_text.h"
#include "text/utf8.h"
#include "text/windows1250.h"

namespace kvez {
namespace {

bool SameLetters(std::wstring_view text, std::wstring_view small) {
  if (text.size() != small.size()) return false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool capital = text[i] >= L'A' && text[i] <= L'Z';
    if ((capital ? text[i] + (L'a' - L'A') : text[i]) != small[i]) return false;
  }
  return true;
}

void CheckNumber(const std::wstring& stored, std::int16_t written) {
  fakes::Machine machine;
  clspsc database(machine.Platform(), L"C:\\Kvez");
  const fakes::SettingsStoreFake::Place place(L"VD", L"VDKVEZ", L"nastavení2");
  machine.settings.values[place] = stored;
  try {
    const std::int16_t setting = database.vGetNastaveniRegistr(2);
    Require(setting == 0 || setting == 1, "a setting is 0 or 1");
    Require(IsNumericText(stored), "only a number is a setting");
    const bool zero = stored.find_first_of(L"123456789") == std::wstring::npos;
    Require((setting == 0) == zero, "only zero is No");
  } catch (const ConversionError&) {
    Require(!IsNumericText(stored) || stored.size() > 4, "a short number is a setting");
  }
  Require(machine.settings.values.size() == 1 && machine.settings.values[place] == stored, "reading writes nothing");
  Require(database.vGetNastaveniRegistr(0) == 0, "the other settings are as they were");

  database.vSetNastaveniRegistr(2, written);
  Require(database.vGetNastaveniRegistr(2) == (written == 0 ? 0 : 1), "what is written is read");
}

void CheckTruth(const std::wstring& stored) {
  const bool yes = SameLetters(stored, L"true");
  const bool no = SameLetters(stored, L"false");
  try {
    Require(BooleanFromText(stored) == yes && (yes || no), "a truth value is True or False");
  } catch (const ConversionError& error) {
    Require(!yes && !no, "True and False are truth values");
    Require(error.Text().find(stored) != std::wstring::npos, "the error shows the text");
  }
}

}  // namespace
}  // namespace kvez

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 2) return 0;
  const auto written = static_cast<std::int16_t>(data[0] | data[1] << 8);
  const std::string_view bytes(reinterpret_cast<const char*>(data) + 2, size - 2);
  const std::wstring stored = kvez::FromUtf8(bytes).value_or(kvez::FromWindows1250(bytes));
  kvez::CheckNumber(stored, written);
  kvez::CheckTruth(stored);
  return 0;
}
