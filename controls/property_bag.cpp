#include "controls/property_bag.h"

#include "text/error.h"

namespace kvez {
namespace {

template <typename Type>
Type Read(const std::map<std::wstring, MemoryPropertyBag::Value, std::less<>>& values, std::wstring_view key,
          Type defaultValue) {
  const auto found = values.find(key);
  if (found == values.end()) return defaultValue;
  const Type* const value = std::get_if<Type>(&found->second);
  if (value == nullptr) throw Error(L"Uložená vlastnost tlačítka má jiný typ.");
  return *value;
}

}  // namespace

std::int32_t MemoryPropertyBag::ReadInteger(std::wstring_view key, std::int32_t defaultValue) const {
  return Read(m_values, key, defaultValue);
}

Boolean MemoryPropertyBag::ReadBoolean(std::wstring_view key, Boolean defaultValue) const {
  return Read(m_values, key, defaultValue);
}

std::wstring MemoryPropertyBag::ReadString(std::wstring_view key, std::wstring_view defaultValue) const {
  return Read(m_values, key, std::wstring(defaultValue));
}

Picture MemoryPropertyBag::ReadPicture(std::wstring_view key, const Picture& defaultValue) const {
  return Read(m_values, key, defaultValue);
}

void MemoryPropertyBag::WriteInteger(std::wstring_view key, std::int32_t value) {
  m_values.insert_or_assign(std::wstring(key), value);
}

void MemoryPropertyBag::WriteBoolean(std::wstring_view key, Boolean value) {
  m_values.insert_or_assign(std::wstring(key), value);
}

void MemoryPropertyBag::WriteString(std::wstring_view key, std::wstring_view value) {
  m_values.insert_or_assign(std::wstring(key), std::wstring(value));
}

void MemoryPropertyBag::WritePicture(std::wstring_view key, const Picture& value) {
  m_values.insert_or_assign(std::wstring(key), value);
}

}  // namespace kvez
