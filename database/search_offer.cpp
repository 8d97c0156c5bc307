#include "database/search_offer.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

#include "database/name_normalisation.h"
#include "database/name_pattern.h"
#include "database/status_text.h"
#include "text/fold.h"
#include "text/windows1250.h"

namespace kvez {
namespace {

constexpr std::ptrdiff_t kPostalDigits = 5;
// From here on a beginning is worth a word: Plzeň finds 3 municipalities, Plzeň* 24.
constexpr std::int32_t kMuchMore = 3;

bool IsDigit(wchar_t character) { return character >= L'0' && character <= L'9'; }

std::wstring_view WithoutBlanksAround(std::wstring_view text) {
  const std::size_t first = text.find_first_not_of(L' ');
  if (first == std::wstring_view::npos) return {};
  return text.substr(first, text.find_last_not_of(L' ') - first + 1);
}

// The letter under the mark, small.
wchar_t PlainLetter(wchar_t character) {
  constexpr std::wstring_view kMarked = L"áâăäąćçčďđéęëěíîĺľłńňóôőöŕřśşšťţúůűüýźżž";
  constexpr std::wstring_view kPlain = L"aaaaacccddeeeeiilllnnoooorrsssttuuuuyzzz";
  static_assert(kMarked.size() == kPlain.size());
  const wchar_t small = FoldCase(character);
  if (small < 0x80) return small;
  const std::size_t at = kMarked.find(small);
  return at == std::wstring_view::npos ? small : kPlain[at];
}

std::wstring PlainLetters(std::wstring_view text) {
  std::wstring plain(text);
  std::transform(plain.begin(), plain.end(), plain.begin(), &PlainLetter);
  return plain;
}

std::wstring Begins(std::wstring_view text) { return std::wstring(text) + L"*"; }

class NameOffer {
 public:
  NameOffer(const MunicipalityList& municipalities, std::span<const tclsdodavaci> postOffices, Formats& formats)
      : m_municipalities(municipalities), m_postOffices(postOffices), m_formats(formats) {}

  std::wstring ForFound(std::wstring_view text, std::int32_t found) const {
    const std::int32_t more = Count(NameMode::BeginsWith, text);
    if (more / kMuchMore < found) return {};
    return Begins(text) + L" najde " + CountOfMunicipalities(m_formats, more) + L".";
  }

  std::wstring ForNothing(std::wstring_view text) const {
    std::wstring offer = PartBehindHyphen(text);
    if (!offer.empty()) return offer;
    const tclsdodavaci* const postOffice = PostOffice(text);
    // The number is what was looked for: Praha* would not know which.
    if (postOffice != nullptr && IsDigit(text.back())) return Sentence(*postOffice);
    // No name has a character that the code page lacks, and the replacement for it is a wildcard.
    const std::string bytes = ToWindows1250(text);
    // Twice, because of Bynov-Děčín IX the first leaves Bynov-Děčín, and names are compared without what follows a
    // hyphen.
    const std::string_view normalised = NormalisedName(NormalisedName(bytes));
    const std::wstring compared(WithoutBlanksAround(FromWindows1250(normalised)));
    offer = Try(Begins(compared), Count(NameMode::BeginsWith, compared));
    if (offer.empty()) offer = WithDiacritics(compared);
    if (offer.empty() && postOffice != nullptr) offer = Sentence(*postOffice);
    return offer;
  }

 private:
  std::int32_t Count(NameMode mode, std::wstring_view text) const {
    return static_cast<std::int32_t>(m_municipalities.Keys().Find({mode, std::wstring(text), {}}).size());
  }

  std::wstring Try(const std::wstring& pattern, std::int32_t count) const {
    if (count == 0) return {};
    return L"Nic nenalezeno. Zkuste " + pattern + L" (" + CountOfMunicipalities(m_formats, count) + L").";
  }

