#pragma once

#include <string>

#include "platform/version_information.h"

namespace kvez {

/// The last line of the list text and of each printed page: the application title and the legal notice.
std::wstring TitleLine(VersionInformation& version);

}  // namespace kvez
