// Any run of writes and reads of a property bag: a read gives what was written last, the default where nothing was, and
// an error where the stored value is of another type.
//
// Input: operations of a byte (write or read, type), a byte that says which key, and two bytes of value each.

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <string>

#include "controls/property_bag.h"
#include "fuzz/require.h"
#include "text/error.h"

namespace kvez {
namespace {

enum Type : unsigned { kInteger, kBoolean, kString, kPicture, kTypes };

constexpr const wchar_t* kKeys[] = {L"FoD", L"FoC", L"SEP", L"SEF", L"SEM", L"DEM", L"DEB", L"E",
                                    L"BC",  L"FC",  L"MC",  L"DC",  L"C",   L"MP",  L"MI",  L""};

struct Operation {
  bool write;
  unsigned type;
  std::wstring key;
  std::int16_t value;
};

/// What a bag must know of a key.
struct Stored {
  unsigned type;
  std::int16_t value;
};

std::wstring Text(std::int16_t value) { return std::wstring(static_cast<std::uint16_t>(value) % 40, L'á'); }

/// Pictures are told apart by where they are and never looked into.
Picture PictureOf(std::int16_t value) {
  static const int somewhere[4] = {};
  static const auto* const pictures = reinterpret_cast<const PointerPicture*>(somewhere);
  if (value % 2 == 0) return nullptr;
  return Picture(Picture(), pictures);
}

void Write(PropertyBag& bag, const Operation& operation) {
  switch (operation.type) {
    case kInteger:
      return bag.WriteInteger(operation.key, operation.value);
    case kBoolean:
      return bag.WriteBoolean(operation.key, Boolean::FromStored(operation.value));
    case kString:
      return bag.WriteString(operation.key, Text(operation.value));
    default:
      return bag.WritePicture(operation.key, PictureOf(operation.value));
  }
}

/// Whether the bag gives the value of `expected`; `value` of the operation is its default.
bool Gives(const PropertyBag& bag, const Operation& operation, std::int16_t expected) {
  const std::int16_t otherwise = operation.value;
  switch (operation.type) {
    case kInteger:
      return bag.ReadInteger(operation.key, otherwise) == expected;
    case kBoolean:
      return bag.ReadBoolean(operation.key, Boolean::FromStored(otherwise)) == Boolean::FromStored(expected);
    case kString:
      return bag.ReadString(operation.key, Text(otherwise)) == Text(expected);
    default:
      return bag.ReadPicture(operation.key, PictureOf(otherwise)) == PictureOf(expected);
  }
}

void CheckRead(const PropertyBag& bag, const Operation& operation, std::optional<Stored> stored) {
  const bool sameType = !stored || stored->type == operation.type;
  try {
    const std::int16_t expected = stored ? stored->value : operation.value;
    Require(Gives(bag, operation, expected), "a read gives the stored value or the default");
    Require(sameType, "a value of another type is an error");
  } catch (const Error&) {
    Require(!sameType, "a value of the same type is no error");
  }
}

void Check(std::span<const std::uint8_t> input) {
  MemoryPropertyBag bag;
  std::map<std::wstring, Stored> known;
  for (; input.size() >= 4; input = input.subspan(4)) {
    Operation operation{(input[0] & 0x80U) != 0, input[0] % kTypes, kKeys[input[1] % std::size(kKeys)],
                        static_cast<std::int16_t>(input[2] | input[3] << 8)};
    if (operation.write) {
      Write(bag, operation);
      known[operation.key] = {operation.type, operation.value};
      continue;
    }
    const auto stored = known.find(operation.key);
    CheckRead(bag, operation, stored == known.end() ? std::nullopt : std::optional(stored->second));
  }
  Require(bag.Values().size() == known.size(), "only writes make keys");
}

}  // namespace
}  // namespace kvez

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  kvez::Check({data, size});
  return 0;
}
