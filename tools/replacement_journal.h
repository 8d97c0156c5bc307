#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "tools/files.h"

namespace kvez {

/// What is known of a replacement of files, so that whoever comes after a killed run can finish or undo it. It is kept
/// in the folder for as long as the replacement takes.
struct ReplacementJournal {
  enum class State : char {
    Preparing = 'p',    // the old files are all there, whatever is there of the new ones
    Replacing = 'r',    // all new files are written; those still under their temporary names have yet to be moved
    PuttingBack = 'b',  // one could not be moved; the old files are being put back
  };

  /// All names are plain names of files in the journal's folder.
  struct Entry {
    std::string name;
    std::string temporary;  // the new file until it is moved to its name
    std::string kept;       // the old file, when there was one
    bool hadOld = false;
  };

  State state = State::Preparing;
  std::vector<Entry> entries;
};

/// Where the one byte of the state stands in the journal's bytes.
inline constexpr std::size_t kJournalStateOffset = 19;

Bytes JournalBytes(const ReplacementJournal& journal);

/// What became of reading a journal.
struct ParsedJournal {
  /// Nothing when it is no journal, is cut, or names anything but files that a replacement may touch. A cut one was
  /// just being written, and nothing else had been done yet.
  std::optional<ReplacementJournal> journal;
  bool isCut = false;
};

ParsedJournal ParseJournal(std::span<const std::uint8_t> bytes);

/// A name for a file of a replacement that no other file has, with `ending` behind it.
std::string NewTemporaryName(const char* ending);

inline constexpr const char* kNewEnding = ".new";
inline constexpr const char* kOldEnding = ".old";

}  // namespace kvez
