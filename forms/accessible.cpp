#include "forms/accessible.h"

#include <oleacc.h>

#include <string>
#include <utility>

#include "forms/control.h"
#include "forms/private_messages.h"
#include "forms/reach.h"
#include "platform/windows/system_library.h"

namespace kvez::forms {
namespace {

// __uuidof instead of IID_IAccessible: two libraries of MinGW define that one.
bool IsSelf(const VARIANT& child) { return child.vt == VT_I4 && child.lVal == CHILDID_SELF; }

/// Wraps the system's accessible object of a control. Screen readers may keep it longer than the control lives.
class Accessible final : public IAccessible {
 public:
  Accessible(std::weak_ptr<Control*> life, IAccessible* standard) : m_life(std::move(life)), m_standard(standard) {}

  // IUnknown
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    if (object == nullptr) return E_POINTER;
    if (id == IID_IUnknown || id == IID_IDispatch || id == __uuidof(IAccessible)) {
      *object = static_cast<IAccessible*>(this);
      AddRef();
      return S_OK;
    }
    return m_standard->QueryInterface(id, object);
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return static_cast<ULONG>(InterlockedIncrement(&m_references)); }
  ULONG STDMETHODCALLTYPE Release() override {
    const LONG left = InterlockedDecrement(&m_references);
    if (left == 0) delete this;
    return static_cast<ULONG>(left);
  }

  // IDispatch
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override { return m_standard->GetTypeInfoCount(count); }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override {
    return m_standard->GetTypeInfo(index, locale, info);
  }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID id, LPOLESTR* names, UINT count, LCID locale,
                                          DISPID* dispatchIds) override {
    return m_standard->GetIDsOfNames(id, names, count, locale, dispatchIds);
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID id, LCID locale, WORD flags, DISPPARAMS* parameters,
                                   VARIANT* result, EXCEPINFO* exception, UINT* argument) override {
    return m_standard->Invoke(member, id, locale, flags, parameters, result, exception, argument);
  }

  // IAccessible: what the control knows better
  HRESULT STDMETHODCALLTYPE get_accName(VARIANT child, BSTR* name) override {
    const auto own = Text(child, &AccessibleDescription::name);
    return own ? Give(*own, name) : m_standard->get_accName(child, name);
  }
  HRESULT STDMETHODCALLTYPE get_accValue(VARIANT child, BSTR* value) override {
    const auto own = Text(child, &AccessibleDescription::value);
    return own ? Give(*own, value) : m_standard->get_accValue(child, value);
  }
  HRESULT STDMETHODCALLTYPE get_accDescription(VARIANT child, BSTR* description) override {
    const auto own = Text(child, &AccessibleDescription::description);
    return own ? Give(*own, description) : m_standard->get_accDescription(child, description);
  }
  HRESULT STDMETHODCALLTYPE get_accKeyboardShortcut(VARIANT child, BSTR* shortcut) override {
    const auto own = Text(child, &AccessibleDescription::keyboardShortcut);
    return own ? Give(*own, shortcut) : m_standard->get_accKeyboardShortcut(child, shortcut);
  }
  HRESULT STDMETHODCALLTYPE get_accDefaultAction(VARIANT child, BSTR* action) override {
    const auto own = Text(child, &AccessibleDescription::defaultAction);
    return own ? Give(*own, action) : m_standard->get_accDefaultAction(child, action);
  }
  HRESULT STDMETHODCALLTYPE get_accRole(VARIANT child, VARIANT* role) override {
    const auto own = Number(child, &AccessibleDescription::role);
    return own ? Give(*own, role) : m_standard->get_accRole(child, role);
  }
  HRESULT STDMETHODCALLTYPE get_accState(VARIANT child, VARIANT* state) override {
    const auto own = Number(child, &AccessibleDescription::state);
    const HRESULT result = own ? Give(*own, state) : m_standard->get_accState(child, state);
    if (SUCCEEDED(result) && IsSelf(child) && !IsInReach()) {
      state->lVal = (state->lVal & ~STATE_SYSTEM_FOCUSABLE) | STATE_SYSTEM_UNAVAILABLE;
    }
    return result;
  }
  HRESULT STDMETHODCALLTYPE accDoDefaultAction(VARIANT child) override {
    if (!IsInReach()) return E_ACCESSDENIED;
    if (!Text(child, &AccessibleDescription::defaultAction)) return m_standard->accDoDefaultAction(child);
    const Control* const control = Living();
    if (control == nullptr) return CO_E_OBJNOTCONNECTED;
    return PostMessageW(control->Handle(), kDoDefaultActionMessage, 0, 0) ? S_OK : E_FAIL;
  }

