// Whether the three files belong together.

#include <set>
#include <string_view>

#include "database/clspsc.h"
#include "database/status_text.h"

namespace kvez {
namespace {

std::wstring CountOfMunicipalities(Formats& formats, std::int32_t count) {
  const wchar_t* noun = L" obcí";
  if (count == 1) noun = L" obec";
  if (count >= 2 && count <= 4) noun = L" obce";
  return GroupedNumber(formats, count) + noun;
}

}  // namespace

std::wstring clspsc::pscNesoulad() const {
  std::set<std::wstring_view> districts;
  for (const tclsokresy& district : m_districts) districts.insert(district.tpscoOkres());
  std::vector<bool> isKnown;
  for (const std::wstring& name : m_municipalities.Districts()) isKnown.push_back(districts.count(name) > 0);
  std::int32_t withoutPostOffice = 0;
  std::int32_t withoutDistrict = 0;
  for (std::size_t i = 0; i < m_municipalities.size(); ++i) {
    if (!m_postOfficeIndex.First(m_municipalities.Code(i))) ++withoutPostOffice;
    if (!isKnown[m_municipalities.DistrictIndex(i)]) ++withoutDistrict;
  }
  if (m_postOffices.empty()) withoutPostOffice = 0;
  if (m_districts.empty()) withoutDistrict = 0;

  std::wstring counts;
  if (withoutPostOffice > 0) {
    counts = CountOfMunicipalities(m_platform.formats, withoutPostOffice) + L" bez pošty";
  }
  if (withoutDistrict > 0) {
    if (!counts.empty()) counts += L", ";
    counts += CountOfMunicipalities(m_platform.formats, withoutDistrict) + L" bez okresu";
  }
  return counts.empty() ? counts : L"Soubory k sobě nepatří: " + counts + L".";
}

}  // namespace kvez
