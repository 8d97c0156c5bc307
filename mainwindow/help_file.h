#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace kvez {

/// How many bytes of a file HasHelpFormat wants to see: its header with the table of sections.
inline constexpr std::size_t kHelpHeaderBytes = 256;

/// Whether a file that begins with these bytes and is so long is a compiled help, whole: its signature, and the length
/// that is stored in it.
bool HasHelpFormat(std::span<const std::uint8_t> beginning, std::uint64_t length);

/// Whether a file can be read and has that format. The viewer does nothing with anything else, or ends the program over
/// it.
bool HasHelpContent(const std::wstring& path);

/// The same for the help that the user has: hidden files, system files and folders do not count.
bool IsHelpFile(const std::wstring& path);

}  // namespace kvez
