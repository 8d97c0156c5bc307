#pragma once

#include "tools/files.h"
#include "tools/tables.h"

namespace kvez {

/// The program's three data files in `folder`, each with a check that it expands to what went into it. Expanded they
/// are records back to back, little-endian, names in Windows-1250 behind their 16-bit lengths. The rows must be such as
/// ReadTables gives.
std::vector<NewFile> DataFiles(const Tables& tables, const std::filesystem::path& folder);

}  // namespace kvez
