#pragma once

#include "platform/windows/owned.h"

namespace kvez {

/// The user's font for messages, made smaller where the widest date would be cut: the date panel has a fixed width.
OwnedFont StatusBarFont(unsigned dpi);

}  // namespace kvez
