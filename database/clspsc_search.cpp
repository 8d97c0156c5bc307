// The three searches. Each replaces the result list and fills the caller's list box.

#include <array>
#include <charconv>
#include <new>

#include "database/application.h"
#include "database/clspsc.h"
#include "database/list_filling.h"
#include "database/name_pattern.h"
#include "database/status_text.h"
#include "text/fold.h"
#include "text/numeric_text.h"
#include "text/quoted.h"

namespace kvez {
namespace {

// "110 00" becomes "11000": what stands between the first three and the last two characters goes.
std::wstring NormalisedCode(const std::wstring& text) {
  if (IsNumericText(text)) return text;
  const std::size_t lastTwo = text.size() < 2 ? 0 : text.size() - 2;
  return text.substr(0, 3) + text.substr(lastTwo);
}

// Codes are compared as they are written, without leading zeros.
bool CodeBeginsWith(std::int32_t code, std::wstring_view beginning) {
  std::array<char, 12> digits{};
  const char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), code).ptr;
  const std::string_view written(digits.data(), static_cast<std::size_t>(end - digits.data()));
  return written.size() >= beginning.size() &&
         std::equal(beginning.begin(), beginning.end(), written.begin(),
                    [](wchar_t a, char b) { return a == static_cast<wchar_t>(b); });
}

}  // namespace

// Every search begins with nothing found, and what ends it before its list is filled leaves nothing found.
template <class Search>
void clspsc::RunSearch(ListBox& list, std::wstring& description, Search search) {
  try {
    if (m_outOfMemory.empty()) m_outOfMemory = kOutOfMemory;
    list.Clear();
    m_found = false;
    ReleaseResult();
    search();
    // The row that was too wide for the box may be gone, whatever has ended the search.
    if (m_resultCount == 0) list.SetHorizontalExtent(0);
  } catch (const std::bad_alloc&) {
    EndWithoutResult(list);
    SelectNoMunicipality();
    description.swap(m_outOfMemory);
    m_outOfMemory.clear();
  } catch (...) {
    EndWithoutResult(list);
    throw;
  }
}

void clspsc::EndWithoutResult(ListBox& list) {
  list.Clear();
  list.SetHorizontalExtent(0);
  m_result = {};
  m_resultCount = 0;
  m_resultCursor = 0;
  m_found = false;
}

void clspsc::pscNajdiPSC(bool exact, const std::wstring& text, ListBox& list, std::wstring& description) {
  RunSearch(list, description, [&] {
    description = L"Bez zadání.";
    if (text.empty() || m_municipalityCount == 0) return;

    const std::wstring normalised = NormalisedCode(text);
    if (exact) {
      SearchExactly(ToInt32(normalised), list, description);
      return;
    }
    // The two spaces are meant so, and the text stands as it was typed.
    description = L"Obce s PSČ začínající na  " + Quoted(text) + L".";
    for (std::size_t i = 0; i < m_municipalities.size(); ++i) {
      if (CodeBeginsWith(m_municipalities.Code(i), normalised)) AddMatch(i);
    }
    FillResultList(list);
  });
}

void clspsc::pscObceKPSC(ListBox& list, std::wstring& description) {
  RunSearch(list, description, [&] {
    description = L"Bez zadání.";
    if (m_hasCurrent && m_municipalityCount > 0) SearchExactly(m_currentCode, list, description);
  });
}

void clspsc::SearchExactly(std::int32_t code, ListBox& list, std::wstring& description) {
  description = L"Hledané obce s PSČ " + Quoted(m_platform.formats.Number(code, kCodePicture)) + L".";
  for (std::size_t i = 0; i < m_municipalities.size(); ++i) {
    if (m_municipalities.Code(i) == code) AddMatch(i);
  }
  FillResultList(list);
}

void clspsc::pscVyberPostu(const std::wstring& text, ListBox& list, std::wstring& description) {
  RunSearch(list, description, [&] {
    description = L"Seznam je prázdný.";
    if (text.empty() || m_municipalityCount == 0) return;

    const auto pattern = ParseNamePattern(text);
    if (!pattern) {
      m_platform.messages.Show(L"Zadejte minimálně 1 znak pro vyhledání !", MessageIcon::Exclamation,
                               kApplicationTitle);
      return;
    }
    description = DescribeNamePattern(*pattern);
    m_result = m_municipalities.Keys().Find(*pattern);
    FillResultList(list);
  });
}

void clspsc::pscoVyberPostu(ListBox& list, std::wstring& description) {
  RunSearch(list, description, [&] {
    description = L"Bez zadání.";
    if (m_currentDistrict.empty()) return;

    description = L"Obce v okrese " + Quoted(m_currentDistrict) + L".";
    // Each name is compared once; two districts of the list can differ in case only.
    const std::vector<std::wstring>& names = m_municipalities.Districts();
    std::vector<bool> matches(names.size());
    for (std::size_t i = 0; i < names.size(); ++i) matches[i] = EqualIgnoringCase(names[i], m_currentDistrict);
    for (std::size_t i = 0; i < m_municipalities.size(); ++i) {
      if (matches[m_municipalities.DistrictIndex(i)]) AddMatch(i);
    }
    FillResultList(list);
  });
}

void clspsc::AddMatch(std::size_t municipality) {
  tpclspsc position;
  position.tpPozice(static_cast<std::int32_t>(municipality) + 1);
  m_result.push_back(position);
}

void clspsc::FillResultList(ListBox& list) {
  m_resultCount = static_cast<std::int32_t>(m_result.size());
  m_resultCursor = 0;
  std::size_t characters = 0;
  for (const tpclspsc& position : m_result) {
    characters += m_municipalities.NameLength(static_cast<std::size_t>(position.tpPozice()) - 1);
  }
  ListFilling filling(list, m_result.size(), characters);
  std::wstring name;
  for (const tpclspsc& position : m_result) {
    ++m_resultCursor;
    m_municipalities.Name(static_cast<std::size_t>(position.tpPozice()) - 1, name);
    filling.AddRow(name, m_resultCursor);
  }
  m_resultCursor = 0;
  filling.SetExtent();
  StandOnLastOfResult();
}

void clspsc::StandOnLastOfResult() {
  if (m_result.empty()) return;
  // As if the cursor had moved along the rows, which takes longer than finding them: where a row has no post office,
  // the one of the row before stays, so the last office that any of them has is the one.
  for (auto position = m_result.rbegin(); position != m_result.rend(); ++position) {
    const std::size_t index = static_cast<std::size_t>(position->tpPozice()) - 1;
    if (const auto office = m_postOfficeIndex.First(m_municipalities.Code(index))) {
      m_currentPostOffice = m_postOffices[*office].tpDodavaci();
      break;
    }
  }
  pscDetail(m_result.back().tpPozice());
}

}  // namespace kvez
