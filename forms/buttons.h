#pragma once

#include <cstdint>
#include <string_view>

#include "forms/control.h"

namespace kvez::forms {

/// One of several choices. The option buttons of one container are a group; all of them may be unselected by code. Tab
/// reaches the selected one, the arrow keys go round and select.
class OptionButton : public EventControl {
 public:
  /// `caption` may mark its access key with "&".
  void Create(Container& container, int id, const Place& place, std::wstring_view caption);

  bool Value() const;
  /// Selecting unselects the others of the group and raises Click when the button was not selected. Unselecting raises
  /// nothing.
  void SetValue(bool value);

  PlainEvent Click;
  /// The user has chosen the one that is selected already.
  PlainEvent ChosenAgain;

  bool AccessKeyPress(std::int16_t KeyAscii) override;
  bool IsReachable(const Control* leaving = nullptr) const override;
  AccessibleDescription Describe() const override;
  bool MoveInGroup(WPARAM virtualKey) override;
  void OnCommand(UINT notification) override;

 protected:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  void Choose();

  bool m_takingFocus = false;
};

/// Its square stands at the top: one as high as its row, centred on a lower text, would lose its upper edge.
class CheckBox : public EventControl {
 public:
  void Create(Container& container, int id, const Place& place, std::wstring_view caption);

  /// 0 clear, 1 ticked.
  std::int16_t Value() const;
  /// Raises Click when the value changes, as the user's click does. Every value but 0 counts as 1.
  void SetValue(std::int16_t value);

  PlainEvent Click;

  AccessibleDescription Describe() const override;
  bool AccessKeyPress(std::int16_t KeyAscii) override;
  void OnCommand(UINT notification) override;
};

}  // namespace kvez::forms
