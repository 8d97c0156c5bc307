#pragma once

#include <string>

namespace kvez {

/// Deletes what lies in the folders of the system's cache under the name of that file: a process that is ended in the
/// middle of a download leaves there what had come by then, a part that no entry of the cache leads to, and that nobody
/// else ever takes away. What another process is about to write stays.
void RemoveDownloadLeftovers(const std::wstring& fileName);

}  // namespace kvez
