#pragma once

#include <string>

#include "tests/support/program_driver.h"

namespace kvez::soak {

/// Searching by messages to the fields: thirty thousand searches by real keys would take hours.
void TypeSearch(const test::Program& program, const std::wstring& text);
void PostEnter(const test::Program& program);
/// Returns when the search is over.
void SearchFor(const test::Program& program, const std::wstring& text);

}  // namespace kvez::soak
