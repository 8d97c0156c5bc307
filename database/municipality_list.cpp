#include "database/municipality_list.h"

#include "database/name_text.h"

namespace kvez {

void MunicipalityList::push_back(const RecordFields& fields) {
  const std::size_t names = m_names.size();
  const std::size_t keys = m_keys.size();
  try {
    std::string copy;
    const std::string_view name = WithoutControls(fields.name, copy);
    m_names.append(name);
    m_keys.Append(name);
    const std::uint32_t district = IndexOfDistrict(WithoutControls(fields.district, copy));
    // The entry comes last: only what it names counts as there.
    m_entries.push_back({fields.code, static_cast<std::uint32_t>(m_names.size()), district});
  } catch (...) {
    m_names.resize(names);
    if (m_keys.size() > keys) m_keys.RemoveLast();
    throw;
  }
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
  // An index is given to a name that is there already, never the other way round.
  m_districts.push_back(FromWindows1250(name));
  try {
    m_districtIndexes.emplace(name, index);
  } catch (...) {
    m_districts.pop_back();
    throw;
  }
  return index;
}

}  // namespace kvez
