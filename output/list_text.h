#pragma once

#include <string>

#include "database/result_rows.h"
#include "platform/clock.h"
#include "platform/formats.h"
#include "platform/version_information.h"

namespace kvez {

/// The list text: the one form in which a list leaves the program as text, under a heading. It leaves the municipality
/// cursor on the last row.
std::wstring ListText(const std::wstring& heading, ResultRows& rows, Formats& formats, Clock& clock,
                      VersionInformation& version);

}  // namespace kvez
