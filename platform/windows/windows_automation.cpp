#include "platform/windows/windows_automation.h"

#include <windows.h>
// Stays below windows.h.
#include <oleauto.h>

#include "platform/windows/owned.h"

namespace kvez {
namespace {

using OwnedDispatch = Owned<IDispatch*, [](IDispatch* object) { object->Release(); }>;

/// A variant that lets go of what is in it.
class Variant {
 public:
  Variant() { VariantInit(&m_value); }
  explicit Variant(const std::wstring& text) : Variant() {
    m_value.vt = VT_BSTR;
    m_value.bstrVal = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
  }
  explicit Variant(std::int16_t number) : Variant() {
    m_value.vt = VT_I2;
    m_value.iVal = number;
  }
  Variant(const Variant&) = delete;
  Variant& operator=(const Variant&) = delete;
  ~Variant() { VariantClear(&m_value); }

  VARIANT* Get() { return &m_value; }

 private:
  VARIANT m_value;
};

class WindowsAutomationObject : public AutomationObject {
 public:
  explicit WindowsAutomationObject(OwnedDispatch object) : m_object(std::move(object)) {}

  std::unique_ptr<AutomationObject> CallForObject(const std::wstring& method, const std::wstring& argument) override {
    Variant text(argument);
    Variant answer;
    if (!Invoke(method, DISPATCH_METHOD, text.Get(), answer.Get())) return nullptr;
    if (answer.Get()->vt != VT_DISPATCH || answer.Get()->pdispVal == nullptr) return nullptr;
    answer.Get()->pdispVal->AddRef();
    return std::make_unique<WindowsAutomationObject>(OwnedDispatch(answer.Get()->pdispVal));
  }

  bool Call(const std::wstring& method) override {
    Variant answer;
    return Invoke(method, DISPATCH_METHOD, nullptr, answer.Get());
  }

  bool SetText(const std::wstring& property, const std::wstring& value) override {
    Variant text(value);
    return Invoke(property, DISPATCH_PROPERTYPUT, text.Get(), nullptr);
  }

  bool SetInteger(const std::wstring& property, std::int16_t value) override {
    Variant number(value);
    return Invoke(property, DISPATCH_PROPERTYPUT, number.Get(), nullptr);
  }

 private:
  bool Invoke(const std::wstring& member, WORD kind, VARIANT* argument, VARIANT* answer) {
    auto* name = const_cast<wchar_t*>(member.c_str());
    DISPID id = DISPID_UNKNOWN;
    if (FAILED(m_object.Get()->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id))) return false;
    DISPID assigned = DISPID_PROPERTYPUT;
    DISPPARAMS parameters{};
    parameters.cArgs = argument == nullptr ? 0 : 1;
    parameters.rgvarg = argument;
    if (kind == DISPATCH_PROPERTYPUT) {
      parameters.cNamedArgs = 1;
      parameters.rgdispidNamedArgs = &assigned;
    }
    // No place for the description of a failure is given, so there is none to free.
    return SUCCEEDED(
        m_object.Get()->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, kind, &parameters, answer, nullptr, nullptr));
  }

  OwnedDispatch m_object;
};

}  // namespace

WindowsAutomation::WindowsAutomation() : m_initialized(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) {}

WindowsAutomation::~WindowsAutomation() {
  if (m_initialized) CoUninitialize();
}

std::unique_ptr<AutomationObject> WindowsAutomation::Create(const std::wstring& name) {
  CLSID id{};
  if (FAILED(CLSIDFromProgID(name.c_str(), &id))) return nullptr;
  void* object = nullptr;
  if (FAILED(CoCreateInstance(id, nullptr, CLSCTX_SERVER, IID_IDispatch, &object))) return nullptr;
  return std::make_unique<WindowsAutomationObject>(OwnedDispatch(static_cast<IDispatch*>(object)));
}

}  // namespace kvez
