#include "tests/core/reference.h"

namespace kvez::reference {
namespace {

const std::wstring kCapitals = L"ABCDEFGHIJKLMNOPQRSTUVWXYZŠŚŤŽŹŁĄŞŻĽŔÁÂĂÄĹĆÇČÉĘËĚÍÎĎĐŃŇÓÔŐÖŘŮÚŰÜÝŢ";
const std::wstring kSmall = L"abcdefghijklmnopqrstuvwxyzšśťžźłąşżľŕáâăäĺćçčéęëěíîďđńňóôőöřůúűüýţ";

std::wstring Lower(std::wstring text) {
  for (wchar_t& character : text) {
    const std::size_t capital = kCapitals.find(character);
    if (capital != std::wstring::npos) character = kSmall[capital];
  }
  return text;
}

// Positions and lengths as in the rules: from 1, and a piece is never longer than what there is.
std::size_t Len(const std::wstring& text) { return text.size(); }
wchar_t At(const std::wstring& text, std::size_t position) { return text.at(position - 1); }
std::wstring Left(const std::wstring& text, std::size_t count) { return text.substr(0, count); }
std::wstring Right(const std::wstring& text, std::size_t count) {
  return count >= text.size() ? text : text.substr(text.size() - count);
}
std::size_t InStr(const std::wstring& text, const std::wstring& what) {
  const std::size_t found = text.find(what);
  return found == std::wstring::npos ? 0 : found + 1;
}

bool IsRoman(wchar_t character) { return character == L'I' || character == L'V' || character == L'X'; }

std::wstring WithoutRoman(const std::wstring& name) {
  if (name.empty() || !IsRoman(At(name, Len(name)))) return name;
  for (std::size_t position = Len(name); position >= 1; --position) {
    if (At(name, position) == L' ') return Left(name, position - 1);
  }
  return name;
}

bool IsWild(wchar_t character) { return character == L'*' || character == L'?'; }

bool BeginsWith(const std::wstring& n, const std::wstring& P) {
  if (Len(P) == Len(n)) return n == P;
  if (Len(P) > Len(n)) return false;
  if (P == L"ch") return Left(n, 2) == L"ch";
  if (Left(n, Len(P)) != P) return false;
  return !(At(P, Len(P)) == L'c' && At(n, Len(P) + 1) == L'h');
}

bool EndsWith(const std::wstring& n, const std::wstring& P) {
  if (Len(P) == Len(n)) return n == P;
  if (Len(P) > Len(n)) return false;
  if (P == L"ch") return Right(n, 2) == L"ch";
  if (Right(n, Len(P)) != P) return false;
  return !(At(P, 1) == L'h' && At(n, Len(n) - Len(P)) == L'c');
}

bool Contains(const std::wstring& n, const std::wstring& P) {
  if (Len(P) == Len(n)) return n == P;
  if (Len(P) > Len(n)) return false;
  if (P == L"ch") return InStr(n, L"ch") > 0;
  const std::size_t position = InStr(n, P);
  if (position == 0) return false;
  if (position == 1 && At(P, Len(P)) == L'c') return At(n, Len(P) + 1) != L'h';
  if (position > 1 && At(P, 1) == L'h') return At(n, Len(n) - Len(P)) != L'c';
  return true;
}

}  // namespace

std::wstring Normalised(const std::wstring& name) {
  std::wstring shorter = WithoutRoman(name);
  if (shorter != name) return shorter;
  const std::size_t hyphen = InStr(name, L"-");
  if (hyphen > 0) {
    const std::wstring before = Left(name, hyphen - 1);
    shorter = WithoutRoman(before);
    return shorter != before ? shorter : before;
  }
  for (wchar_t digit = L'1'; digit <= L'9'; ++digit) {
    const std::size_t position = InStr(name, std::wstring(1, digit));
    if (position == 0) continue;
    if (position > 1 && At(name, position - 1) == L' ') return Left(name, position - 2);
    return Left(name, position - 1);
  }
  const std::size_t parenthesis = InStr(name, L"(");
  if (parenthesis == 1) return L"";
  if (parenthesis > 1) return Left(name, parenthesis - 2);
  return name;
}

bool IsRefused(const std::wstring& typed) {
  return !typed.empty() && Len(typed) < 3 && IsWild(typed.front()) && IsWild(typed.back());
}

bool Matches(const std::wstring& name, const std::wstring& typed) {
  const std::wstring n = Lower(name);
  const std::wstring text = Lower(typed);
  std::size_t p = InStr(text, L"*");
  if (p == 0) p = InStr(text, L"?");
  if (p == 0) return n == text;
  if (p >= 2 && p < Len(text)) {
    const std::wstring left = Left(text, p - 1);
    const std::wstring right = Right(text, Len(text) - p);
    if (!BeginsWith(n, left) || !EndsWith(n, right)) return false;
    return Len(left + right) != Len(n) || n == left + right;
  }
  const bool leading = IsWild(At(text, 1));
  const bool trailing = IsWild(At(text, Len(text)));
  if (leading && trailing) return Contains(n, Left(Right(text, Len(text) - 1), Len(text) - 2));
  if (leading) return EndsWith(n, Right(text, Len(text) - 1));
  return BeginsWith(n, Left(text, Len(text) - 1));
}

bool CodeBeginsWith(std::int32_t code, const std::wstring& beginning) {
  return Left(std::to_wstring(code), Len(beginning)) == beginning;
}

void Cursor::Detail(std::int32_t n) {
  if (n > static_cast<std::int32_t>(m_municipalities.size())) n = 0;
  if (n < 1) {
    position = 0;
    name = district = postOffice = L"";
    found = false;
    return;
  }
  const Municipality& municipality = m_municipalities.at(static_cast<std::size_t>(n) - 1);
  position = n;
  name = municipality.name;
  district = municipality.district;
  for (const PostOffice& candidate : m_postOffices) {
    if (candidate.code != municipality.code) continue;
    postOffice = candidate.name;
    break;
  }
  found = true;
}

}  // namespace kvez::reference
