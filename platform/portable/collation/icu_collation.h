#pragma once

#include <memory>

#include "platform/collation.h"

namespace kvez {

/// The order of a language, named as ICU names it. Throws std::runtime_error when ICU has none of its own.
std::unique_ptr<Collation> CreateIcuCollation(const char* language);

}  // namespace kvez
