#pragma once

#include <vector>

#include "platform/version_information.h"

namespace kvez {

/// The version information in the running program's own file, read at the first question.
class WindowsVersionInformation : public VersionInformation {
 public:
  std::wstring LegalNotice() override { return Field(L"LegalCopyright"); }
  std::wstring ProductName() override { return Field(L"ProductName"); }
  std::wstring ProductVersion() override { return Field(L"ProductVersion"); }

 private:
  std::wstring Field(const wchar_t* name);
  void Read();

  bool m_isRead = false;
  std::vector<unsigned char> m_block;
};

}  // namespace kvez
