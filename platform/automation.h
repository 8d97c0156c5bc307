#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace kvez {

/// An automation object whose members are looked up by their names when they are used.
class AutomationObject {
 public:
  virtual ~AutomationObject() = default;

  /// Calls a method with one text; the object that it returns, or nothing when it fails or returns something else.
  virtual std::unique_ptr<AutomationObject> CallForObject(const std::wstring& method, const std::wstring& argument) = 0;

  /// These three are false when the object has no such member or the member refuses.
  virtual bool Call(const std::wstring& method) = 0;
  virtual bool SetText(const std::wstring& property, const std::wstring& value) = 0;
  virtual bool SetInteger(const std::wstring& property, std::int16_t value) = 0;
};

/// Where automation objects come from. It outlives them.
class Automation {
 public:
  virtual ~Automation() = default;

  /// A new object of a programmatic name, or nothing when the machine has none.
  virtual std::unique_ptr<AutomationObject> Create(const std::wstring& name) = 0;
};

}  // namespace kvez
