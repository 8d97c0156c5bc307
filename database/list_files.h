#pragma once

#include <optional>
#include <string>
#include <vector>

#include "database/municipality_list.h"
#include "database/post_office_index.h"
#include "database/progress_window.h"
#include "database/records.h"
#include "platform/files.h"
#include "platform/lz_library.h"

namespace kvez {

/// Where the data files are read: the program's folder, through the expansion library.
struct DataFolder {
  LzLibrary& lz;
  Files& files;
  const std::wstring& path;
};

struct PostOfficeList {
  std::vector<tclsdodavaci> offices;
  PostOfficeIndex index;
};

using DistrictList = std::vector<tclsokresy>;

// A list read aside, or nothing: whatever goes wrong, memory that runs out most of all, means that the file cannot be
// read, and nobody ever sees a part of it. The expanded file is gone afterwards.
std::optional<MunicipalityList> ReadMunicipalityList(const DataFolder& folder, ProgressWindow& window);
std::optional<PostOfficeList> ReadPostOfficeList(const DataFolder& folder, ProgressWindow& window);
std::optional<DistrictList> ReadDistrictList(const DataFolder& folder, ProgressWindow& window);

}  // namespace kvez
