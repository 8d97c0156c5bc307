// Outside Windows the Czech order comes from ICU.

#include <unicode/ucol.h>
#include <unicode/unistr.h>

#include <memory>
#include <stdexcept>

#include "platform/collation.h"

namespace kvez {
namespace {

class IcuCollation : public Collation {
 public:
  explicit IcuCollation(UCollator* collator) : m_collator(collator) {}

  std::string SortKey(std::wstring_view text) override {
    static_assert(sizeof(wchar_t) == sizeof(UChar32));
    const auto utf16 = icu::UnicodeString::fromUTF32(reinterpret_cast<const UChar32*>(text.data()),
                                                     static_cast<std::int32_t>(text.size()));
    std::string key(64, '\0');
    for (;;) {
      const std::int32_t needed =
          ucol_getSortKey(m_collator.get(), utf16.getBuffer(), utf16.length(),
                          reinterpret_cast<std::uint8_t*>(key.data()), static_cast<std::int32_t>(key.size()));
      const bool fits = static_cast<std::size_t>(needed) <= key.size();
      key.resize(static_cast<std::size_t>(needed));
      if (fits) return key;
    }
  }

 private:
  struct Close {
    void operator()(UCollator* collator) const { ucol_close(collator); }
  };
  std::unique_ptr<UCollator, Close> m_collator;
};

}  // namespace

std::unique_ptr<Collation> CreateCzechCollation() {
  UErrorCode status = U_ZERO_ERROR;
  UCollator* const collator = ucol_open("cs", &status);
  // A warning here means the order of some other language.
  if (U_FAILURE(status) || status == U_USING_DEFAULT_WARNING) {
    ucol_close(collator);
    throw std::runtime_error("ICU has no Czech collation.");
  }
  return std::make_unique<IcuCollation>(collator);
}

}  // namespace kvez
