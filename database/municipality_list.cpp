#include "database/municipality_list.h"

namespace kvez {

void MunicipalityList::push_back(const MunicipalityFields& fields) {
  m_names.append(fields.name);
  m_keys.Append(fields.name);
  m_entries.push_back({fields.code, static_cast<std::uint32_t>(m_names.size()), IndexOfDistrict(fields.district)});
}

void MunicipalityList::pop_back() {
  m_entries.pop_back();
  m_names.resize(m_entries.empty() ? 0 : m_entries.back().nameEnd);
  m_keys.RemoveLast();
}

tclspsc MunicipalityList::operator[](std::size_t index) const {
  tclspsc record;
  record.tpscPSC(Code(index));
  record.tpscObec(Name(index));
  record.tpscOkres(m_districts[DistrictIndex(index)]);
  return record;
}

std::wstring MunicipalityList::Name(std::size_t index) const { return FromWindows1250(StoredName(index)); }

std::string_view MunicipalityList::StoredName(std::size_t index) const {
  const std::size_t begin = index == 0 ? 0 : m_entries[index - 1].nameEnd;
  return std::string_view(m_names).substr(begin, m_entries[index].nameEnd - begin);
}

std::uint32_t MunicipalityList::IndexOfDistrict(std::string_view name) {
  const auto known = m_districtIndexes.find(name);
  if (known != m_districtIndexes.end()) return known->second;
  const auto index = static_cast<std::uint32_t>(m_districts.size());
  m_districtIndexes.emplace(name, index);
  m_districts.push_back(FromWindows1250(name));
  return index;
}

}  // namespace kvez
