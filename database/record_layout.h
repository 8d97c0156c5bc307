#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "database/field_reader.h"

namespace kvez {

/// What a record of the expanded data files is made of: numbers are little-endian with a sign, names are Windows-1250
/// behind a 16-bit length. Records follow each other without anything between them.
enum class Field : std::uint8_t { Code32, Code16, Name, District };
using RecordLayout = std::span<const Field>;

inline constexpr std::array kMunicipalityRecord = {Field::Code32, Field::Name, Field::District};
inline constexpr std::array kPostOfficeRecord = {Field::Code32, Field::Name};
// The other two begin with 32 bits; this one has 16.
inline constexpr std::array kDistrictRecord = {Field::Code16, Field::Name};

/// One record of any file. The names are Windows-1250, and the district is that of a municipality.
struct RecordFields {
  std::int32_t code = 0;
  std::string_view name;
  std::string_view district;
};

/// Reads one field into its place. The names stay valid as long as the file does.
void ReadField(FieldReader& reader, Field field, RecordFields& record);
RecordFields ReadRecord(FieldReader& reader, RecordLayout layout);

/// Appends a record as ReadRecord reads it. A code must fit its field, a name 65,535 bytes.
void AppendRecord(std::vector<std::uint8_t>& file, RecordLayout layout, const RecordFields& record);

}  // namespace kvez
