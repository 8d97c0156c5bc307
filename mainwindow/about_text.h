#pragma once

#include <string>

namespace kvez {

/// What the About panel says about the program, its data and its licence. A trial, which was built without addresses of
/// its own, says so first.
std::wstring AboutText(bool trial);

}  // namespace kvez
