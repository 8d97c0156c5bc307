#pragma once

#include <string>

namespace kvez {

/// The time of day, with blanks in front up to 5 characters.
std::wstring TimePanelText(std::wstring time);

/// The date, centred by blanks in front as if in 21 characters; half a blank goes to the even neighbour. A longer
/// text stays as it is.
std::wstring DatePanelText(std::wstring date);

}  // namespace kvez
