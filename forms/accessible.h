#pragma once

#include <windows.h>

#include <memory>
#include <optional>

namespace kvez::forms {

class Control;

/// EVENT_OBJECT_LIVEREGIONCHANGED of Windows 8, which the headers hide where a program runs on Windows 7 as well.
constexpr DWORD kLiveRegionChangedEvent = 0x8019;

/// Makes a window a live region: screen readers say its name when it changes, wherever the focus is, as soon as they
/// have nothing else to say. Nothing happens where the system cannot do it.
void MakeLiveRegion(HWND window);

/// Tells screen readers that the name of a live region is another one, or is to be said again.
void NotifyLiveRegionChanged(HWND window);

/// The answer to WM_GETOBJECT: the system's own description of the control, with what Control::Describe knows better.
/// Nothing when the system's own will do.
std::optional<LRESULT> AnswerGetObject(Control& control, const std::shared_ptr<Control*>& life, WPARAM wParam,
                                       LPARAM lParam);

}  // namespace kvez::forms
