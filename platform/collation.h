#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace kvez {

/// Czech dictionary order (a b c č d ... h ch i ...).
class Collation {
 public:
  virtual ~Collation() = default;

  /// A key whose byte order is the Czech order of the texts.
  virtual std::string SortKey(std::wstring_view text) = 0;
};

/// The machine's own Czech collation. Throws std::runtime_error when it has none.
std::unique_ptr<Collation> CreateCzechCollation();

}  // namespace kvez
