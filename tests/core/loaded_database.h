#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "postal/clspsc.h"
#include "tests/core/data_bytes.h"
#include "tests/core/fakes.h"

namespace kvez::fakes {

inline const std::wstring kFolder = L"C:\\Kvez";

/// A database on a fake machine, in the folder kFolder. Records are added first; Load() then reads all three files.
class LoadedDatabase {
 public:
  struct Municipality {
    std::int32_t code;
    std::wstring name;
    std::wstring district;
  };
  using Named = std::pair<std::int32_t, std::wstring>;

  LoadedDatabase() = default;
  LoadedDatabase(const std::vector<Municipality>& municipalities, const std::vector<Named>& postOffices,
                 const std::vector<Named>& districts) {
    for (const Municipality& m : municipalities) AppendMunicipality(municipalityFile, m.code, m.name, m.district);
    for (const Named& p : postOffices) AppendPostOffice(postOfficeFile, p.first, p.second);
    for (const Named& d : districts) AppendDistrict(districtFile, d.first, d.second);
    Load();
  }

  /// An empty file is one that the expansion refuses, as on the real machine.
  void Load() {
    machine.disk.files[kFolder + L"\\vd1.kl_"] = municipalityFile;
    machine.disk.files[kFolder + L"\\vd2.kl_"] = postOfficeFile;
    machine.disk.files[kFolder + L"\\vd3.kl_"] = districtFile;
    database.pscNacti(window);
    database.pscpNacti(window);
    database.pscoNacti(window);
    window.growing.clear();
    machine.log.clear();
  }

  Bytes municipalityFile;
  Bytes postOfficeFile;
  Bytes districtFile;
  Machine machine;
  ProgressWindowFake window;
  ListBoxFake list;
  std::wstring description;
  clspsc database{machine.Platform(), kFolder};
};

}  // namespace kvez::fakes
