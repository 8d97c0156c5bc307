// The searches and the full listings, into the caller's list box.

#include <new>

#include "database/application.h"
#include "database/list_filling.h"
#include "database/postal_database.h"
#include "database/progress_cadence.h"
#include "database/searches.h"
#include "text/numeric_text.h"

namespace kvez {
namespace {

constexpr std::wstring_view kNothingGiven = L"Bez zadání.";

/// `name(i, text)` makes the text the name of element i, counted from 0.
template <class Name>
void FillRows(ListBox& list, ProgressWindow& window, std::size_t count, std::size_t characters, Name name) {
  std::wstring text;
  ProgressCadence cadence(count);
  ListFilling filling(list, count, characters);
  for (std::size_t i = 1; i <= count; ++i) {
    name(i - 1, text);
    filling.AddRow(text, static_cast<std::int32_t>(i));
    if (cadence.Step()) window.Prubech(cadence.Fraction(i));
  }
  filling.SetExtent();
}

/// The same; a list that cannot be filled whole stays empty.
template <class Name>
void FillWithAll(ListBox& list, ProgressWindow& window, std::size_t count, std::size_t characters, Name name) {
  try {
    FillRows(list, window, count, characters, name);
  } catch (...) {
    list.Clear();
    throw;
  }
}

}  // namespace

// Every search begins with nothing found, and what ends it before its list is filled leaves nothing found. `search`
// gives a SearchResult, or nothing when there is nothing to search for: then `otherwise` is the description.
template <class Search>
void PostalDatabase::RunSearch(ListBox& list, std::wstring& description, std::wstring_view otherwise, Search search) {
  try {
    if (m_outOfMemory.empty()) m_outOfMemory = kOutOfMemory;
    list.Clear();
    m_found = false;
    ReleaseResult();
    description = otherwise;
    if (std::optional<SearchResult> found = search()) {
      description = std::move(found->description);
      m_result = std::move(found->positions);
      FillResultList(list);
    }
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

void PostalDatabase::EndWithoutResult(ListBox& list) {
  list.Clear();
  list.SetHorizontalExtent(0);
  m_result = {};
  m_resultCount = 0;
  m_resultCursor = 0;
  m_found = false;
}

void PostalDatabase::pscNajdiPSC(bool exact, const std::wstring& text, ListBox& list, std::wstring& description) {
  RunSearch(list, description, kNothingGiven, [&]() -> std::optional<SearchResult> {
    if (text.empty() || m_municipalityCount == 0) return std::nullopt;
    if (!exact) return FindCodesBeginning(m_municipalities, text);
    return FindCode(m_municipalities, ToInt32(NormalisedCode(text)), m_platform.formats);
  });
}

void PostalDatabase::pscObceKPSC(ListBox& list, std::wstring& description) {
  RunSearch(list, description, kNothingGiven, [&]() -> std::optional<SearchResult> {
    if (!m_hasCurrent || m_municipalityCount == 0) return std::nullopt;
    return FindCode(m_municipalities, m_currentCode, m_platform.formats);
  });
}

void PostalDatabase::pscVyberPostu(const std::wstring& text, ListBox& list, std::wstring& description) {
  RunSearch(list, description, L"Seznam je prázdný.", [&]() -> std::optional<SearchResult> {
    if (text.empty() || m_municipalityCount == 0) return std::nullopt;
    const auto pattern = ParseNamePattern(text);
    if (pattern) return FindName(m_municipalities, *pattern);
    m_platform.messages.Show(L"Zadejte minimálně 1 znak pro vyhledání !", MessageIcon::Exclamation, kApplicationTitle);
    return std::nullopt;
  });
}

void PostalDatabase::pscoVyberPostu(ListBox& list, std::wstring& description) {
  RunSearch(list, description, kNothingGiven, [&]() -> std::optional<SearchResult> {
    if (m_currentDistrict.empty()) return std::nullopt;
    return FindDistrict(m_municipalities, m_currentDistrict);
  });
}

void PostalDatabase::FillResultList(ListBox& list) {
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

void PostalDatabase::StandOnLastOfResult() {
  if (m_result.empty()) return;
  // As if the cursor had moved along the rows, which takes longer than finding them: where a row has no post office,
  // the one of the row before stays, so the last office that any of them has is the one.
  for (auto position = m_result.rbegin(); position != m_result.rend(); ++position) {
    const std::size_t index = static_cast<std::size_t>(position->tpPozice()) - 1;
    if (const auto office = m_postOffices.index.First(m_municipalities.Code(index))) {
      m_currentPostOffice = m_postOffices.offices[*office].tpDodavaci();
      break;
    }
  }
  pscDetail(m_result.back().tpPozice());
}

void PostalDatabase::pscVyberVse(ListBox& list, ProgressWindow& window) {
  list.Clear();
  std::size_t characters = 0;
  for (std::size_t i = 0; i < m_municipalities.size(); ++i) characters += m_municipalities.NameLength(i);
  FillWithAll(list, window, m_municipalities.size(), characters,
              [this](std::size_t i, std::wstring& text) { m_municipalities.Name(i, text); });
}

void PostalDatabase::pscoVyberVse(ListBox& list, ProgressWindow& window) {
  list.Clear();
  std::size_t characters = 0;
  for (const tclsokresy& district : m_districts) characters += district.tpscoOkres().size();
  FillWithAll(list, window, m_districts.size(), characters,
              [this](std::size_t i, std::wstring& text) { text = m_districts[i].tpscoOkres(); });
}

}  // namespace kvez
