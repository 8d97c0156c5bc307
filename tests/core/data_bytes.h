#pragma once

#include <string_view>

#include "database/record_layout.h"
#include "tests/core/fakes.h"
#include "text/windows1250.h"

/// Expanded data files, put together record by record.
namespace kvez::fakes {

inline void AppendMunicipality(Bytes& bytes, std::int32_t code, std::wstring_view name, std::wstring_view district) {
  AppendRecord(bytes, kMunicipalityRecord, {code, ToWindows1250(name), ToWindows1250(district)});
}

inline void AppendPostOffice(Bytes& bytes, std::int32_t code, std::wstring_view name) {
  AppendRecord(bytes, kPostOfficeRecord, {code, ToWindows1250(name), {}});
}

inline void AppendDistrict(Bytes& bytes, std::int32_t code, std::wstring_view name) {
  AppendRecord(bytes, kDistrictRecord, {code, ToWindows1250(name), {}});
}

}  // namespace kvez::fakes
