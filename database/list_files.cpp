#include "database/list_files.h"

#include "database/data_files.h"
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

std::int32_t Expand(const DataFolder& folder, const DataFile& file, const std::wstring& expandedPath) {
  const LzHandle source(folder.lz, folder.path + std::wstring(file.compressed), LzMode::Read);
  const LzHandle target(folder.lz, expandedPath, LzMode::Create);
  // A failed open shows in the copy, which answers a bad handle with an error.
  return folder.lz.Copy(source.Get(), target.Get());
}

std::optional<std::vector<std::uint8_t>> ExpandedBytes(const DataFolder& folder, const DataFile& file,
                                                       const std::wstring& expandedPath) {
  // Between the expansion and the reading another program in this folder may have begun the file anew or deleted it
  // after its own reading. Only a file of the length that was written is taken for the expanded one.
  for (int expansion = 0; expansion < kExpansions; ++expansion) {
    const std::int32_t written = Expand(folder, file, expandedPath);
    if (written < 1) return std::nullopt;
    auto bytes = folder.files.Read(expandedPath);
    if (bytes && bytes->size() == static_cast<std::size_t>(written)) return bytes;
  }
  return std::nullopt;
}

template <class AppendRecord>
bool ReadRecords(const DataFolder& folder, const DataFile& file, ProgressWindow& window, AppendRecord appendRecord) {
  const std::wstring expandedPath = folder.path + std::wstring(file.expanded);
  const ExpandedFileDeletion deletion(folder.lz, expandedPath);
  const auto bytes = ExpandedBytes(folder, file, expandedPath);
  if (!bytes) return false;

  FieldReader reader(*bytes);
  ProgressCadence cadence(reader.Length());
  while (!reader.AtEnd()) {
    appendRecord(ReadRecord(reader, file.record));
    if (cadence.Step()) window.Prubech(cadence.Fraction(reader.Position()));
    if (reader.Overrun()) return false;
  }
  return true;
}

template <class List, class Read>
std::optional<List> WholeOrNothing(Read read) {
  try {
    List list;
    if (read(list)) return list;
  } catch (...) {
  }
  return std::nullopt;
}

}  // namespace

std::optional<MunicipalityList> ReadMunicipalityList(const DataFolder& folder, ProgressWindow& window) {
  return WholeOrNothing<MunicipalityList>([&](MunicipalityList& list) {
    return ReadRecords(folder, kMunicipalityFile, window,
                       [&list](const RecordFields& fields) { list.push_back(fields); });
  });
}

std::optional<PostOfficeList> ReadPostOfficeList(const DataFolder& folder, ProgressWindow& window) {
  return WholeOrNothing<PostOfficeList>([&](PostOfficeList& list) {
    std::string copy;
    const bool sound = ReadRecords(folder, kPostOfficeFile, window, [&](const RecordFields& fields) {
      tclsdodavaci record;
      record.tpPSC(fields.code);
      record.tpDodavaci(FromWindows1250(WithoutControls(fields.name, copy)));
      list.offices.push_back(std::move(record));
    });
    if (sound) list.index.Build(list.offices);
    return sound;
  });
}

std::optional<DistrictList> ReadDistrictList(const DataFolder& folder, ProgressWindow& window) {
  return WholeOrNothing<DistrictList>([&](DistrictList& list) {
    std::string copy;
    return ReadRecords(folder, kDistrictFile, window, [&](const RecordFields& fields) {
      tclsokresy record;
      record.tpscoKod(fields.code);
      record.tpscoOkres(FromWindows1250(WithoutControls(fields.name, copy)));
      list.push_back(std::move(record));
    });
  });
}

}  // namespace kvez
