#pragma once

#include <windows.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "forms/boolean.h"
#include "forms/events.h"
#include "forms/window.h"
#include "platform/windows/owned.h"
#include "text/assertion.h"

namespace kvez::forms {

class Control;
class Form;

/// A place on a form or in a container, in twips.
struct Place {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;

  friend bool operator==(const Place&, const Place&) = default;
};

/// What controls lie in: a form, a frame, a picture box.
class Container {
 public:
  virtual ~Container() = default;
  virtual Form& OwnerForm() = 0;
  virtual HWND ContainerHandle() const = 0;

 protected:
  /// Hands a message that the system sends to the parent over to the control that it is about. Nothing when the
  /// message is none of that kind.
  static std::optional<LRESULT> Reflect(UINT message, WPARAM wParam, LPARAM lParam);
};

/// What a screen reader is told about a control, where the system's own answer is not enough.
struct AccessibleDescription {
  std::optional<std::wstring> name;
  std::optional<std::wstring> description;
  std::optional<std::wstring> keyboardShortcut;
  std::optional<std::wstring> defaultAction;
  std::optional<std::wstring> value;
  std::optional<LONG> role;   // ROLE_SYSTEM_...
  std::optional<LONG> state;  // STATE_SYSTEM_...
};

struct FontStyle {
  bool bold = false;
  int percent = 100;              // of the form's font
  const wchar_t* face = nullptr;  // another typeface than the form's; a constant

  friend bool operator==(const FontStyle&, const FontStyle&) = default;
};

/// What all controls have in common. Controls are reached by Tab in the order in which they are created; what is
/// created first lies on top.
class Control : public Window {
 public:
  Control() = default;
  ~Control() override;

  /// From Create to the form's end.
  Form& OwnerForm() const {
    Assert(m_form != nullptr, "the control is on a form");
    return *m_form;
  }

  const Place& GetPlace() const { return m_place; }
  void Move(const Place& place);

  /// The control's own wish; it is seen when its container is seen as well.
  bool Visible() const { return m_visible; }
  /// Hiding or disabling the control that has the keyboard focus hands the focus to the next one. A control that is
  /// hidden before it is created never shows, not even for a moment.
  void SetVisible(bool visible);
  /// Whatever is not zero counts as enabled.
  Boolean Enabled() const { return m_enabled; }
  virtual void SetEnabled(Boolean enabled);

  /// Takes the keyboard focus, or will take it when the form becomes active. A control that is hidden or disabled then
  /// leaves the focus where it is.
  void SetFocus();
  bool HasKeyboardFocus() const;
  /// False keeps the control out of the order of the Tab key.
  bool TabStop() const { return m_tabStop; }
  void SetTabStop(bool tabStop) { m_tabStop = tabStop; }

  /// Puts the control in front of the others of its container. The order of the Tab key stays.
  void BringToFront();

  const std::wstring& ToolTipText() const { return m_toolTipText; }
  /// An empty text takes the tooltip away.
  void SetToolTipText(std::wstring_view text);
  /// What the tooltip shows.
  virtual std::wstring ShownToolTip() const { return m_toolTipText; }

  COLORREF BackColor() const;
  COLORREF ForeColor() const;
  /// Without these, a control has the system's colours and follows their changes. The background may be a reference to
  /// one of them: 0x80000000 and its number.
  virtual void SetBackColor(COLORREF color);
  virtual void SetForeColor(COLORREF color);

  void SetFontStyle(FontStyle style);
  HFONT Font() const;

  /// The pointer over the control, by the design's numbers. Throws OverflowError outside of 16 bits and changes nothing
  /// then.
  std::int32_t MousePointer() const { return m_mousePointer; }
  virtual void SetMousePointer(std::int32_t shape);

  /// The name that a screen reader says; without it, the system's own answer (the caption, the label before).
  void SetAccessibleName(std::wstring_view name) { m_accessibleName = name; }

  /// In a MouseUp event: the button that comes up went down on this control, too.
  bool WasPressedHere() const { return m_wasPressedHere; }

  /// Paints what is outdated at once.
  void Refresh();

  /// True when the control takes the focus by Tab now, or will when `leaving` is gone.
  virtual bool IsReachable(const Control* leaving = nullptr) const;

  // What the form asks of its controls.

  /// True when `character` (of any case) is the control's access key.
  virtual bool HasAccessKey(wchar_t character) const;
  /// The access key was pressed with Alt (KeyAscii in the system's code page), or Enter (13) or Escape (27) for a
  /// default or cancel button. True when the key is used up.
  virtual bool AccessKeyPress(std::int16_t KeyAscii);
  /// True for buttons: Enter acts on the focused one.
  virtual bool IsButton() const { return false; }
  /// An arrow key: true when the control has moved within its group.
  virtual bool MoveInGroup(WPARAM virtualKey);
  /// The control and all around it have become visible.
  virtual void OnShown() {}
  /// Another window has become the active one.
  virtual void OnFormDeactivated() {}
  virtual AccessibleDescription Describe() const;
  virtual void DoDefaultAction() {}

