// Loading of the three lists and their release.

#include "database/application.h"
#include "database/clspsc.h"
#include "database/progress_cadence.h"
#include "database/windows1250.h"

namespace kvez {
namespace {

/// Deletes the expanded file when the reading is over, however it ends.
class ExpandedFileDeletion {
 public:
  ExpandedFileDeletion(LzLibrary& lz, std::wstring path) : m_lz(lz), m_path(std::move(path)) {}
  ~ExpandedFileDeletion() { m_lz.OpenFile(m_path, LzMode::Delete); }
  ExpandedFileDeletion(const ExpandedFileDeletion&) = delete;
  ExpandedFileDeletion& operator=(const ExpandedFileDeletion&) = delete;

 private:
  LzLibrary& m_lz;
  std::wstring m_path;
};

template <class List>
std::int32_t Count(const List& list) {
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
    if (window != nullptr && cadence.Step()) window->PrubechPamet(cadence.Fraction(static_cast<std::uint64_t>(i)));
  }
  index = 0;
  list = List();
  count = Count(list);
}

}  // namespace

clspsc::clspsc(Platform platform, std::wstring programFolder)
    : m_platform(platform), m_programFolder(std::move(programFolder)) {}

void clspsc::pscNacti(ProgressWindow& window) {
  const bool sound = ReadDataFile(
      kMunicipalityFile, window, [this](FieldReader& reader) { m_municipalities.push_back(ReadMunicipality(reader)); });
  m_municipalityCount = Count(m_municipalities);
  if (!sound) pscUvolni();
  pscDetail(0);
  if (!sound) ShowDamaged(kMunicipalityFile);
}

void clspsc::pscpNacti(ProgressWindow& window) {
  const bool sound = ReadDataFile(kPostOfficeFile, window, [this](FieldReader& reader) {
    const PostOfficeFields fields = ReadPostOffice(reader);
    tclsdodavaci record;
    record.tpPSC(fields.code);
    record.tpDodavaci(FromWindows1250(fields.name));
    m_postOffices.push_back(std::move(record));
  });
  m_postOfficeCount = Count(m_postOffices);
  if (sound) {
    m_postOfficeIndex.Build(m_postOffices);
    return;
  }
  ReleasePostOffices(nullptr);
  ShowDamaged(kPostOfficeFile);
}

void clspsc::pscoNacti(ProgressWindow& window) {
  const bool sound = ReadDataFile(kDistrictFile, window, [this](FieldReader& reader) {
    const DistrictFields fields = ReadDistrict(reader);
    tclsokresy record;
    record.tpscoKod(fields.code);
    record.tpscoOkres(FromWindows1250(fields.name));
    m_districts.push_back(std::move(record));
  });
  m_districtCount = Count(m_districts);
  if (sound) return;
  ReleaseDistricts(nullptr);
  ShowDamaged(kDistrictFile);
}

bool clspsc::ReadDataFile(const DataFile& file, ProgressWindow& window,
                          const std::function<void(FieldReader&)>& appendRecord) {
  const std::wstring expandedPath = m_programFolder + std::wstring(file.expanded);
  const ExpandedFileDeletion deletion(m_platform.lz, expandedPath);
  if (!Expand(file)) return false;
  const auto bytes = m_platform.files.Read(expandedPath);
  if (!bytes) return false;

  FieldReader reader(*bytes);
  ProgressCadence cadence(reader.Length());
  while (!reader.AtEnd()) {
    appendRecord(reader);
    if (cadence.Step()) window.Prubech(cadence.Fraction(reader.Position()));
    if (reader.Overrun()) return false;
  }
  return true;
}

bool clspsc::Expand(const DataFile& file) {
  LzLibrary& lz = m_platform.lz;
  const std::int32_t source = lz.OpenFile(m_programFolder + std::wstring(file.compressed), LzMode::Read);
  const std::int32_t target = lz.OpenFile(m_programFolder + std::wstring(file.expanded), LzMode::Create);
  // A failed open shows in the copy, which answers a bad handle with an error.
  const std::int32_t written = lz.Copy(source, target);
  lz.Close(source);
  lz.Close(target);
  return written > 0;
}

void clspsc::ShowDamaged(const DataFile& file) {
  m_platform.messages.Show(file.damaged, MessageIcon::Exclamation, kApplicationTitle);
}

void clspsc::pscUvolni() {
  ReleaseMunicipalities(nullptr);
  ReleasePostOffices(nullptr);
  ReleaseDistricts(nullptr);
  ReleaseResult();
}

void clspsc::pscUvolniPamet(ProgressWindow& window) {
  ReleaseMunicipalities(&window);
  ReleasePostOffices(&window);
  ReleaseDistricts(&window);
  ReleaseResult();
}

void clspsc::ReleaseMunicipalities(ProgressWindow* window) {
  Release(m_municipalities, m_municipalityCount, m_position, window);
  m_formattedCodes = {};
}

void clspsc::ReleasePostOffices(ProgressWindow* window) {
  std::int32_t index = 0;
  m_postOfficeIndex.Clear();
  Release(m_postOffices, m_postOfficeCount, index, window);
}

void clspsc::ReleaseDistricts(ProgressWindow* window) {
  // Not the district cursor: that one stays where it is.
  std::int32_t index = 0;
  Release(m_districts, m_districtCount, index, window);
}

void clspsc::ReleaseResult() { Release(m_result, m_resultCount, m_resultCursor, nullptr); }

}  // namespace kvez
