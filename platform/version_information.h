#pragma once

#include <string>

namespace kvez {

/// What the program's file says about itself. A field that the file lacks is an empty text.
class VersionInformation {
 public:
  virtual ~VersionInformation() = default;

  virtual std::wstring LegalNotice() = 0;
  virtual std::wstring ProductName() = 0;
  virtual std::wstring ProductVersion() = 0;
};

}  // namespace kvez
