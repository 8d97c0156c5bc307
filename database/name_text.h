#pragma once

#include <string>
#include <string_view>

namespace kvez {

/// A stored name as it is kept. Files come from anywhere, and a control character in a name would end the clipboard's
/// text, split a line of the list text or overlap the status bar: it reads as a blank. The result is `name` itself, or
/// a view of `copy` when the name had to change.
std::string_view WithoutControls(std::string_view name, std::string& copy);

}  // namespace kvez
