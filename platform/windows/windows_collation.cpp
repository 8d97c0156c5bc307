// The Czech order of the system.

#include <windows.h>

#include <limits>
#include <stdexcept>

#include "platform/collation.h"

namespace kvez {
namespace {

class WindowsCollation : public Collation {
 public:
  std::string SortKey(std::wstring_view text) override {
    if (text.empty()) return {};
    if (text.size() > static_cast<std::size_t>(std::numeric_limits<int>::max())) {
      throw std::runtime_error("A text is too long to be sorted.");
    }
    const auto length = static_cast<int>(text.size());
    // Without the string sort a hyphen counts for nothing and Brno-venkov lands among the names in one word.
    constexpr DWORD flags = LCMAP_SORTKEY | SORT_STRINGSORT;
    // The size of a sort key counts bytes, though the parameters are made for characters.
    const int bytes = LCMapStringEx(L"cs-CZ", flags, text.data(), length, nullptr, 0, nullptr, nullptr, 0);
    std::string key(static_cast<std::size_t>(bytes), '\0');
    if (bytes == 0 || LCMapStringEx(L"cs-CZ", flags, text.data(), length, reinterpret_cast<wchar_t*>(key.data()), bytes,
                                    nullptr, nullptr, 0) == 0) {
      throw std::runtime_error("The system has no Czech collation.");
    }
    return key;
  }
};

}  // namespace

std::unique_ptr<Collation> CreateCzechCollation() {
  if (IsValidLocaleName(L"cs-CZ") == FALSE) throw std::runtime_error("The system has no Czech collation.");
  return std::make_unique<WindowsCollation>();
}

}  // namespace kvez
