#pragma once

#include <utility>

#include "platform/files.h"
#include "platform/windows/patience.h"

namespace kvez {

/// Files through the system. The date is asked for without opening the content, as somebody may be writing it.
class WindowsFiles : public Files {
 public:
  explicit WindowsFiles(Patience patience = {}) : m_patience(std::move(patience)) {}

  std::optional<std::vector<std::uint8_t>> Read(const std::wstring& path) override;
  std::optional<DateTime> LastWriteTime(const std::wstring& path) override;

 private:
  Patience m_patience;
};

}  // namespace kvez
