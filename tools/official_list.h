#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "tools/files.h"

namespace kvez {

/// A row of the post's official list: a part of a municipality, or a municipality without parts.
struct OfficialRow {
  std::wstring part;
  std::int32_t code = 0;
  std::wstring postOffice;
  std::int16_t districtCode = 0;
  std::wstring district;
  std::wstring municipality;
  bool alias = false;  // the list marked the name with " x)": another name of a part that has its own row
};

/// Reads the official list (Windows-1250, ";", six columns under their heading). The alias mark is taken off the names.
/// Throws ToolError with `name` and the line for whatever is not as it must be: columns, codes, encoding, a code with
/// two post offices, a district with two names or codes.
std::vector<OfficialRow> ReadOfficialList(const Bytes& list, const std::string& name);

}  // namespace kvez
