#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "database/name_keys.h"
#include "database/record_layout.h"
#include "database/records.h"
#include "text/windows1250.h"

namespace kvez {

/// The municipality list, in file order. It keeps what the searches read packed and ready (codes, names to compare,
/// one copy of each district's name) and makes the record of a municipality when it is asked for.
///
/// Indexes are those of a vector, from 0; an index must be below size().
class MunicipalityList {
 public:
  /// Control characters in the names become blanks. An exception leaves the list as it was.
  void push_back(const RecordFields& fields);
  void pop_back();

  std::size_t size() const { return m_entries.size(); }

  tclspsc operator[](std::size_t index) const;

  std::int32_t Code(std::size_t index) const { return m_entries[index].code; }
  std::wstring Name(std::size_t index) const;
  /// The same into a text that is used for many.
  void Name(std::size_t index, std::wstring& name) const { FromWindows1250(StoredName(index), name); }
  std::size_t NameLength(std::size_t index) const { return StoredName(index).size(); }

  /// Which of Districts() the municipality lies in.
  std::size_t DistrictIndex(std::size_t index) const { return m_entries[index].district; }
  /// Each name once, in the order of its first municipality.
  const std::vector<std::wstring>& Districts() const { return m_districts; }

  const NameKeys& Keys() const { return m_keys; }

 private:
  struct Entry {
    std::int32_t code;
    std::uint32_t nameEnd;  // in m_names
    std::uint32_t district;
  };
  struct BytesHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view bytes) const { return std::hash<std::string_view>{}(bytes); }
  };

  std::string_view StoredName(std::size_t index) const;
  std::uint32_t IndexOfDistrict(std::string_view name);

  std::vector<Entry> m_entries;
  std::string m_names;
  NameKeys m_keys;
  std::vector<std::wstring> m_districts;
  std::unordered_map<std::string, std::uint32_t, BytesHash, std::equal_to<>> m_districtIndexes;
};

}  // namespace kvez
