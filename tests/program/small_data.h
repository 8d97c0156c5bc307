#pragma once

#include <string>

#include "tests/core/data_bytes.h"

namespace kvez::test {

/// The name of a data file, 0 to 2: municipalities, post offices, districts.
inline std::string DataFileName(int file) { return "vd" + std::to_string(file + 1) + ".kl_"; }

/// What is in it where there are two municipalities, one post office and one district: whoever has them has updated.
inline std::string SmallData(int file) {
  fakes::Bytes bytes;
  switch (file) {
    case 0:
      fakes::AppendMunicipality(bytes, 54232, L"Libňatov", L"Trutnov");
      fakes::AppendMunicipality(bytes, 54232, L"Úpice", L"Trutnov");
      break;
    case 1:
      fakes::AppendPostOffice(bytes, 54232, L"Úpice");
      break;
    default:
      fakes::AppendDistrict(bytes, 3610, L"Trutnov");
  }
  return {bytes.begin(), bytes.end()};
}

}  // namespace kvez::test
