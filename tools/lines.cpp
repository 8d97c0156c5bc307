#include "tools/lines.h"

namespace kvez {

std::vector<std::string_view> SplitLines(std::string_view text) {
  std::vector<std::string_view> lines;
  while (!text.empty()) {
    const std::size_t end = text.find('\n');
    std::string_view line = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    if (line.ends_with('\r')) line.remove_suffix(1);
    lines.push_back(line);
  }
  return lines;
}

std::vector<std::wstring> SplitFields(std::wstring_view line) {
  std::vector<std::wstring> fields;
  for (;;) {
    const std::size_t end = line.find(L';');
    fields.emplace_back(line.substr(0, end));
    if (end == std::wstring_view::npos) return fields;
    line.remove_prefix(end + 1);
  }
}

std::string AtLine(const std::string& file, std::size_t line) { return file + ": line " + std::to_string(line) + ": "; }

}  // namespace kvez
