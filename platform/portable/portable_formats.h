#pragma once

#include "platform/formats.h"

namespace kvez {

/// The pictures in Czech, on any machine.
///
/// Numbers know the places "0" and "#" and the group sign ","; dates know d, dd, dddd, m, mm, mmmm, yy, yyyy, H, HH,
/// and m, mm after an hour as minutes. A backslash takes the next character as it stands, and so does every character
/// that is no sign of the picture. A date of which nothing is known gives an empty text.
class PortableFormats : public Formats {
 public:
  std::wstring Number(std::int32_t value, std::wstring_view picture) override;
  std::wstring Date(const DateTime& value, std::wstring_view picture) override;
};

}  // namespace kvez