  // IAccessible: what the system knows
  HRESULT STDMETHODCALLTYPE get_accParent(IDispatch** parent) override { return m_standard->get_accParent(parent); }
  HRESULT STDMETHODCALLTYPE get_accChildCount(LONG* count) override { return m_standard->get_accChildCount(count); }
  HRESULT STDMETHODCALLTYPE get_accChild(VARIANT child, IDispatch** object) override {
    return m_standard->get_accChild(child, object);
  }
  HRESULT STDMETHODCALLTYPE get_accHelp(VARIANT child, BSTR* help) override {
    return m_standard->get_accHelp(child, help);
  }
  HRESULT STDMETHODCALLTYPE get_accHelpTopic(BSTR* file, VARIANT child, LONG* topic) override {
    return m_standard->get_accHelpTopic(file, child, topic);
  }
  HRESULT STDMETHODCALLTYPE get_accFocus(VARIANT* child) override { return m_standard->get_accFocus(child); }
  HRESULT STDMETHODCALLTYPE get_accSelection(VARIANT* children) override {
    return m_standard->get_accSelection(children);
  }
  HRESULT STDMETHODCALLTYPE accSelect(LONG flags, VARIANT child) override {
    return IsInReach() ? m_standard->accSelect(flags, child) : E_ACCESSDENIED;
  }
  HRESULT STDMETHODCALLTYPE accLocation(LONG* left, LONG* top, LONG* width, LONG* height, VARIANT child) override {
    return m_standard->accLocation(left, top, width, height, child);
  }
  HRESULT STDMETHODCALLTYPE accNavigate(LONG direction, VARIANT start, VARIANT* end) override {
    return m_standard->accNavigate(direction, start, end);
  }
  HRESULT STDMETHODCALLTYPE accHitTest(LONG left, LONG top, VARIANT* child) override {
    return m_standard->accHitTest(left, top, child);
  }
  HRESULT STDMETHODCALLTYPE put_accName(VARIANT child, BSTR name) override {
    return m_standard->put_accName(child, name);
  }
  HRESULT STDMETHODCALLTYPE put_accValue(VARIANT child, BSTR value) override {
    return IsInReach() ? m_standard->put_accValue(child, value) : E_ACCESSDENIED;
  }

 private:
  ~Accessible() { m_standard->Release(); }

  Control* Living() const {
    const auto life = m_life.lock();
    return life ? *life : nullptr;
  }

  bool IsInReach() const {
    const Control* const control = Living();
    return control != nullptr && CanBeReached(*control);
  }

  template <typename Field>
  Field Known(const VARIANT& child, Field AccessibleDescription::*field) const {
    const Control* const control = Living();
    if (control == nullptr || control->Handle() == nullptr || !IsSelf(child)) return std::nullopt;
    return control->Describe().*field;
  }
  std::optional<std::wstring> Text(const VARIANT& child,
                                   std::optional<std::wstring> AccessibleDescription::*field) const {
    return Known(child, field);
  }
  std::optional<LONG> Number(const VARIANT& child, std::optional<LONG> AccessibleDescription::*field) const {
    return Known(child, field);
  }

