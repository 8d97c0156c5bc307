#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace kvez {

/// The fields of one row of the result.
struct ResultRow {
  std::wstring_view code;
  std::wstring_view postOffice;
  std::wstring_view municipality;
  std::wstring_view district;
};

/// The current result as whoever hands it out sees it.
class ResultRows {
 public:
  virtual ~ResultRows() = default;

  virtual std::int32_t Count() const = 0;
  virtual std::wstring CountSentence() const = 0;

  /// A row from 1 to Count(), with the municipality cursor on it. Its texts stay until the next row is asked for.
  /// Throws std::out_of_range for a row that is not there, or no more.
  virtual ResultRow Row(std::int32_t position) = 0;

  /// Shows where a walk over the rows has come to: moves the result cursor.
  virtual void StandOn(std::int32_t position) = 0;
};

}  // namespace kvez
