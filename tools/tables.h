#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/collation.h"
#include "tools/files.h"

namespace kvez {

struct MunicipalityRow {
  std::int32_t code = 0;
  std::wstring name;
  std::wstring district;
};
struct PostOfficeRow {
  std::int32_t code = 0;
  std::wstring name;
};
struct DistrictRow {
  std::int16_t code = 0;
  std::wstring name;
};

/// The project's three tables.
struct Tables {
  std::vector<MunicipalityRow> municipalities;
  std::vector<PostOfficeRow> postOffices;
  std::vector<DistrictRow> districts;
};

/// The file of a table, and the heading of its columns.
struct TableFile {
  const char* name;
  std::string_view heading;
};

inline constexpr TableFile kMunicipalityTable = {"obce.csv", "psc;obec;okres"};
inline constexpr TableFile kPostOfficeTable = {"posty.csv", "psc;posta"};
inline constexpr TableFile kDistrictTable = {"okresy.csv", "kod;okres"};

/// The Czech order by name, then by code; rows that the order calls equal come as their characters do.
void Sort(Tables& tables, Collation& collation);

/// The three files in `folder`, as they are written: UTF-8, a heading, one row a line.
std::vector<NewFile> TableFiles(const Tables& tables, const std::filesystem::path& folder);

/// The rows of one table, their order kept. Throws ToolError with `name` and the line for anything that the data files
/// cannot hold or that contradicts another row: wrong columns, codes, letters outside Windows-1250, names that
/// nobody could find or read or that are too long, a code with two post offices or two district names, a district name
/// with two codes.
std::vector<MunicipalityRow> ParseMunicipalities(std::span<const std::uint8_t> table, const std::string& name);
std::vector<PostOfficeRow> ParsePostOffices(std::span<const std::uint8_t> table, const std::string& name);
std::vector<DistrictRow> ParseDistricts(std::span<const std::uint8_t> table, const std::string& name);

/// Reads the three files of `folder`. Throws ToolError like those, and when a file cannot be read.
Tables ReadTables(const std::filesystem::path& folder);

/// A postal code is five digits, leading zeros included. Anything else gives nothing.
std::optional<std::int32_t> ParsePostalCode(std::wstring_view text);
std::wstring PostalCodeText(std::int32_t code);

/// A decimal number from 0 to 32767, which fits 16 bits with a sign. Anything else gives nothing.
std::optional<std::int16_t> ParseDistrictCode(std::wstring_view text);

}  // namespace kvez
