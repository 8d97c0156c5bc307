#pragma once

#include "tools/files.h"
#include "tools/tables.h"

namespace kvez {

/// The expanded data files: records back to back, little-endian, names in Windows-1250 behind their 16-bit lengths.
/// The rows must be such as ReadTables gives.
Bytes MunicipalityBytes(const std::vector<MunicipalityRow>& rows);
Bytes PostOfficeBytes(const std::vector<PostOfficeRow>& rows);
Bytes DistrictBytes(const std::vector<DistrictRow>& rows);

}  // namespace kvez
