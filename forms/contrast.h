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

/// Whether the system's relief of a disabled text can be read on `face`: letters in `shadow`, clearly darker, with an
/// edge of `highlight`, which is lighter. In contrast themes both are lighter than a dark face, or darker than a light
/// one, and the letters are a blur.
bool MakesRelief(COLORREF face, COLORREF highlight, COLORREF shadow);

}  // namespace kvez::forms
