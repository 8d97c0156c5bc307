#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace kvez::forms {

/// A text as a tooltip shows it in lines of `width`: words that are wider are broken, which the system would not do,
/// and of a text that no tooltip was made for the beginning is left, with an ellipsis. `measure` gives a text's width
/// in the same unit.
std::wstring FitToolTip(std::wstring_view text, int width, const std::function<int(std::wstring_view)>& measure);

}  // namespace kvez::forms
