#pragma once

#include "platform/text_files.h"

namespace kvez {

class WindowsTextFiles : public TextFiles {
 public:
  void Write(const std::wstring& path, std::wstring_view text) override;
};

}  // namespace kvez
