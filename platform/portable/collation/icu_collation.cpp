// Outside Windows the Czech order comes from ICU.

#include "platform/portable/collation/icu_collation.h"

#include <unicode/ucol.h>
#include <unicode/unistr.h>

#include <memory>
#include <new>
#include <stdexcept>
#include <string>
#include <utility>

namespace kvez {
namespace {

struct CloseCollator {
  void operator()(UCollator* collator) const { ucol_close(collator); }
};
using OwnedCollator = std::unique_ptr<UCollator, CloseCollator>;

class IcuCollation : public Collation {
 public:
  explicit IcuCollation(OwnedCollator collator) : m_collator(std::move(collator)) {}

  std::string SortKey(std::wstring_view text) override {
    static_assert(sizeof(wchar_t) == sizeof(UChar32));
    const auto utf16 = icu::UnicodeString::fromUTF32(reinterpret_cast<const UChar32*>(text.data()),
                                                     static_cast<std::int32_t>(text.size()));
    // ICU throws nothing: what it has no memory for is a text of its own that is none.
    if (utf16.isBogus()) throw std::bad_alloc();
    std::string key(64, '\0');
    for (;;) {
      const std::int32_t needed =
          ucol_getSortKey(m_collator.get(), utf16.getBuffer(), utf16.length(),
                          reinterpret_cast<std::uint8_t*>(key.data()), static_cast<std::int32_t>(key.size()));
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
