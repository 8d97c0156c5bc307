#pragma once

#include <windows.h>
// After windows.h, whose types it needs.
#include <shellapi.h>

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "controls/property_bag.h"
#include "forms/control.h"

namespace kvez {

class tlText;

/// What a button asks of the form that it lies on. As it stands, it serves a running form; a designer or a test
/// replaces what it wants to know.
class tlTextHost {
 public:
  virtual ~tlTextHost() = default;
  static tlTextHost& RunningForm();

  virtual COLORREF AmbientBackColor(const tlText& button) const;
  virtual COLORREF AmbientForeColor(const tlText& button) const;
  virtual std::wstring DisplayName(const tlText& button) const;
  virtual bool IsCancelButton(const tlText& button) const;
  /// A persisted property has changed. A running form does not keep its layout: nothing is done.
  virtual void PropertyChanged(tlText& button, std::wstring_view key);
  virtual void SetTabStop(tlText& button, bool tabStop);
};

/// The button of the main window: draws itself, changes its colour under the pointer, and raises Click or opens
/// something through the shell.
///
///   tlHKonec.ReadProperties({{L"C", L"&Konec"}});
///   tlHKonec.Create(*this, kTlHKonec, {0, 0, 1215, 345}, L"tlHKonec");
///
/// Properties have a getter and a setter; a setter notifies the host and, once the button is shown, repaints.
class tlText : public forms::Control {
 public:
  /// What the button needs at run time only; nothing of it is persisted.
  struct RunTimeFields {
    std::int32_t LastResult = 0;  // of the last drawing or shell call; nobody reads it
    HWND Hwnd = nullptr;
    Boolean IsNew;
    Boolean HasFocus;
    Boolean IsShown;
    Boolean IsDown;
    Boolean IsOver;
    Boolean InAction;
    RECT ClientRect{};
    RECT FocusRect{};
    RECT TextRect{};
  };

  using ShellExecuteFunction = std::function<HINSTANCE(HWND owner, const char* verb, const char* file,
                                                       const char* parameters, const char* folder, int show)>;
  using WideShellExecuteFunction = std::function<HINSTANCE(HWND owner, const wchar_t* verb, const wchar_t* file,
                                                           const wchar_t* parameters, const wchar_t* folder, int show)>;

  tlText() = default;
  ~tlText() override;

  /// Makes the window. Properties that are read before are told to it once. Only the display name, the default caption,
  /// is not known before. `host` is the form itself when it is null; another one
  /// outlives the button.
  void Create(forms::Container& container, int id, const forms::Place& place, std::wstring_view displayName,
              tlTextHost* host = nullptr);
  /// The defaults of a button that is newly placed on a form. Its next resize gives it its first size.
  void InitProperties();
  void ReadProperties(const PropertyBag& bag);
  /// Writes all fifteen properties, whatever their values.
  void WriteProperties(PropertyBag& bag) const;

  // Properties, in slot order; what all controls have is read through forms::Control.
  std::int32_t FocusDraw() const { return m_focusDraw; }
  void SetFocusDraw(std::int32_t value);
  COLORREF FocusColor() const { return m_focusColor; }
  void SetFocusColor(COLORREF value);
  const std::wstring& SEParameters() const { return m_seParameters; }
  void SetSEParameters(std::wstring_view value);
  const std::wstring& SEFile() const { return m_seFile; }
  void SetSEFile(std::wstring_view value);
  std::int32_t SEMode() const { return m_seMode; }
  void SetSEMode(std::int32_t value);
  std::int32_t DEBorder() const { return m_deBorder; }
  void SetDEBorder(std::int32_t value);
  Boolean DEMove() const { return m_deMove; }
  void SetDEMove(Boolean value);
  void SetEnabled(Boolean value) override;
  void SetBackColor(COLORREF value) override;
  void SetForeColor(COLORREF value) override;
  COLORREF MoveColor() const { return m_moveColor; }
  void SetMoveColor(COLORREF value);
  COLORREF DownColor() const { return m_downColor; }
  void SetDownColor(COLORREF value);
  const std::wstring& Caption() const { return m_caption; }
  void SetCaption(std::wstring_view value);
  void SetMousePointer(std::int32_t value) override;
  const Picture& MouseIcon() const { return m_mouseIcon; }
  void SetMouseIcon(const Picture& value);

