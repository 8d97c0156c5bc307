#include "database/postal_database.h"

#include "database/application.h"
#include "database/data_files.h"
#include "database/loose_ends.h"
#include "database/progress_cadence.h"
#include "database/status_text.h"
#include "text/numeric_text.h"

namespace kvez {
namespace {

template <class List>
std::int32_t CountOf(const List& list) {
  return static_cast<std::int32_t>(list.size());
}

// Empties a list from its last element to its first. `index` shows the running index and ends at 0; of an empty list
// everything stays as it is. The window may ask the database anything meanwhile, so the walk does not rely on `index`.
template <class List>
void Release(List& list, std::int32_t& count, std::int32_t& index, ProgressWindow* window) {
  if (count < 1) return;
  ProgressCadence cadence(static_cast<std::uint64_t>(count));
  for (std::int32_t i = count; i >= 1; --i) {
    index = i;
    list.pop_back();
    if (window == nullptr || !cadence.Step()) continue;
    try {
      window->PrubechPamet(cadence.Fraction(static_cast<std::uint64_t>(i)));
    } catch (...) {
      // Memory is given back here, and what cannot be shown of that is no reason to stop.
      window = nullptr;
    }
  }
  index = 0;
  list = List();
  count = CountOf(list);
}

std::wstring SettingKey(std::int16_t number) { return L"nastavení" + std::to_wstring(number); }

}  // namespace

PostalDatabase::PostalDatabase(const DatabasePlatform& platform, std::wstring programFolder)
    : m_platform(platform), m_programFolder(std::move(programFolder)) {}

void PostalDatabase::pscNacti(ProgressWindow& window) {
  auto read = ReadMunicipalityList(Folder(), window);
  if (!read) {
    pscUvolni();
    pscDetail(0);
    ShowDamaged(kMunicipalityFile);
    return;
  }
  m_municipalities = std::move(*read);
  m_municipalityCount = CountOf(m_municipalities);
  pscDetail(0);
}

void PostalDatabase::pscpNacti(ProgressWindow& window) {
  auto read = ReadPostOfficeList(Folder(), window);
  if (!read) {
    ReleasePostOffices(nullptr);
    ShowDamaged(kPostOfficeFile);
    return;
  }
  m_postOffices = std::move(*read);
  m_postOfficeCount = CountOf(m_postOffices.offices);
}

void PostalDatabase::pscoNacti(ProgressWindow& window) {
  auto read = ReadDistrictList(Folder(), window);
  if (!read) {
    ReleaseDistricts(nullptr);
    ShowDamaged(kDistrictFile);
    return;
  }
  m_districts = std::move(*read);
  m_districtCount = CountOf(m_districts);
}

DataFolder PostalDatabase::Folder() { return {m_platform.lz, m_platform.files, m_programFolder}; }

void PostalDatabase::ShowDamaged(const DataFile& file) {
  m_platform.messages.Show(file.damaged, MessageIcon::Exclamation, kApplicationTitle);
}

void PostalDatabase::pscUvolni() {
  ReleaseMunicipalities(nullptr);
  ReleasePostOffices(nullptr);
  ReleaseDistricts(nullptr);
  ReleaseResult();
}

void PostalDatabase::pscUvolniPamet(ProgressWindow& window) {
  ReleaseMunicipalities(&window);
  ReleasePostOffices(&window);
  ReleaseDistricts(&window);
  ReleaseResult();
}

void PostalDatabase::ReleaseMunicipalities(ProgressWindow* window) {
  Release(m_municipalities, m_municipalityCount, m_position, window);
  m_formattedCodes = {};
}

void PostalDatabase::ReleasePostOffices(ProgressWindow* window) {
  std::int32_t index = 0;
  m_postOffices.index.Clear();
  Release(m_postOffices.offices, m_postOfficeCount, index, window);
}

void PostalDatabase::ReleaseDistricts(ProgressWindow* window) {
  // Not the district cursor: that one stays where it is.
  std::int32_t index = 0;
  Release(m_districts, m_districtCount, index, window);
}

void PostalDatabase::ReleaseResult() { Release(m_result, m_resultCount, m_resultCursor, nullptr); }

std::int16_t PostalDatabase::vGetNastaveniRegistr(std::int16_t number) const {
  const std::wstring stored = m_platform.settings.Get(kSettingsApplication, kSettingsSection, SettingKey(number), L"0");
  return ToInt16(stored) == 0 ? 0 : 1;
}

void PostalDatabase::vSetNastaveniRegistr(std::int16_t number, std::int16_t value) {
  m_platform.settings.Save(kSettingsApplication, kSettingsSection, SettingKey(number), std::to_wstring(value));
}

DateTime PostalDatabase::pscDatabazeZeDne() const {
  // The municipality file stands for all three.
  const std::wstring path = m_programFolder + std::wstring(kMunicipalityFile.compressed);
  return m_platform.files.LastWriteTime(path).value_or(DateTime{});
}

std::wstring PostalDatabase::pscNesoulad() const {
  ListKeys<std::wstring_view> keys;
  for (std::size_t i = 0; i < m_municipalities.size(); ++i) {
    const std::wstring& district = m_municipalities.Districts()[m_municipalities.DistrictIndex(i)];
    keys.municipalities.emplace_back(m_municipalities.Code(i), district);
  }
  for (const tclsdodavaci& office : m_postOffices.offices) keys.postOffices.push_back(office.tpPSC());
  for (const tclsokresy& district : m_districts) keys.districts.push_back(district.tpscoOkres());
  const LooseEnds ends = keys.Count();
  const auto withoutPostOffice = static_cast<std::int32_t>(ends.municipalitiesWithoutPostOffice);
  const auto withoutDistrict = static_cast<std::int32_t>(ends.municipalitiesInNoDistrict);

  std::wstring counts;
  if (withoutPostOffice > 0 && !m_postOffices.offices.empty()) {
    counts = CountOfMunicipalities(m_platform.formats, withoutPostOffice) + L" bez pošty";
  }
  if (withoutDistrict > 0 && !m_districts.empty()) {
    if (!counts.empty()) counts += L", ";
    counts += CountOfMunicipalities(m_platform.formats, withoutDistrict) + L" bez okresu";
  }
  return counts.empty() ? counts : L"Soubory k sobě nepatří: " + counts + L".";
}

}  // namespace kvez