  /// WM_COMMAND and WM_CTLCOLOR... of the parent.
  virtual void OnCommand(UINT notification);
  virtual LRESULT OnColor(HDC context);

  /// In a mouse event: the pointer is not where it was seen before. The system also sends movements without one.
  bool PointerHasMoved() const { return m_pointerHasMoved; }

 protected:
  friend class Form;

  Parameters Prepare(Container& container, int id, const Place& place, DWORD style, DWORD extendedStyle = 0);
  /// After the window is there: registers with the form, sets the font.
  void Finish();

  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  /// Events as they come, before the system's control sees them. False: the control does not see the message.
  virtual bool OnKeyDown(std::int16_t& keyCode, std::int16_t shift);
  virtual bool OnKeyUp(std::int16_t& keyCode, std::int16_t shift);
  virtual bool OnKeyPress(std::int16_t& keyAscii);
  virtual void OnMouseDown(std::int16_t, std::int16_t, float, float) {}
  virtual void OnMouseMove(std::int16_t, std::int16_t, float, float) {}
  virtual void OnMouseUp(std::int16_t, std::int16_t, float, float) {}
  virtual void OnGotFocus() {}
  virtual void OnLostFocus() {}
  /// The window, its scaling or its font has a new size.
  virtual void OnResize() {}
  virtual void OnFontChanged() {}
  /// What is left for one line of text, in pixels; 0 where a line has room in any usual font. A higher font is lowered.
  virtual int LineRoom() const { return 0; }
  /// What the tooltip shows has changed.
  void RenewToolTip();
  virtual COLORREF DefaultBackColor() const;
  virtual COLORREF DefaultForeColor() const;
  /// The colour and the brush of the background as it is seen now; the brush is owned by the control.
  COLORREF SeenBackColor() const;
  HBRUSH BackBrush() const;
  HCURSOR m_customPointer = nullptr;  // not owned

  /// STATE_SYSTEM_...: whether the control is seen, can be used and has the keyboard. For Describe.
  LONG AccessibleState() const;

  /// Lets the whole control be painted when the loop comes to it; a hidden one is painted anyway when it is shown.
  void Invalidate();
  /// Applies place and font for the form's scaling.
  virtual void Rescale();

 private:
  LRESULT OnChar(WPARAM wParam, LPARAM lParam);
  bool SetPointer(UINT hitTest) const;
  bool HasFrame() const;
  LRESULT OnKey(UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT OnMouse(UINT message, WPARAM wParam, LPARAM lParam);
  void NotePointer(UINT message, WPARAM wParam, LPARAM lParam);
  void ApplyFont();
  OwnedFont MakeOwnFont() const;
  void ApplyPlace();

  Form* m_form = nullptr;
  HWND m_parent = nullptr;
  Place m_place;
  bool m_visible = true;
  Boolean m_enabled = true;
  bool m_tabStop = false;
  bool m_pointerHasMoved = false;
  bool m_wasPressedHere = false;
  std::int16_t m_pressedButtons = 0;  // that went down here and did not come up yet
  std::wstring m_toolTipText;
  bool m_hasToolTip = false;  // the form's tooltip knows this control
  std::wstring m_accessibleName;
  std::optional<COLORREF> m_backColor;
  std::optional<COLORREF> m_foreColor;
  mutable OwnedBrush m_backBrush;
  mutable COLORREF m_backBrushColor = 0;
  FontStyle m_fontStyle;
  OwnedFont m_ownFont;
  std::int16_t m_mousePointer = 0;
  /// Tells screen readers' references to this control whether it still lives.
  std::shared_ptr<Control*> m_life;
};

/// A control with the usual events. KeyDown and KeyUp come before the control acts, Change and Click after.
class EventControl : public Control {
 public:
  PlainEvent GotFocus;
  PlainEvent LostFocus;
  KeyEvent KeyDown;
  KeyPressEvent KeyPress;
  KeyEvent KeyUp;
  MouseEvent MouseDown;
  MouseEvent MouseMove;
  MouseEvent MouseUp;

 protected:
  bool OnKeyDown(std::int16_t& keyCode, std::int16_t shift) override;
  bool OnKeyUp(std::int16_t& keyCode, std::int16_t shift) override;
  bool OnKeyPress(std::int16_t& keyAscii) override;
  void OnMouseDown(std::int16_t button, std::int16_t shift, float x, float y) override;
  void OnMouseMove(std::int16_t button, std::int16_t shift, float x, float y) override;
  void OnMouseUp(std::int16_t button, std::int16_t shift, float x, float y) override;
  void OnGotFocus() override;
  void OnLostFocus() override;
};

}  // namespace kvez::forms
