#include "tools/tables.h"

#include <algorithm>
#include <charconv>
#include <tuple>

#include "text/utf8.h"

namespace kvez {
namespace {

/// Sorts by a key that is made once for each row.
template <class Row, class MakeKey>
void SortBy(std::vector<Row>& rows, MakeKey makeKey) {
  using Key = decltype(makeKey(rows.front()));
  std::vector<std::pair<Key, std::size_t>> keys;
  keys.reserve(rows.size());
  for (std::size_t i = 0; i < rows.size(); ++i) keys.emplace_back(makeKey(rows[i]), i);
  std::sort(keys.begin(), keys.end());
  std::vector<Row> sorted;
  sorted.reserve(rows.size());
  for (const auto& [key, index] : keys) sorted.push_back(std::move(rows[index]));
  rows = std::move(sorted);
}

/// `line` gives the line of a row.
template <class Row, class Line>
NewFile Written(const TableFile& file, const std::filesystem::path& folder, const std::vector<Row>& rows, Line line) {
  std::string text(file.heading);
  text.push_back('\n');
  for (const Row& row : rows) text.append(line(row)).push_back('\n');
  return {folder / file.name, Bytes(text.begin(), text.end()), {}};
}

template <class Number>
std::optional<Number> ParseNumber(std::wstring_view text) {
  std::string digits;
  for (const wchar_t character : text) {
    if (character != L'-' && (character < L'0' || character > L'9')) return std::nullopt;
    digits.push_back(static_cast<char>(character));
  }
  Number number{};
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  if (error != std::errc() || end != digits.data() + digits.size()) return std::nullopt;
  return number;
}

}  // namespace

void Sort(Tables& tables, Collation& collation) {
  SortBy(tables.municipalities, [&](const MunicipalityRow& row) {
    return std::tuple(collation.SortKey(row.name), row.code, collation.SortKey(row.district), row.name);
  });
  SortBy(tables.postOffices,
         [&](const PostOfficeRow& row) { return std::tuple(collation.SortKey(row.name), row.code, row.name); });
  SortBy(tables.districts,
         [&](const DistrictRow& row) { return std::tuple(collation.SortKey(row.name), row.code, row.name); });
}

std::vector<NewFile> TableFiles(const Tables& tables, const std::filesystem::path& folder) {
  const auto code = [](std::int32_t value) { return ToUtf8(PostalCodeText(value)); };
  return {Written(kMunicipalityTable, folder, tables.municipalities,
                  [&](const MunicipalityRow& row) {
                    return code(row.code) + ";" + ToUtf8(row.name) + ";" + ToUtf8(row.district);
                  }),
          Written(kPostOfficeTable, folder, tables.postOffices,
                  [&](const PostOfficeRow& row) { return code(row.code) + ";" + ToUtf8(row.name); }),
          Written(kDistrictTable, folder, tables.districts,
                  [](const DistrictRow& row) { return std::to_string(row.code) + ";" + ToUtf8(row.name); })};
}

std::optional<std::int32_t> ParsePostalCode(std::wstring_view text) {
  if (text.size() != 5 || text.front() == L'-') return std::nullopt;
  return ParseNumber<std::int32_t>(text);
}

std::wstring PostalCodeText(std::int32_t code) {
  std::wstring digits = std::to_wstring(code);
  if (code >= 0 && digits.size() < 5) digits.insert(0, 5 - digits.size(), L'0');
  return digits;
}

std::optional<std::int16_t> ParseDistrictCode(std::wstring_view text) {
  const auto code = ParseNumber<std::int16_t>(text);
  return code && *code >= 0 ? code : std::nullopt;
}

}  // namespace kvez
