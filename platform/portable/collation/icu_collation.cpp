// Outside Windows the Czech order comes from ICU.

#include "platform/portable/collation/icu_collation.h"

#include <unicode/ucol.h>
#include <unicode/ustring.h>

#include <memory>
#include <new>
#include <stdexcept>
#include <string>
#include <utility>

namespace kvez {
namespace {

constexpr UChar32 kReplacement = 0xFFFD;

struct CloseCollator {
  void operator()(UCollator* collator) const { ucol_close(collator); }
};
using OwnedCollator = std::unique_ptr<UCollator, CloseCollator>;

class IcuCollation : public Collation {
 public:
  explicit IcuCollation(OwnedCollator collator) : m_collator(std::move(collator)) {}

  std::string SortKey(std::wstring_view text) override {
    static_assert(sizeof(wchar_t) == sizeof(UChar32));
    // No character needs more than two units; what is no character becomes a replacement.
    std::u16string utf16(2 * text.size(), u'\0');
    std::int32_t length = 0;
    UErrorCode status = U_ZERO_ERROR;
    u_strFromUTF32WithSub(utf16.data(), static_cast<std::int32_t>(utf16.size()), &length,
                          reinterpret_cast<const UChar32*>(text.data()), static_cast<std::int32_t>(text.size()),
                          kReplacement, nullptr, &status);
    std::string key(64, '\0');
    for (;;) {
      const std::int32_t needed =
          ucol_getSortKey(m_collator.get(), utf16.data(), length, reinterpret_cast<std::uint8_t*>(key.data()),
                          static_cast<std::int32_t>(key.size()));
      // ICU throws nothing: what it has no memory for has no key.
      if (needed <= 0) throw std::bad_alloc();
      const bool fits = static_cast<std::size_t>(needed) <= key.size();
      key.resize(static_cast<std::size_t>(needed));
      if (fits) return key;
    }
  }

 private:
  OwnedCollator m_collator;
};

}  // namespace

std::unique_ptr<Collation> CreateIcuCollation(const char* language) {
  UErrorCode status = U_ZERO_ERROR;
  OwnedCollator collator(ucol_open(language, &status));
  // A warning here means the order of some other language.
  if (status != U_ZERO_ERROR) throw std::runtime_error("ICU has no collation of the language " + std::string(language));
  return std::make_unique<IcuCollation>(std::move(collator));
}

std::unique_ptr<Collation> CreateCzechCollation() { return CreateIcuCollation("cs"); }

}  // namespace kvez
