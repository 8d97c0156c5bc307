// Loading of the three lists and their release.

#include "database/application.h"
#include "database/clspsc.h"
#include "database/name_text.h"
#include "database/progress_cadence.h"
#include "text/windows1250.h"

namespace kvez {
namespace {

/// Deletes the expanded file when the reading is over, however it ends.
class ExpandedFileDeletion {
 public:
  ExpandedFileDeletion(LzLibrary& lz, const std::wstring& path) : m_lz(lz), m_path(path) {}
  ~ExpandedFileDeletion() {
    try {
      m_lz.OpenFile(m_path, LzMode::Delete);
    } catch (...) {
      // It stays there, and the next reading overwrites it.
    }
  }
  ExpandedFileDeletion(const ExpandedFileDeletion&) = delete;
  ExpandedFileDeletion& operator=(const ExpandedFileDeletion&) = delete;

 private:
  LzLibrary& m_lz;
  const std::wstring& m_path;
};

/// A handle of the expansion library. One that stands for an error is handed on like any other.
class LzHandle {
 public:
  LzHandle(LzLibrary& lz, const std::wstring& path, LzMode mode) : m_lz(lz), m_handle(lz.OpenFile(path, mode)) {}
  ~LzHandle() { m_lz.Close(m_handle); }
  LzHandle(const LzHandle&) = delete;
  LzHandle& operator=(const LzHandle&) = delete;

  std::int32_t Get() const { return m_handle; }

 private:
  LzLibrary& m_lz;
  std::int32_t m_handle;
};

// How often a file is expanded again because another program in the same folder did the same to it just then.
constexpr int kExpansions = 8;

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
  count = Count(list);
}

// A list read aside, or nothing: whatever goes wrong, memory that runs out most of all, means that the file cannot be
// read, and nobody ever sees a part of it.
template <class List, class Read>
std::optional<List> WholeOrNothing(Read read) {
  try {
    List list;
    if (read(list)) return list;
  } catch (...) {
  }
  return std::nullopt;
}

struct OfficesWithIndex {
  std::vector<tclsdodavaci> list;
  PostOfficeIndex index;
};

}  // namespace

clspsc::clspsc(Platform platform, std::wstring programFolder)
    : m_platform(platform), m_programFolder(std::move(programFolder)) {}

void clspsc::pscNacti(ProgressWindow& window) {
  auto read = WholeOrNothing<MunicipalityList>([&](MunicipalityList& list) {
    return ReadDataFile(kMunicipalityFile, window,
                        [&list](FieldReader& reader) { list.push_back(ReadMunicipality(reader)); });
  });
  if (!read) {
    pscUvolni();
    pscDetail(0);
    ShowDamaged(kMunicipalityFile);
    return;
  }
  m_municipalities = std::move(*read);
  m_municipalityCount = Count(m_municipalities);
  pscDetail(0);
}

void clspsc::pscpNacti(ProgressWindow& window) {
  auto read = WholeOrNothing<OfficesWithIndex>([&](OfficesWithIndex& offices) {
    std::string copy;
    const bool sound = ReadDataFile(kPostOfficeFile, window, [&](FieldReader& reader) {
      const PostOfficeFields fields = ReadPostOffice(reader);
      tclsdodavaci record;
      record.tpPSC(fields.code);
      record.tpDodavaci(FromWindows1250(WithoutControls(fields.name, copy)));
      offices.list.push_back(std::move(record));
    });
    if (sound) offices.index.Build(offices.list);
    return sound;
  });
  if (!read) {
    ReleasePostOffices(nullptr);
    ShowDamaged(kPostOfficeFile);
    return;
  }
  m_postOffices = std::move(read->list);
  m_postOfficeIndex = std::move(read->index);
  m_postOfficeCount = Count(m_postOffices);
}

void clspsc::pscoNacti(ProgressWindow& window) {
  using DistrictList = std::vector<tclsokresy>;
  auto read = WholeOrNothing<DistrictList>([&](DistrictList& districts) {
    std::string copy;
    return ReadDataFile(kDistrictFile, window, [&](FieldReader& reader) {
      const DistrictFields fields = ReadDistrict(reader);
      tclsokresy record;
      record.tpscoKod(fields.code);
      record.tpscoOkres(FromWindows1250(WithoutControls(fields.name, copy)));
      districts.push_back(std::move(record));
    });
  });
  if (!read) {
    ReleaseDistricts(nullptr);
    ShowDamaged(kDistrictFile);
    return;
  }
  m_districts = std::move(*read);
  m_districtCount = Count(m_districts);
}

bool clspsc::ReadDataFile(const DataFile& file, ProgressWindow& window,
                          const std::function<void(FieldReader&)>& appendRecord) {
  const std::wstring expandedPath = m_programFolder + std::wstring(file.expanded);
  const ExpandedFileDeletion deletion(m_platform.lz, expandedPath);
  const auto bytes = ExpandedBytes(file, expandedPath);
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

std::optional<std::vector<std::uint8_t>> clspsc::ExpandedBytes(const DataFile& file, const std::wstring& expandedPath) {
  // Between the expansion and the reading another program in this folder may have begun the file anew or deleted it
  // after its own reading. Only a file of the length that was written is taken for the expanded one.
  for (int expansion = 0; expansion < kExpansions; ++expansion) {
    const std::int32_t written = Expand(file, expandedPath);
    if (written < 1) return std::nullopt;
    auto bytes = m_platform.files.Read(expandedPath);
    if (bytes && bytes->size() == static_cast<std::size_t>(written)) return bytes;
  }
  return std::nullopt;
}

std::int32_t clspsc::Expand(const DataFile& file, const std::wstring& expandedPath) {
  LzLibrary& lz = m_platform.lz;
  const LzHandle source(lz, m_programFolder + std::wstring(file.compressed), LzMode::Read);
  const LzHandle target(lz, expandedPath, LzMode::Create);
  // A failed open shows in the copy, which answers a bad handle with an error.
  return lz.Copy(source.Get(), target.Get());
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
