// What a screen reader hears of the main window, and what it is told about every control.

#include <windows.h>
// After windows.h, whose types it needs.
#include <ole2.h>
#include <oleacc.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "forms/accessible.h"
#include "mainwindow/control_ids.h"
#include "settings/frmnastaveni.h"
#include "tests/support/accessible_text.h"
#include "tests/windows/main_window_test.h"
#include "text/utf8.h"

namespace kvez {
namespace {

/// Listens to this process's live regions as a screen reader does: asks each one for its name when it tells of a
/// change.
class Listener {
 public:
  Listener() {
    heard = {};
    m_hook = SetWinEventHook(forms::kLiveRegionChangedEvent, forms::kLiveRegionChangedEvent, nullptr, &OnEvent,
                             GetCurrentProcessId(), 0, WINEVENT_OUTOFCONTEXT);
  }
  Listener(const Listener&) = delete;
  Listener& operator=(const Listener&) = delete;
  ~Listener() { UnhookWinEvent(m_hook); }

  /// What was said last; waits for the first.
  static std::wstring Last() {
    test::PumpUntil([] { return !heard.empty(); });
    forms::DoEvents();
    return heard.empty() ? std::wstring() : heard.back();
  }
  static void Forget() { heard.clear(); }

  static inline std::vector<std::wstring> heard;

 private:
  static void CALLBACK OnEvent(HWINEVENTHOOK, DWORD, HWND window, LONG object, LONG child, DWORD, DWORD) {
    if (object == OBJID_CLIENT && child == CHILDID_SELF) heard.push_back(test::AccessibleWindow(window).Name());
  }

  HWINEVENTHOOK m_hook;
};

class MainWindowReader : public MainWindowTest {
 protected:
  void SetUp() override {
    MainWindowTest::SetUp();
    CoInitialize(nullptr);
  }
  void TearDown() override {
    MainWindowTest::TearDown();
    CoUninitialize();
  }
};

TEST_F(MainWindowReader, HearsTheCountAfterASearch) {
  frmhlavni& window = OpenInFront();
  const Listener listener;
  TypeText(L"Praha*");
  PressKey(VK_RETURN);
  EXPECT_EQ(Listener::Last(), L"Zadání vyhovuje 1 obec.");
  // The same again is said again.
  Listener::Forget();
  PressKey(VK_RETURN);
  EXPECT_EQ(Listener::Last(), L"Zadání vyhovuje 1 obec.");
  Listener::Forget();
  window.optMPSC[0].SetValue(true);
  window.txtMPSC[1].SetText(L"692");
  window.VyhledejPSC();
  EXPECT_EQ(Listener::Last(), L"Zadání vyhovují 2 obce.");
}

TEST_F(MainWindowReader, HearsTheAddressOfTheRowThatTheArrowsChoose) {
  frmhlavni& window = OpenInFront();
  const Listener listener;
  TypeText(L"*ov*");
  PressKey(VK_RETURN);
  window.lstMPSC[1].SetFocus();
  Listener::Forget();
  PressKey(VK_DOWN);
  EXPECT_EQ(Listener::Last(), L"1. záznam z 1, 692 01  Mikulov na Moravě");
  EXPECT_TRUE(window.lstMPSC[1].HasKeyboardFocus());
  // A label's tooltip and its text stay what they are.
  EXPECT_EQ(window.lblPSCV[1].Caption(), L"1. záznam z 1");
  Listener::Forget();
  window.lstMPSC[0].SetFocus();
  PressKey(VK_DOWN);
  PressKey(VK_DOWN);
  EXPECT_EQ(Listener::Last(), L"2. záznam z 6, 691 44  Lednice na Moravě");
}

TEST_F(MainWindowReader, HearsNothingWhileItLoads) {
  const Listener listener;
  OpenInFront();
  EXPECT_EQ(Listener::heard, std::vector<std::wstring>{});
}

/// The system's service that windows are annotated with.
class FakeAnnotations final : public IAccPropServices, public IClassFactory {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    constexpr IID kOwn = {0x6e26e776, 0x04f0, 0x495d, {0x80, 0xe4, 0x33, 0x30, 0x35, 0x2e, 0x31, 0x69}};
    if (id == kOwn) {
      *object = static_cast<IAccPropServices*>(this);
    } else if (id == __uuidof(IClassFactory) || id == __uuidof(IUnknown)) {
      *object = static_cast<IClassFactory*>(this);
    } else {
      return E_NOINTERFACE;
    }
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID id, void** object) override {
    return QueryInterface(id, object);
  }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

