#pragma once

#include <span>
#include <string_view>

#include "database/record_layout.h"

namespace kvez {

/// One of the three data files. The names carry the leading separator, because the program's folder comes without
/// a trailing one.
struct DataFile {
  std::wstring_view compressed;  // kept and delivered
  std::wstring_view expanded;    // exists only while the file is being read
  std::wstring_view damaged;     // the message when it cannot be read
  RecordLayout record;

  /// The name without a folder.
  std::wstring_view Name() const { return compressed.substr(1); }
};

inline constexpr DataFile kMunicipalityFile = {
    L"\\vd1.kl_", L"\\vd1.bin", L"Soubor se seznamem PSČ je poškozen nebo neexistuje !", kMunicipalityRecord};
inline constexpr DataFile kPostOfficeFile = {
    L"\\vd2.kl_", L"\\vd2.bin", L"Soubor se seznamem podávacích pošt je poškozen nebo neexistuje !", kPostOfficeRecord};
inline constexpr DataFile kDistrictFile = {L"\\vd3.kl_", L"\\vd3.bin",
                                           L"Soubor se seznamem okresů je poškozen nebo neexistuje !", kDistrictRecord};

}  // namespace kvez
