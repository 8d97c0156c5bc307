#pragma once

#include <windows.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "forms/control.h"
#include "forms/timer.h"
#include "forms/tool_tip.h"
#include "forms/window.h"
#include "platform/windows/owned.h"

namespace kvez::forms {

enum class BorderStyle {
  FixedSingle,  // cannot be sized, can be minimised, has a button on the task bar
  FixedDialog,  // can only be closed
  Sizable,
};

/// Why a form is unloaded.
enum class UnloadMode : std::int16_t { User = 0, Code = 1, SessionEnd = 2 };

/// What a form is made as.
struct FormDesign {
  const wchar_t* className = L"KvezForm";
  BorderStyle border = BorderStyle::FixedSingle;
  int clientWidth = 0;            // twips
  int clientHeight = 0;           // twips
  const wchar_t* icon = nullptr;  // the resource's name, the same for all forms of the class; null for none
  const Form* owner = nullptr;    // the form is kept in front of this one; may be null
};

/// A top-level window. Its controls are members of the derived class, created in its constructor:
///
///   Kvez::Kvez() : Form({.clientWidth = 6300, .clientHeight = 4500}) {
///     txtMPSC[0].Create(*this, kTxtMPSC, {30, 3390, 3105, 285});
///     txtMPSC[0].KeyDown = [this](std::int16_t& KeyCode, std::int16_t Shift) { txtMPSC_KeyDown(0, KeyCode, Shift); };
///   }
///
/// Load (or the first Show) then runs Form_Load. A form outlives its window: after Unload its controls are empty shells
/// that ignore what they are told. It must not be deleted inside one of its own events. Its parts are in files of their
/// own: form (its life, its messages), form_controls (what lies on it), form_keyboard (keys, focus), form_scaling (size
/// and font).
class Form : public Window, public Container {
 public:
  /// Creates the hidden window in the middle of its owner, or of the screen that the system has chosen for it.
  explicit Form(const FormDesign& design);
  ~Form() override;

  /// Runs Form_Load, once.
  void Load();
  /// Loads if need be, shows the form modeless and activates it.
  void Show();
  void Hide();
  /// Asks Form_QueryUnload and Form_Unload, either of which may keep the window, then destroys it and runs
  /// Form_Terminate. True when the window is gone. While an InputPause makes closing wait, the wish is kept instead.
  bool Unload(UnloadMode mode = UnloadMode::Code);
  /// True from the constructor to Unload.
  bool IsOpen() const { return Handle() != nullptr; }
  /// True while an InputPause lives, and while the form asks about its end or comes to it.
  bool IsPaused() const { return m_pauses > 0 || m_asking || m_unloading; }

  std::wstring Caption() const;
  void SetCaption(std::wstring_view caption);

  int ClientWidth() const;   // twips
  int ClientHeight() const;  // twips

  /// The same for all forms: the system's, which may change.
  static COLORREF BackColor() { return GetSysColor(COLOR_BTNFACE); }
  static COLORREF ForeColor() { return GetSysColor(COLOR_BTNTEXT); }

  /// Dots per inch of the window now.
  unsigned Dpi() const { return m_dpi; }
  /// Dots per inch that the design is laid out with: more than those of the window where the user has a larger font for
  /// messages, as long as the screen has room, and fewer where it has none for the design.
  unsigned Scaling() const { return m_scaling; }
  float TwipsPerPixel() const { return 1440.0F / static_cast<float>(m_scaling); }
  /// What a line of the form's font takes at most, in twips.
  static constexpr int kLineTwips = 255;
  int ToPixels(int twips) const;
  int ToTwips(int pixels) const;
  /// The font of all controls without a style of their own.
  HFONT Font() const { return m_font.Get(); }
  const LOGFONTW& FontDescription() const { return m_fontDescription; }
  /// The height of a line in it, in pixels.
  int LineHeight() const { return m_lineHeight; }

  /// True: Form_KeyDown sees the keys before the controls.
  void SetKeyPreview(bool preview) { m_keyPreview = preview; }

  /// The button that Enter runs while no other button has the focus, and the one that Escape runs. Null for none.
  void SetDefaultButton(Control* button) { m_defaultButton = button; }
  void SetCancelButton(Control* button) { m_cancelButton = button; }
  Control* DefaultButton() const { return m_defaultButton; }
  Control* CancelButton() const { return m_cancelButton; }

  /// While this control is visible, only what lies in it can be reached. Null for none.
  void SetFrontPanel(Control* panel) { m_frontPanel = panel; }
  const Control* FrontPanel() const { return m_frontPanel; }

  const std::vector<Control*>& Controls() const { return m_controls; }
  Control* FocusedControl() const;
  /// Moves the focus to the next or the previous control that Tab reaches; false when there is none.
  bool FocusNext(bool backwards = false);
  /// Moves the focus to the control that Tab reaches after `control`.
  bool FocusAfter(const Control& control);

  /// Moves the focus from one control to another because Shift has gone down. Shift alone leaves it there; with another
  /// key, Shift belonged to that key: the focus returns, and the key goes where it was meant for.
  void HandFocusOver(Control& from, Control& to);
  /// In a KeyDown event: true when the key is held and this is not its first message.
  bool KeyIsRepeated() const { return m_keyIsRepeated; }

