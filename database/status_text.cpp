#include "database/status_text.h"

namespace kvez {
namespace {

std::wstring Joined(std::wstring_view before, std::wstring_view number, std::wstring_view after) {
  std::wstring text(before);
  text += number;
  text += after;
  return text;
}

}  // namespace

std::wstring GroupedNumber(Formats& formats, std::int32_t number) { return formats.Number(number, L"#,##0"); }

std::wstring CountOfMunicipalities(Formats& formats, std::int32_t count) {
  const wchar_t* noun = L" obcí";
  if (count == 1) noun = L" obec";
  if (count >= 2 && count <= 4) noun = L" obce";
  return GroupedNumber(formats, count) + noun;
}

std::wstring StatusText(Formats& formats, std::int32_t count, std::int32_t cursor, const CountSentences& sentences) {
  if (count == 0 && cursor == 0) return L"Seznam je prázdný.";
  // A released list whose cursor still stands somewhere has nothing to say.
  if (count <= 0 || cursor < 0) return {};
  const std::wstring number = GroupedNumber(formats, count);
  if (cursor > 0) return GroupedNumber(formats, cursor) + L". záznam z " + number;
  // The whole count decides, not its last digit: 21 and 104 are many.
  if (count == 1) return std::wstring(sentences.one);
  if (count <= 4) return Joined(sentences.fewBefore, number, sentences.fewAfter);
  return Joined(sentences.manyBefore, number, sentences.manyAfter);
}

}  // namespace kvez
