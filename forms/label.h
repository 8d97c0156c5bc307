#pragma once

#include <string>
#include <string_view>

#include "forms/control.h"

namespace kvez::forms {

enum class Alignment { Left, Right, Center };

/// One line of text. One that is longer than its place ends in an ellipsis, and its tooltip is the whole text. Until
/// its first caption its window is hidden: it has nothing to show, and every window that is shown makes the form open
/// later. Afterwards it stays: hiding and showing it again takes longer than all else that a new caption does.
class Label : public EventControl {
 public:
  /// With `accessKey`, a "&" in the caption marks the key that moves the focus to the control after the label;
  /// without, every character is shown as it is.
  void Create(Container& container, int id, const Place& place, std::wstring_view caption = {},
              Alignment alignment = Alignment::Left, bool accessKey = false);

  std::wstring Caption() const;
  void SetCaption(std::wstring_view caption);

  /// Makes the label a live region, which screen readers say when Announce tells them to, wherever the focus is.
  void SetIsLiveRegion(bool liveRegion) { m_isLiveRegion = liveRegion; }
  /// Has the caption of a live region said, and `more` behind it. Until the next caption both are its name.
  void Announce(std::wstring_view more = {});

  std::wstring ShownToolTip() const override;
  AccessibleDescription Describe() const override;
  bool HasAccessKey(wchar_t character) const override;
  bool AccessKeyPress(std::int16_t KeyAscii) override;

 protected:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  bool m_accessKey = false;
  std::wstring m_announced;  // the caption with more; empty where it is the caption alone
  bool m_isLiveRegion = false;
  bool m_isKnownAsLive = false;  // to the system
};

}  // namespace kvez::forms
