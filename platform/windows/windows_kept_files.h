#pragma once

#include "platform/kept_files.h"

namespace kvez {

/// Kept files through the system.
class WindowsKeptFiles : public KeptFiles {
 public:
  bool Exists(const std::wstring& path) override;
  bool Copy(const std::wstring& from, const std::wstring& to) override;
  bool Move(const std::wstring& from, const std::wstring& to) override;
  bool Remove(const std::wstring& path) override;
};

}  // namespace kvez
