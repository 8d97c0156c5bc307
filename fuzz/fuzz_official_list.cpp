// Any bytes as the official list: they are refused with the line, or the rows, put together again, are the list.

#include <algorithm>
#include <string>
#include <string_view>

#include "fuzz/require.h"
#include "text/windows1250.h"
#include "tools/official_list.h"
#include "tools/tables.h"
#include "tools/tool.h"

namespace kvez {
namespace {

constexpr std::string_view kHeading = "NAZCOBCE;PSC;NAZPOST;KODOKRESU;NAZOKRESU;NAZOBCE\n";

/// The list with plain line ends, the last one included.
std::string Plain(std::string_view list) {
  std::string plain;
  for (std::size_t i = 0; i < list.size(); ++i) {
    if (list[i] != '\r' || (i + 1 < list.size() && list[i + 1] != '\n')) plain.push_back(list[i]);
  }
  if (!plain.ends_with('\n')) plain.push_back('\n');
  return plain;
}

/// "007" and "-0" are codes too: only the number of the field counts.
void DropZeros(std::string& line) {
  std::size_t field = 0;
  for (int semicolons = 0; semicolons < 3 && field < line.size(); ++field) semicolons += line[field] == ';' ? 1 : 0;
  if (field < line.size() && line[field] == '-') line.erase(field, 1);
  while (field + 1 < line.size() && line[field] == '0' && line[field + 1] != ';') line.erase(field, 1);
}

std::string WithPlainCodes(const std::string& list) {
  std::string text;
  for (std::size_t begin = 0; begin < list.size();) {
    const std::size_t end = list.find('\n', begin);
    std::string line = list.substr(begin, end - begin);
    DropZeros(line);
    text.append(line).push_back('\n');
    begin = end + 1;
  }
  return text;
}

std::string Together(const std::vector<OfficialRow>& rows) {
  std::string list(kHeading);
  for (const OfficialRow& row : rows) {
    const std::wstring text = row.part + row.aliasMark + L";" + PostalCodeText(row.code) + L";" + row.postOffice +
                              L";" + std::to_wstring(row.districtCode) + L";" + row.district + L";" + row.municipality;
    list += ToWindows1250(text) + '\n';
  }
  return list;
}

void Check(const Bytes& bytes) {
  const std::string_view list(reinterpret_cast<const char*>(bytes.data()), bytes.size());
  try {
    const std::vector<OfficialRow> rows = ReadOfficialList(bytes, "list");
    Require(!rows.empty(), "a list without rows is refused");
    Require(Together(rows) == WithPlainCodes(Plain(list)), "the rows are what the list says");
  } catch (const ToolError& error) {
    constexpr std::string_view place = "list: line ";
    const std::string_view message = error.what();
    Require(message.starts_with(place), "an error names the list and the line");
    const auto lines = static_cast<unsigned long>(std::count(list.begin(), list.end(), '\n'));
    const unsigned long line = std::stoul(std::string(message.substr(place.size())));
    Require(line >= 1 && line <= lines + 2, "the line of an error is one of the list's, or the next");
  }
}

}  // namespace
}  // namespace kvez

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  kvez::Check(kvez::Bytes(data, data + size));
  return 0;
}