  /// What the message loop does with a key before it is dispatched: Tab, Enter, Escape, access keys. True when the
  /// message is used up; else it may have another window to go to.
  bool TranslateKey(MSG& message);

  // Container
  Form& OwnerForm() override { return *this; }
  HWND ContainerHandle() const override { return Handle(); }

 protected:
  virtual void Form_Load() {}
  virtual void Form_QueryUnload(std::int16_t& /*cancel*/, UnloadMode /*mode*/) {}
  virtual void Form_Unload(std::int16_t& /*cancel*/) {}
  /// After the window is destroyed. In Form_Unload the window still lives; here only the object does.
  virtual void Form_Terminate() {}
  virtual void Form_KeyDown(std::int16_t& /*KeyCode*/, std::int16_t /*Shift*/) {}
  /// Where the work goes on when `leaving`, which has the focus, is hidden or disabled; null for the next control in
  /// the order of the Tab key, which also serves when the answer cannot be reached.
  virtual Control* WorkGoesOnAt(const Control& /*leaving*/) { return nullptr; }
  /// The client area or the scaling has changed.
  virtual void Form_Resize() {}
  /// The system's colours have changed. Controls that were given none of their own follow by themselves.
  virtual void Form_SysColorsChanged() {}

  /// True from the moment when Form_QueryUnload has agreed to the end of the session until the session goes on after
  /// all. Its end calls Form_Unload only, and what that decides is not looked at.
  bool SessionEnds() const { return m_sessionEnds; }

  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  friend class Control;
  friend class InputPause;
  friend class Timer;
  friend class ToolTip;

  // form
  bool AsksToUnload(UnloadMode mode);
  bool DestroyAndTerminate();
  LRESULT OnQueryEndSession(bool critical);
  void OnEndSession(bool ending);
  LRESULT OnEraseBackground(HDC context);
  void OnTimer(UINT_PTR id);
  void ApplyIcons();

  // form_controls
  void Register(Control& control);
  void Unregister(Control& control);
  void RegisterTimer(Timer& timer);
  void UnregisterTimer(Timer& timer);
  void NotifyShown(Control* within);

  // form_keyboard
  Control* Reachable(std::size_t start, bool backwards, const Control* except) const;
  std::size_t PositionOf(const Control* control) const;
  bool Focus(Control* control);
  void LeaveFocus(const Control& control);
  /// After `control` has lost the focus to `taker`, which may be null or anybody's.
  void KeepInMind(const Control& control, HWND taker);
  void OnActivate(bool active);
  void OnSize(WPARAM kind);
  void OnSetFocus();
  /// Asks Form_KeyDown when the preview is on.
  void PreviewKey(std::int16_t& keyCode, std::int16_t shift);
  void TakeBackFocus(MSG& message);
  bool TranslateAccessKey(const MSG& message);
  bool TranslateButtonKey(const MSG& message);

  // form_scaling
  HWND ScreenMate() const;
  unsigned FittingScaling(DWORD style, DWORD extendedStyle, HWND screenMate) const;
  SIZE OuterSize(DWORD style, DWORD extendedStyle) const;
  void ApplyClientSize();
  void MoveOnScreen(LONG left, LONG top, const RECT& work);
  void Center();
  void CreateFont();
  void RescaleControls();
  void ScaleAnew(bool dragged = false);
  void OnDpiChanged(unsigned dpi, const RECT& suggested);
  void OnDisplayChange();
  void OnSystemLook(UINT message, WPARAM wParam, LPARAM lParam);

  // What it is made as
  const wchar_t* m_iconName = nullptr;
  OwnedIcon m_smallIcon;
  OwnedIcon m_largeIcon;
  int m_clientWidth;   // twips
  int m_clientHeight;  // twips

  // Its life
  bool m_loaded = false;
  bool m_loading = false;
  bool m_shown = false;
  bool m_asking = false;     // inside Form_QueryUnload
  bool m_unloading = false;  // inside Form_Unload
  bool m_sessionEnds = false;
  int m_pauses = 0;
  int m_closingPauses = 0;  // those that make closing wait
  bool m_closingWaits = false;

  // Its size and font
  unsigned m_dpi = 96;
  unsigned m_scaling = 96;
  bool m_scalingWaits = false;
  LOGFONTW m_fontDescription{};
  OwnedFont m_font;
  int m_lineHeight = 0;

  // What lies on it
  std::vector<Control*> m_controls;
  std::vector<Timer*> m_timers;
  ToolTip m_toolTip{*this};
  Control* m_defaultButton = nullptr;
  Control* m_cancelButton = nullptr;
  Control* m_frontPanel = nullptr;

  // Its keyboard
  HWND m_focusWhenActive = nullptr;
  Control* m_handedFrom = nullptr;  // by Shift, which is held since; null when it is not
  Control* m_handedTo = nullptr;
  bool m_keepsFocus = false;
  bool m_keyPreview = false;
  bool m_keyIsRepeated = false;
  bool m_wasMinimized = false;
};

}  // namespace kvez::forms
