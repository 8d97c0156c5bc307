#pragma once

#include <string_view>

namespace kvez {

/// A municipality's name as the name search compares it: without the number of a town part, Roman or decimal, and
/// without what follows a hyphen or a parenthesis. Takes and gives Windows-1250; the result is a front part of `name`.
std::string_view NormalisedName(std::string_view name);

}  // namespace kvez
