#pragma once

#include <filesystem>
#include <system_error>

#include "tests/support/program_driver.h"

namespace kvez::test {

/// Removes a file, or a folder with all in it, as soon as nobody else has it open: the desktop's own programs read a
/// shortcut that has just appeared. False when it stays open.
inline bool RemoveWhenFree(const std::filesystem::path& path) {
  return WaitUntil([&path] {
    std::error_code refused;
    std::filesystem::remove_all(path, refused);
    return !refused;
  });
}

}  // namespace kvez::test
