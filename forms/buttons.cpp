#include "forms/buttons.h"

#include <oleacc.h>

#include <vector>

#include "forms/form.h"
#include "forms/input_gate.h"

namespace kvez::forms {
namespace {

/// The option buttons around `button`, in their order.
std::vector<OptionButton*> GroupOf(const OptionButton& button) {
  std::vector<OptionButton*> group;
  for (Control* control : button.OwnerForm().Controls()) {
    auto* const other = dynamic_cast<OptionButton*>(control);
    if (other != nullptr && other->Handle() != nullptr && GetParent(other->Handle()) == GetParent(button.Handle())) {
      group.push_back(other);
    }
  }
  return group;
}

}  // namespace

void OptionButton::Create(Container& container, int id, const Place& place, std::wstring_view caption) {
  Parameters parameters = Prepare(container, id, place, BS_RADIOBUTTON | BS_NOTIFY | WS_TABSTOP);
  const std::wstring text(caption);
  parameters.text = text.c_str();
  CreateNative(L"BUTTON", parameters);
  SetTabStop(true);
  Finish();
}

bool OptionButton::Value() const { return Native(BM_GETCHECK) == BST_CHECKED; }

void OptionButton::SetValue(bool value) {
  if (Handle() == nullptr || value == Value()) return;
  if (value) {
    for (OptionButton* other : GroupOf(*this)) {
      if (other != this) other->SetValue(false);
    }
  }
  Native(BM_SETCHECK, value ? BST_CHECKED : BST_UNCHECKED);
  if (value && Click) Click();
}

bool OptionButton::IsReachable(const Control* leaving) const {
  if (!EventControl::IsReachable(leaving) || Value()) return EventControl::IsReachable(leaving);
  // One stop for the group: the selected button, or the first one while none is selected.
  for (const OptionButton* other : GroupOf(*this)) {
    if (!other->EventControl::IsReachable(leaving)) continue;
    if (other == this) continue;
    if (other->Value()) return false;
  }
  for (const OptionButton* other : GroupOf(*this)) {
    if (other->EventControl::IsReachable(leaving)) return other == this;
  }
  return true;
}

AccessibleDescription OptionButton::Describe() const {
  AccessibleDescription description = EventControl::Describe();
  description.role = ROLE_SYSTEM_RADIOBUTTON;
  description.state = AccessibleState() | (Value() ? STATE_SYSTEM_CHECKED : 0);
  return description;
}

bool OptionButton::AccessKeyPress(std::int16_t) {
  if (!EventControl::IsReachable()) return false;
  SetFocus();
  Choose();
  return true;
}

// What the user does, unlike SetValue, which is the program's own.
void OptionButton::Choose() {
  if (!TakesInput(OwnerForm())) return;
  if (!Value()) {
    SetValue(true);
  } else if (ChosenAgain) {
    ChosenAgain();
  }
}

bool OptionButton::MoveInGroup(WPARAM virtualKey) {
  const bool backwards = virtualKey == VK_LEFT || virtualKey == VK_UP;
  std::vector<OptionButton*> group;
  for (OptionButton* other : GroupOf(*this)) {
    if (other == this || other->EventControl::IsReachable()) group.push_back(other);
  }
  for (std::size_t i = 0; i < group.size(); ++i) {
    if (group[i] != this) continue;
    OptionButton* const next = group[(i + (backwards ? group.size() - 1 : 1)) % group.size()];
    next->SetFocus();
    next->Choose();
    return true;
  }
  return false;
}

void OptionButton::OnCommand(UINT notification) {
  // The system's option button reports a click when it only gets the focus. Passing by with Tab must not choose.
  if (notification == BN_CLICKED && !m_takingFocus) Choose();
}

LRESULT OptionButton::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message != WM_SETFOCUS) return EventControl::OnMessage(message, wParam, lParam);
  m_takingFocus = true;
  const LRESULT result = EventControl::OnMessage(message, wParam, lParam);
  m_takingFocus = false;
  return result;
}

void CheckBox::Create(Container& container, int id, const Place& place, std::wstring_view caption) {
  Parameters parameters = Prepare(container, id, place, BS_CHECKBOX | BS_TOP | BS_NOTIFY | WS_TABSTOP);
  const std::wstring text(caption);
  parameters.text = text.c_str();
  CreateNative(L"BUTTON", parameters);
  SetTabStop(true);
  Finish();
}

std::int16_t CheckBox::Value() const { return Native(BM_GETCHECK) == BST_CHECKED ? 1 : 0; }

void CheckBox::SetValue(std::int16_t value) {
  const std::int16_t wanted = value != 0 ? 1 : 0;
  if (Handle() == nullptr || wanted == Value()) return;
  Native(BM_SETCHECK, wanted == 1 ? BST_CHECKED : BST_UNCHECKED);
  if (Click) Click();
}

AccessibleDescription CheckBox::Describe() const {
  AccessibleDescription description = EventControl::Describe();
  description.role = ROLE_SYSTEM_CHECKBUTTON;
  description.state = AccessibleState() | (Value() != 0 ? STATE_SYSTEM_CHECKED : 0);
  return description;
}

bool CheckBox::AccessKeyPress(std::int16_t) {
  if (!IsReachable()) return false;
  SetFocus();
  SetValue(Value() == 0 ? 1 : 0);
  return true;
}

void CheckBox::OnCommand(UINT notification) {
  // The second of two quick clicks comes as a double click, and is a click all the same.
  if (notification == BN_CLICKED || notification == BN_DBLCLK) SetValue(Value() == 0 ? 1 : 0);
}

}  // namespace kvez::forms
