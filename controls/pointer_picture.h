#pragma once

#include "platform/windows/owned.h"

namespace kvez {

/// The picture behind a Picture of the property bag, which knows no Windows header.
class PointerPicture : public OwnedIcon {
 public:
  using OwnedIcon::OwnedIcon;
};

}  // namespace kvez
