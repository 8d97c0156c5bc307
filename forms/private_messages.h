#pragma once

#include <windows.h>

namespace kvez::forms {

// The messages that windows of this layer post to themselves. All of them stand here: no two share a number.

/// Posted to a control whose default action a screen reader has triggered, so that its call returns at once even when
/// the action opens a message box.
inline constexpr UINT kDoDefaultActionMessage = WM_APP + 1;

/// Posted by a list box to itself when it was emptied and nobody has filled it since.
inline constexpr UINT kDrawNowMessage = WM_APP + 2;

}  // namespace kvez::forms
