#pragma once

#include <string>

#include "database/progress_window.h"
#include "database/result_rows.h"
#include "platform/formats.h"
#include "platform/output_platform.h"

namespace kvez {

/// Prints the rows on the default printer, with their progress in the window. The result cursor stays on the last
/// printed row. A printer that refuses prints nothing, silently.
void PrintList(const std::wstring& heading, ResultRows& rows, ProgressWindow& window, Formats& formats,
               const OutputPlatform& output);

}  // namespace kvez