  // Events, in their order.
  forms::PlainEvent Click;
  forms::KeyPressEvent KeyPress;
  forms::MouseEvent MouseMove;
  std::function<void(bool mme)> MouseMoveEnabled;
  forms::MouseEvent MouseUp;
  forms::MouseEvent MouseDown;

  const RunTimeFields& RunTime() const { return m_run; }
  const std::wstring& DisplayName() const { return m_displayName; }
  /// The character that presses the button together with Alt; empty for none.
  const std::wstring& AccessKeys() const { return m_accessKeys; }
  /// Replaces the shell's call, ShellExecuteA, and its wide twin.
  void SetShellExecute(ShellExecuteFunction function, WideShellExecuteFunction wide = {}) {
    m_shellExecute = std::move(function);
    m_wideShellExecute = std::move(wide);
  }

  // forms::Control
  bool HasAccessKey(wchar_t character) const override;
  bool AccessKeyPress(std::int16_t KeyAscii) override;
  bool IsButton() const override { return true; }
  void OnShown() override;
  void OnFormDeactivated() override;
  forms::AccessibleDescription Describe() const override;
  void DoDefaultAction() override;

 protected:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  bool OnKeyDown(std::int16_t& keyCode, std::int16_t shift) override;
  bool OnKeyUp(std::int16_t& keyCode, std::int16_t shift) override;
  bool OnKeyPress(std::int16_t& keyAscii) override;
  void OnMouseDown(std::int16_t button, std::int16_t shift, float x, float y) override;
  void OnMouseMove(std::int16_t button, std::int16_t shift, float x, float y) override;
  void OnMouseUp(std::int16_t button, std::int16_t shift, float x, float y) override;
  void OnGotFocus() override;
  void OnLostFocus() override;
  void OnResize() override;
  void OnFontChanged() override;

 private:
  void Notify(std::wstring_view key);
  void RepaintIfShown();
  void Repaint(const RECT& area);
  void Keep(std::intptr_t result) { m_run.LastResult = static_cast<std::int32_t>(result); }
  void MeasureRectangles();

  void OnPaint();
  void Paint(HDC context);
  void PlaceCaption(HDC context);
  void DrawCaption(HDC context);
  COLORREF CaptionColor();
  void DrawFocusMark(HDC context, RECT& inside);

  bool PointerIsInside() const;
  bool IsOverAnotherWindow() const;
  void GiveToTheWindowThere(UINT message, WPARAM wParam);
  void TakeCapture();
  void ReleaseOwnCapture();
  void TrackPointer();
  void Leave();
  void OnCaptureLost(HWND taker);
  void OnWatch();
  void RaiseMouseMoveEnabled(bool inside);
  void SetDown(bool down);

  /// With `applyDefaults`, the defaults of the mode; without, the button's action.
  void PerformAction(bool applyDefaults);
  void RunAction();
  void ShellOpen(const std::wstring& target);

  tlTextHost* m_host = &tlTextHost::RunningForm();
  std::wstring m_displayName;
  std::wstring m_accessKeys;
  ShellExecuteFunction m_shellExecute;  // empty for the shell's own
  WideShellExecuteFunction m_wideShellExecute;
  RunTimeFields m_run;
  bool m_pointerAnnounced = false;  // the last MouseMoveEnabled was true
  bool m_releasingCapture = false;

  std::int32_t m_focusDraw = 0;
  COLORREF m_focusColor = 0;
  std::wstring m_seParameters;
  std::wstring m_seFile;
  std::int32_t m_seMode = 0;
  Boolean m_deMove;
  std::int32_t m_deBorder = 0;
  COLORREF m_moveColor = 0;
  COLORREF m_downColor = 0;
  std::wstring m_caption;
  Picture m_mouseIcon;
};

}  // namespace kvez