  // Praha-Bohnice: the list may have the part under its own name. Frýdek-Místek is no part but a whole municipality
  // with a hyphen in it.
  std::wstring PartBehindHyphen(std::wstring_view text) const {
    const std::size_t hyphen = text.rfind(L'-');
    if (hyphen == std::wstring_view::npos) return {};
    const std::wstring part(WithoutBlanksAround(text.substr(hyphen + 1)));
    const std::int32_t count = Count(NameMode::Whole, part);
    return count == 0 || IsWholeName(text) ? std::wstring() : Try(part, count);
  }

  // A district has this name, and no other one with the same before its hyphen: beside Ostrava-Lhotka there is
  // Ostrava-Svinov.
  bool IsWholeName(std::wstring_view text) const {
    const std::wstring_view beginning = text.substr(0, text.find(L'-') + 1);
    std::vector<std::size_t> withIt;
    std::vector<std::size_t> withAnother;
    std::wstring name;
    for (std::size_t i = 0; i < m_municipalities.size(); ++i) {
      m_municipalities.Name(i, name);
      if (!EqualIgnoringCase(std::wstring_view(name).substr(0, beginning.size()), beginning)) continue;
      (EqualIgnoringCase(name, text) ? withIt : withAnother).push_back(m_municipalities.DistrictIndex(i));
    }
    return std::ranges::any_of(withIt, [&](std::size_t district) {
      return std::find(withAnother.begin(), withAnother.end(), district) == withAnother.end();
    });
  }

  // Plzen: the beginning that is Plzeň in the list; of several the one that most names have.
  std::wstring WithDiacritics(const std::wstring& text) const {
    const std::wstring plain = PlainLetters(text);
    std::vector<std::wstring> beginnings;
    std::wstring name;
    for (std::size_t i = 0; i < m_municipalities.size(); ++i) {
      m_municipalities.Name(i, name);
      if (name.size() < plain.size()) continue;
      name.resize(plain.size());
      const bool isAlike = std::equal(name.begin(), name.end(), plain.begin(),
                                      [](wchar_t letter, wchar_t wanted) { return PlainLetter(letter) == wanted; });
      if (isAlike && std::find(beginnings.begin(), beginnings.end(), name) == beginnings.end()) {
        beginnings.push_back(name);
      }
    }
    std::pair<std::int32_t, std::wstring> best;
    for (const std::wstring& beginning : beginnings) {
      const std::int32_t count = Count(NameMode::BeginsWith, beginning);
      if (count > best.first) best = {count, beginning};
    }
    return Try(Begins(best.second), best.first);
  }

  const tclsdodavaci* PostOffice(std::wstring_view text) const {
    const auto found = std::find_if(m_postOffices.begin(), m_postOffices.end(), [text](const tclsdodavaci& office) {
      return EqualIgnoringCase(office.tpDodavaci(), text);
    });
    return found == m_postOffices.end() ? nullptr : &*found;
  }

  std::wstring Sentence(const tclsdodavaci& office) const {
    return L"Pošta " + office.tpDodavaci() + L" má PSČ " + m_formats.Number(office.tpPSC(), kCodePicture) + L".";
  }

  const MunicipalityList& m_municipalities;
  std::span<const tclsdodavaci> m_postOffices;
  Formats& m_formats;
};

std::wstring OfferAfterPostalCode(std::wstring_view text) {
  const auto digits = std::count_if(text.begin(), text.end(), &IsDigit);
  if (digits == 0 || digits >= kPostalDigits) return {};
  return L"PSČ má pět číslic. Podle jeho začátku hledá světlemodré pole.";
}

}  // namespace

std::wstring OfferAfter(const EndedSearch& search, const MunicipalityList& municipalities,
                        std::span<const tclsdodavaci> postOffices, Formats& formats) {
  if (search.by == EndedSearch::By::PostalCode) return OfferAfterPostalCode(search.text);
  if (search.text.empty() || std::ranges::any_of(search.text, IsWildcard)) return {};
  const NameOffer offer(municipalities, postOffices, formats);
  return search.found > 0 ? offer.ForFound(search.text, search.found) : offer.ForNothing(search.text);
}

}  // namespace kvez