  HRESULT STDMETHODCALLTYPE SetHwndProp(HWND window, DWORD object, DWORD child, MSAAPROPID property,
                                        VARIANT value) override {
    constexpr GUID kLiveSetting = {0xc12bcd8e, 0x2a8e, 0x4950, {0x8a, 0xe7, 0x36, 0x25, 0x11, 0x1d, 0x58, 0xeb}};
    const bool isSelf = object == static_cast<DWORD>(OBJID_CLIENT) && child == CHILDID_SELF;
    if (isSelf && property == kLiveSetting && value.vt == VT_I4) live.emplace_back(GetDlgCtrlID(window), value.lVal);
    return S_OK;
  }

  HRESULT STDMETHODCALLTYPE SetPropValue(const BYTE*, DWORD, MSAAPROPID, VARIANT) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE SetPropServer(const BYTE*, DWORD, const MSAAPROPID*, int, IAccPropServer*,
                                          AnnoScope) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE ClearProps(const BYTE*, DWORD, const MSAAPROPID*, int) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE SetHwndPropStr(HWND, DWORD, DWORD, MSAAPROPID, LPCWSTR) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE SetHwndPropServer(HWND, DWORD, DWORD, const MSAAPROPID*, int, IAccPropServer*,
                                              AnnoScope) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE ClearHwndProps(HWND, DWORD, DWORD, const MSAAPROPID*, int) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE ComposeHwndIdentityString(HWND, DWORD, DWORD, BYTE**, DWORD*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE DecomposeHwndIdentityString(const BYTE*, DWORD, HWND*, DWORD*, DWORD*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE SetHmenuProp(HMENU, DWORD, MSAAPROPID, VARIANT) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE SetHmenuPropStr(HMENU, DWORD, MSAAPROPID, LPCWSTR) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE SetHmenuPropServer(HMENU, DWORD, const MSAAPROPID*, int, IAccPropServer*,
                                               AnnoScope) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE ClearHmenuProps(HMENU, DWORD, const MSAAPROPID*, int) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE ComposeHmenuIdentityString(HMENU, DWORD, BYTE**, DWORD*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE DecomposeHmenuIdentityString(const BYTE*, DWORD, HMENU*, DWORD*) override {
    return E_NOTIMPL;
  }

  std::vector<std::pair<int, LONG>> live;  // control and setting
};

TEST_F(MainWindowReader, FindsTheCountsToBePoliteLiveRegions) {
  constexpr CLSID kService = {0xb5f8350b, 0x0548, 0x48b1, {0xa6, 0xee, 0x88, 0xbd, 0x00, 0xb4, 0xa5, 0xe7}};
  FakeAnnotations annotations;
  DWORD registration = 0;
  ASSERT_EQ(CoRegisterClassObject(kService, static_cast<IClassFactory*>(&annotations), CLSCTX_INPROC_SERVER,
                                  REGCLS_MULTIPLEUSE, &registration),
            S_OK);
  const frmhlavni& window = Open();
  EXPECT_TRUE(annotations.live.empty()) << "before anybody asked";
  for (int time = 0; time < 2; ++time) {
    for (const forms::Control* control : window.Controls()) test::AccessibleWindow(control->Handle()).Name();
  }
  constexpr LONG kPolite = 1;
  EXPECT_EQ(annotations.live, (std::vector<std::pair<int, LONG>>{{kLblPSCV, kPolite}, {kLblPSCV + 1, kPolite}}));
  CoRevokeClassObject(registration);
}

// --- The dump

std::string RoleName(LONG role) {
  constexpr std::array<std::pair<LONG, const char*>, 12> kRoles = {{{ROLE_SYSTEM_WINDOW, "window"},
                                                                    {ROLE_SYSTEM_CLIENT, "client"},
                                                                    {ROLE_SYSTEM_STATICTEXT, "static text"},
                                                                    {ROLE_SYSTEM_TEXT, "text field"},
                                                                    {ROLE_SYSTEM_PUSHBUTTON, "button"},
                                                                    {ROLE_SYSTEM_RADIOBUTTON, "option button"},
                                                                    {ROLE_SYSTEM_CHECKBUTTON, "check box"},
                                                                    {ROLE_SYSTEM_LIST, "list"},
                                                                    {ROLE_SYSTEM_GROUPING, "group"},
                                                                    {ROLE_SYSTEM_PANE, "pane"},
                                                                    {ROLE_SYSTEM_STATUSBAR, "status bar"},
                                                                    {ROLE_SYSTEM_PROGRESSBAR, "progress bar"}}};
  for (const auto& [number, name] : kRoles) {
    if (number == role) return name;
  }
  return "role " + std::to_string(role);
}

std::string StateNames(LONG state) {
  constexpr std::array<std::pair<LONG, const char*>, 9> kStates = {{{STATE_SYSTEM_UNAVAILABLE, "unavailable"},
                                                                    {STATE_SYSTEM_SELECTED, "selected"},
                                                                    {STATE_SYSTEM_FOCUSED, "focused"},
                                                                    {STATE_SYSTEM_PRESSED, "pressed"},
                                                                    {STATE_SYSTEM_CHECKED, "checked"},
                                                                    {STATE_SYSTEM_READONLY, "read-only"},
                                                                    {STATE_SYSTEM_DEFAULT, "default"},
                                                                    {STATE_SYSTEM_INVISIBLE, "invisible"},
                                                                    {STATE_SYSTEM_FOCUSABLE, "focusable"}}};
  std::string names;
  for (const auto& [bit, name] : kStates) {
    if ((state & bit) == 0) continue;
    names += names.empty() ? "" : ", ";
    names += name;
    state &= ~bit;
  }
  if (state != 0) names += (names.empty() ? "" : ", ") + std::to_string(state);
  return names;
}

std::string LineOf(HWND window) {
  const test::AccessibleWindow told(window);
  std::string line = std::to_string(GetDlgCtrlID(window)) + " | " + RoleName(told.Role()) + " | " +
                     ToUtf8(told.Name()) + " | " + StateNames(told.State());
  if (!told.Shortcut().empty()) line += " | " + ToUtf8(told.Shortcut());
  return line + "\n";
}

std::string LinesOf(const forms::Form& form) {
  std::string lines;
  for (const forms::Control* control : form.Controls()) lines += LineOf(control->Handle());
  return lines;
}

TEST_F(MainWindowReader, IsToldTheNameRoleAndStateOfEveryControl) {
  frmhlavni& window = OpenInFront();
  std::string dump = "== After the start\n" + LinesOf(window);
  TypeText(L"*ov*");
  PressKey(VK_RETURN);
  window.lstMPSC[1].SetFocus();
  PressKey(VK_DOWN);
  dump += "\n== With a chosen result\n" + LinesOf(window);
  window.tlHOaplikaci.Click();
  dump += "\n== The About panel\n" + LinesOf(window);
  window.tlHStorno.Click();
  {
    frmnastaveni settings(m_database, m_commands.Services(m_machine.settings, kFolder).shortcut, &window);
    settings.Load();
    test::ShowActive(settings);
    dump += "\n== The settings\n" + LinesOf(settings);
    settings.Unload();
  }

  const std::filesystem::path folder(KVEZ_SOURCE_DIR);
  std::stringstream expected;
  expected << std::ifstream(folder / "tests" / "windows" / "accessible.txt", std::ios::binary).rdbuf();
  if (dump == expected.str()) return;
  const std::filesystem::path fresh = folder / "build" / "accessible.txt";
  std::ofstream(fresh, std::ios::binary) << dump;
  ADD_FAILURE() << "differs from tests/windows/accessible.txt; what it is now stands in build/accessible.txt";
}

}  // namespace
}  // namespace kvez
