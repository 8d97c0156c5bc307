#pragma once

#include <windows.h>

#include "platform/windows/owned.h"

namespace kvez::forms {

/// The scaling functions that are newer than Windows 7 are looked up at run time; without them the whole system has one
/// scaling.
unsigned SystemDpi();
unsigned WindowDpi(HWND window);

/// The outer rectangle of a top-level window with `client` inside.
RECT OuterRectangle(const RECT& client, DWORD style, DWORD extendedStyle, unsigned dpi);

/// The user's font for messages at a scaling, of 9 points at most: the designs are made for them.
LOGFONTW MessageFont(unsigned dpi);

/// The scaling at which 9 points are as large as the user's font for messages is at `dpi`; `dpi` for a smaller one.
unsigned ScalingForMessageFont(unsigned dpi);

/// A system metric (GetSystemMetrics) at a scaling.
int SystemMetric(int index, unsigned dpi);

}  // namespace kvez::forms
