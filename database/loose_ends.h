#pragma once

#include <algorithm>
#include <cstdint>
#include <set>
#include <utility>
#include <vector>

namespace kvez {

/// What of the three lists does not hang together.
struct LooseEnds {
  std::size_t municipalitiesWithoutPostOffice = 0;
  std::size_t municipalitiesInNoDistrict = 0;
  std::size_t postOfficesWithoutMunicipality = 0;
  std::size_t districtsWithoutMunicipality = 0;

  std::size_t All() const {
    return municipalitiesWithoutPostOffice + municipalitiesInNoDistrict + postOfficesWithoutMunicipality +
           districtsWithoutMunicipality;
  }
};

/// The keys by which the lists refer to each other: postal codes, and names of districts in any one form.
template <class District>
struct ListKeys {
  std::vector<std::pair<std::int32_t, District>> municipalities;
  std::vector<std::int32_t> postOffices;
  std::vector<District> districts;

  LooseEnds Count() const {
    std::set<std::int32_t> usedCodes;
    std::set<District> usedDistricts;
    for (const auto& [code, district] : municipalities) {
      usedCodes.insert(code);
      usedDistricts.insert(district);
    }
    const std::set<std::int32_t> codes(postOffices.begin(), postOffices.end());
    const std::set<District> names(districts.begin(), districts.end());
    const auto without = [](const auto& list, const auto& known, auto key) {
      return static_cast<std::size_t>(
          std::count_if(list.begin(), list.end(), [&](const auto& entry) { return !known.contains(key(entry)); }));
    };
    const auto itself = [](const auto& key) { return key; };
    return {without(municipalities, codes, [](const auto& entry) { return entry.first; }),
            without(municipalities, names, [](const auto& entry) { return entry.second; }),
            without(postOffices, usedCodes, itself), without(districts, usedDistricts, itself)};
  }
};

}  // namespace kvez