  static HRESULT Give(const std::wstring& text, BSTR* target) {
    if (target == nullptr) return E_POINTER;
    *target = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
    return *target != nullptr ? S_OK : E_OUTOFMEMORY;
  }
  static HRESULT Give(LONG number, VARIANT* target) {
    if (target == nullptr) return E_POINTER;
    target->vt = VT_I4;
    target->lVal = number;
    return S_OK;
  }

  LONG m_references = 1;
  std::weak_ptr<Control*> m_life;
  IAccessible* m_standard;
};

bool IsEmpty(const AccessibleDescription& description) {
  return !description.name && !description.description && !description.keyboardShortcut && !description.defaultAction &&
         !description.value && !description.role && !description.state;
}

// The import libraries do not know these, nor do all headers.
constexpr IID kIAccPropServices = {0x6e26e776, 0x04f0, 0x495d, {0x80, 0xe4, 0x33, 0x30, 0x35, 0x2e, 0x31, 0x69}};
constexpr CLSID kAccPropServices = {0xb5f8350b, 0x0548, 0x48b1, {0xa6, 0xee, 0x88, 0xbd, 0x00, 0xb4, 0xa5, 0xe7}};
constexpr GUID kLiveSettingProperty = {0xc12bcd8e, 0x2a8e, 0x4950, {0x8a, 0xe7, 0x36, 0x25, 0x11, 0x1d, 0x58, 0xeb}};
constexpr LONG kPolite = 1;

/// The component libraries, for as long as the object lives.
class ComponentScope {
 public:
  ComponentScope() : m_entered(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) {}
  ComponentScope(const ComponentScope&) = delete;
  ComponentScope& operator=(const ComponentScope&) = delete;
  ~ComponentScope() {
    if (m_entered) CoUninitialize();
  }

 private:
  bool m_entered;
};

}  // namespace

void MakeLiveRegion(HWND window) {
  const ComponentScope components;
  void* object = nullptr;
  if (FAILED(CoCreateInstance(kAccPropServices, nullptr, CLSCTX_INPROC_SERVER, kIAccPropServices, &object))) {
    return;
  }
  auto* const services = static_cast<IAccPropServices*>(object);
  VARIANT polite{};
  polite.vt = VT_I4;
  polite.lVal = kPolite;
  services->SetHwndProp(window, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF, kLiveSettingProperty, polite);
  services->Release();
}

void NotifyLiveRegionChanged(HWND window) {
  NotifyWinEvent(kLiveRegionChangedEvent, window, OBJID_CLIENT, CHILDID_SELF);
}

std::optional<LRESULT> AnswerGetObject(Control& control, const std::shared_ptr<Control*>& life, WPARAM wParam,
                                       LPARAM lParam) {
  // Only the low half counts: the high one is filled differently by different callers.
  if (static_cast<LONG>(lParam) != static_cast<LONG>(OBJID_CLIENT) || IsEmpty(control.Describe())) return std::nullopt;
  const HMODULE library = LoadSystemLibrary(L"oleacc.dll");
  const auto create = SystemFunction<decltype(CreateStdAccessibleObject)>(library, "CreateStdAccessibleObject");
  const auto handOver = SystemFunction<decltype(LresultFromObject)>(library, "LresultFromObject");
  // Nobody asks who has not got that library, and whoever asks anyway gets the system's own answer.
  if (create == nullptr || handOver == nullptr) return std::nullopt;
  void* standard = nullptr;
  if (FAILED(create(control.Handle(), OBJID_CLIENT, __uuidof(IAccessible), &standard))) {
    return std::nullopt;
  }
  auto* const accessible = new Accessible(life, static_cast<IAccessible*>(standard));
  const LRESULT answer = handOver(__uuidof(IAccessible), wParam, static_cast<IAccessible*>(accessible));
  accessible->Release();
  return answer;
}

}  // namespace kvez::forms
