// Any bytes as the journal of a replacement, which others could have laid into the folder: it is refused, or all its
// names are those of files in its folder and writing it gives the same bytes.

#include <string>

#include "fuzz/require.h"
#include "tools/replacement_journal.h"

namespace kvez {
namespace {

bool StaysInItsFolder(const std::string& name) {
  return !name.empty() && name != "." && name != ".." && name.find('/') == std::string::npos;
}

void CheckJournal(const Bytes& bytes) {
  const ParsedJournal parsed = ParseJournal(bytes);
  if (!parsed.journal) return;
  for (const ReplacementJournal::Entry& entry : parsed.journal->entries) {
    for (const std::string* name : {&entry.name, &entry.temporary, &entry.kept}) {
      Require(StaysInItsFolder(*name), "a journal names files of its folder");
    }
  }
  Require(!parsed.isCut && JournalBytes(*parsed.journal) == bytes, "a journal has one form");
}

}  // namespace
}  // namespace kvez

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  kvez::CheckJournal(kvez::Bytes(data, data + size));
  return 0;
}
