#pragma once

#include <windows.h>

#include <initializer_list>

namespace kvez::forms {

/// How far apart two colours are to the eye, from 1 for equal ones to 21 for black and white: the contrast ratio of the
/// guidelines for accessible web content.
double ContrastRatio(COLORREF first, COLORREF second);

/// True for a ratio of 7 at least, which the guidelines ask for where everybody shall read a text.
bool ReadsWell(COLORREF text, COLORREF background);

/// The first of `wishes` that reads well on `background`; the last one where none does.
COLORREF ReadableOn(COLORREF background, std::initializer_list<COLORREF> wishes);

}  // namespace kvez::forms
