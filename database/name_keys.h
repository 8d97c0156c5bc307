#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "database/name_pattern.h"
#include "database/records.h"

namespace kvez {

/// The names of all municipalities as the name search compares them: normalised, without regard to case, one byte
/// a character, all in one piece of memory that a search reads from end to end.
class NameKeys {
 public:
  /// Takes a name as it is kept, in Windows-1250. An exception leaves everything as it was.
  void Append(std::string_view name);
  void RemoveLast();
  std::size_t size() const { return m_ends.size(); }

  /// The 1-based positions of the names that match, in list order.
  std::vector<tpclspsc> Find(const NamePattern& pattern) const;

 private:
  template <class Matches>
  void FindEach(std::vector<tpclspsc>& found, Matches matches) const;
  void FindContaining(std::vector<tpclspsc>& found, std::string_view pattern) const;

  std::string_view Key(std::size_t index) const;

  std::string m_text;
  std::vector<std::uint32_t> m_ends;  // of each key in m_text
};

}  // namespace kvez
