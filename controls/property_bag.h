#pragma once

#include <cstdint>
#include <initializer_list>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

#include "forms/boolean.h"

namespace kvez {

using forms::Boolean;

class PointerPicture;

/// A pointer picture that several buttons may share; empty for none. A bag keeps it and needs not know what it is.
using Picture = std::shared_ptr<const PointerPicture>;

/// Where a form keeps the properties of its buttons: one typed value to a key. A read gives `defaultValue` when the key
/// is absent and throws Error when the value is of another type.
class PropertyBag {
 public:
  virtual ~PropertyBag() = default;

  virtual std::int32_t ReadInteger(std::wstring_view key, std::int32_t defaultValue) const = 0;
  virtual Boolean ReadBoolean(std::wstring_view key, Boolean defaultValue) const = 0;
  virtual std::wstring ReadString(std::wstring_view key, std::wstring_view defaultValue) const = 0;
  virtual Picture ReadPicture(std::wstring_view key, const Picture& defaultValue) const = 0;

  virtual void WriteInteger(std::wstring_view key, std::int32_t value) = 0;
  virtual void WriteBoolean(std::wstring_view key, Boolean value) = 0;
  virtual void WriteString(std::wstring_view key, std::wstring_view value) = 0;
  virtual void WritePicture(std::wstring_view key, const Picture& value) = 0;
};

/// A bag in memory: {{L"C", L"&Konec"}, {L"SEM", 0}}.
class MemoryPropertyBag : public PropertyBag {
 public:
  using Value = std::variant<std::int32_t, Boolean, std::wstring, Picture>;

  MemoryPropertyBag() = default;
  MemoryPropertyBag(std::initializer_list<std::pair<const std::wstring, Value>> values) : m_values(values) {}

  const std::map<std::wstring, Value, std::less<>>& Values() const { return m_values; }

  std::int32_t ReadInteger(std::wstring_view key, std::int32_t defaultValue) const override;
  Boolean ReadBoolean(std::wstring_view key, Boolean defaultValue) const override;
  std::wstring ReadString(std::wstring_view key, std::wstring_view defaultValue) const override;
  Picture ReadPicture(std::wstring_view key, const Picture& defaultValue) const override;

  void WriteInteger(std::wstring_view key, std::int32_t value) override;
  void WriteBoolean(std::wstring_view key, Boolean value) override;
  void WriteString(std::wstring_view key, std::wstring_view value) override;
  void WritePicture(std::wstring_view key, const Picture& value) override;

 private:
  std::map<std::wstring, Value, std::less<>> m_values;
};

}  // namespace kvez
