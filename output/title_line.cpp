#include "output/title_line.h"

#include "database/application.h"

namespace kvez {

std::wstring TitleLine(VersionInformation& version) {
  return std::wstring(kApplicationTitle) + L", " + version.LegalNotice();
}

}  // namespace kvez
