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
  // As the list has it behind the name, normally " x)": another name of a part that has its own row.
  std::wstring aliasMark;
};

/// Reads the official list (Windows-1250, ";", six columns under their heading). The alias mark is taken off the names.
/// Throws ToolError with `name` and the line for whatever is not as it must be: encoding, heading, columns, codes,
/// names that nobody could find or that are damaged, a code with two post offices, a district with two names or codes,
/// a list that stands there twice, a long one that has lost a letter of the Czech alphabet.
std::vector<OfficialRow> ReadOfficialList(const Bytes& list, const std::string& name);

}  // namespace kvez
