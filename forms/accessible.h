#pragma once

#include <windows.h>

#include <memory>
#include <optional>

namespace kvez::forms {

class Control;

/// Posted to a control whose default action a screen reader has triggered, so that its call returns at once even when
/// the action opens a message box.
constexpr UINT kDoDefaultActionMessage = WM_APP + 1;

/// The answer to WM_GETOBJECT: the system's own description of the control, with what Control::Describe knows better.
/// Nothing when the system's own will do.
std::optional<LRESULT> AnswerGetObject(Control& control, const std::shared_ptr<Control*>& life, WPARAM wParam,
                                       LPARAM lParam);

}  // namespace kvez::forms
