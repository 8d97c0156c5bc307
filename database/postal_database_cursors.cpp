// The cursors over the three lists, the fields that they fill, and the texts that say where they stand.

#include "database/postal_database.h"
#include "database/status_text.h"

namespace kvez {
namespace {

constexpr CountSentences kMunicipalitySentences = {L"V seznamu je 1 obec.", L"V seznamu jsou ", L" obce.",
                                                   L"V seznamu je ", L" obcí."};
constexpr CountSentences kDistrictSentences = {L"V seznamu je 1 okres.", L"V seznamu jsou ", L" okresy.",
                                               L"V seznamu je ", L" okresů."};
constexpr CountSentences kResultSentences = {L"Zadání vyhovuje 1 obec.", L"Zadání vyhovují ", L" obce.",
                                             L"Zadání vyhovuje ", L" obcí."};

// Whether a list has an element n. In the middle of a release it has fewer than its count still says.
template <class List>
bool Has(const List& list, std::int32_t count, std::int32_t n) {
  return n >= 1 && n <= count && static_cast<std::size_t>(n) <= list.size();
}

}  // namespace

void PostalDatabase::pscDetail(std::int32_t n) {
  if (!Has(m_municipalities, m_municipalityCount, n)) {
    SelectNoMunicipality();
    return;
  }
  try {
    SelectMunicipality(static_cast<std::size_t>(n) - 1);
  } catch (...) {
    SelectNoMunicipality();
    throw;
  }
  m_position = n;
}

void PostalDatabase::SelectMunicipality(std::size_t index) {
  m_hasCurrent = true;
  m_currentCode = m_municipalities.Code(index);
  m_municipalities.Name(index, m_currentName);
  m_currentDistrictName = m_municipalities.Districts()[m_municipalities.DistrictIndex(index)];
  // Where a code has no post office, the one of the municipality shown before stays. That is meant so.
  const auto postOffice = m_postOffices.index.First(m_currentCode);
  if (postOffice) m_currentPostOffice = m_postOffices.offices[*postOffice].tpDodavaci();
  m_found = true;
}

void PostalDatabase::SelectNoMunicipality() {
  m_position = 0;
  m_hasCurrent = false;
  m_currentName.clear();
  m_currentDistrictName.clear();
  m_currentPostOffice.clear();
  m_found = false;
}

void PostalDatabase::pscDetailPlus() { pscDetail(m_position < m_municipalityCount ? m_position + 1 : m_position); }

void PostalDatabase::pscDetailMinus() { pscDetail(m_position > 1 ? m_position - 1 : m_position); }

void PostalDatabase::pscoDetail(std::int32_t n) {
  m_districtCursor = 0;
  m_currentDistrictCode = 0;
  m_currentDistrict.clear();
  if (!Has(m_districts, m_districtCount, n)) return;
  const tclsokresy& district = m_districts[static_cast<std::size_t>(n) - 1];
  m_currentDistrict = district.tpscoOkres();
  m_currentDistrictCode = district.tpscoKod();
  m_districtCursor = n;
}

void PostalDatabase::pDetail(std::int32_t n) {
  const bool exists = Has(m_result, m_resultCount, n);
  m_resultCursor = 0;
  pscDetail(exists ? m_result[static_cast<std::size_t>(n) - 1].tpPozice() : 0);
  if (exists) m_resultCursor = n;
}

std::int32_t PostalDatabase::pscPozice() const { return m_position; }
bool PostalDatabase::pscNalezen() const { return m_found; }
std::int32_t PostalDatabase::pscCelkem() const { return m_municipalityCount; }
std::int32_t PostalDatabase::pscoCelkem() const { return m_districtCount; }
std::int32_t PostalDatabase::pCelkem() const { return m_resultCount; }

std::wstring PostalDatabase::pscPSC() const { return m_hasCurrent ? FormattedCode(m_currentCode) : std::wstring(); }
std::wstring PostalDatabase::pscObec() const { return m_currentName; }
std::wstring PostalDatabase::pscOkres() const { return m_currentDistrictName; }
std::wstring PostalDatabase::pscDodavaci() const { return m_currentPostOffice; }

std::wstring PostalDatabase::pscPSCObec() const {
  return m_hasCurrent ? FormattedCode(m_currentCode) + L"  " + m_currentPostOffice : std::wstring();
}

const std::wstring& PostalDatabase::FormattedCode(std::int32_t code) const {
  std::wstring& text = m_formattedCodes[code];
  if (text.empty()) text = m_platform.formats.Number(code, kCodePicture);
  return text;
}

std::wstring PostalDatabase::pscVybran() const {
  return StatusText(m_platform.formats, m_municipalityCount, m_position, kMunicipalitySentences);
}

std::wstring PostalDatabase::pscoVybran() const {
  return StatusText(m_platform.formats, m_districtCount, m_districtCursor, kDistrictSentences);
}

std::wstring PostalDatabase::pVybran() const {
  return StatusText(m_platform.formats, m_resultCount, m_resultCursor, kResultSentences);
}

// What the result's rows are to whoever hands them out.

ResultRow PostalDatabase::Row(std::int32_t position) {
  pscDetail(m_result.at(static_cast<std::size_t>(position) - 1).tpPozice());
  const std::wstring_view code = m_hasCurrent ? FormattedCode(m_currentCode) : std::wstring_view();
  return {code, m_currentPostOffice, m_currentName, m_currentDistrictName};
}

}  // namespace kvez
