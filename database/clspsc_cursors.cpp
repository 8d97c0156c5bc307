// The cursors over the three lists, the fields that they fill, and the texts that say where they stand.

#include "database/clspsc.h"
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

void clspsc::pscDetail(std::int32_t n) {
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

void clspsc::SelectMunicipality(std::size_t index) {
  m_hasCurrent = true;
  m_currentCode = m_municipalities.Code(index);
  m_municipalities.Name(index, m_currentName);
  m_currentDistrictName = m_municipalities.Districts()[m_municipalities.DistrictIndex(index)];
  // Where a code has no post office, the one of the municipality shown before stays. That is meant so.
  const auto postOffice = m_postOfficeIndex.First(m_currentCode);
  if (postOffice) m_currentPostOffice = m_postOffices[*postOffice].tpDodavaci();
  m_found = true;
}

void clspsc::SelectNoMunicipality() {
  m_position = 0;
  m_hasCurrent = false;
  m_currentName.clear();
  m_currentDistrictName.clear();
  m_currentPostOffice.clear();
  m_found = false;
}

void clspsc::pscDetailPlus() { pscDetail(m_position < m_municipalityCount ? m_position + 1 : m_position); }

void clspsc::pscDetailMinus() { pscDetail(m_position > 1 ? m_position - 1 : m_position); }

void clspsc::pscoDetail(std::int32_t n) {
  m_districtCursor = 0;
  m_currentDistrictCode = 0;
  m_currentDistrict.clear();
  if (!Has(m_districts, m_districtCount, n)) return;
  const tclsokresy& district = m_districts[static_cast<std::size_t>(n) - 1];
  m_currentDistrict = district.tpscoOkres();
  m_currentDistrictCode = district.tpscoKod();
  m_districtCursor = n;
}

void clspsc::pDetail(std::int32_t n) {
  const bool exists = Has(m_result, m_resultCount, n);
  m_resultCursor = 0;
  pscDetail(exists ? m_result[static_cast<std::size_t>(n) - 1].tpPozice() : 0);
  if (exists) m_resultCursor = n;
}

std::int32_t clspsc::pscPozice() const { return m_position; }
bool clspsc::pscNalezen() const { return m_found; }
std::int32_t clspsc::pscCelkem() const { return m_municipalityCount; }
std::int32_t clspsc::pscoCelkem() const { return m_districtCount; }
std::int32_t clspsc::pCelkem() const { return m_resultCount; }

std::wstring clspsc::pscPSC() const { return m_hasCurrent ? FormattedCode(m_currentCode) : std::wstring(); }
std::wstring clspsc::pscObec() const { return m_currentName; }
std::wstring clspsc::pscOkres() const { return m_currentDistrictName; }
std::wstring clspsc::pscDodavaci() const { return m_currentPostOffice; }

std::wstring clspsc::pscPSCObec() const {
  return m_hasCurrent ? FormattedCode(m_currentCode) + L"  " + m_currentPostOffice : std::wstring();
}

const std::wstring& clspsc::FormattedCode(std::int32_t code) const {
  std::wstring& text = m_formattedCodes[code];
  if (text.empty()) text = m_platform.formats.Number(code, kCodePicture);
  return text;
}

std::wstring clspsc::pscVybran() const {
  return StatusText(m_platform.formats, m_municipalityCount, m_position, kMunicipalitySentences);
}

std::wstring clspsc::pscoVybran() const {
  return StatusText(m_platform.formats, m_districtCount, m_districtCursor, kDistrictSentences);
}

std::wstring clspsc::pVybran() const {
  return StatusText(m_platform.formats, m_resultCount, m_resultCursor, kResultSentences);
}

}  // namespace kvez
