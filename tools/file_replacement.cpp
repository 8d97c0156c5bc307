// Replacing a set of files so that the folder holds the old set or the new one, whenever the process ends.

#include <algorithm>

#include "platform/durable_files.h"
#include "platform/portable/portable_path.h"
#include "text/utf8.h"
#include "tools/files.h"
#include "tools/replacement_journal.h"
#include "tools/tool.h"

namespace kvez {
namespace {

using durable::Answer;
using std::filesystem::path;
using JournalEntry = ReplacementJournal::Entry;
using State = ReplacementJournal::State;

constexpr const char* kJournalName = "kvezdata.journal";

std::string ShownFolder(const path& folder) { return folder.empty() ? "." : Shown(folder); }

[[noreturn]] void ThrowInUse(const path& folder) {
  throw ToolError("another kvezdata is writing into the folder " + ShownFolder(folder) + " just now");
}

/// An entry of the journal with its paths made: there may be no memory for that in the middle of the moving.
struct Entry {
  path name;
  path temporary;
  path kept;
  bool hadOld;
};

std::vector<Entry> EntriesOf(const ReplacementJournal& journal, const path& folder) {
  const auto inFolder = [&folder](const std::string& name) { return folder / PathFromText(FromUtf8(name).value()); };
  std::vector<Entry> entries;
  for (const JournalEntry& entry : journal.entries) {
    entries.push_back({inFolder(entry.name), inFolder(entry.temporary), inFolder(entry.kept), entry.hadOld});
  }
  return entries;
}

bool IsThere(const path& file) {
  const Answer answer = durable::Look(file);
  if (answer == Answer::No) throw ToolError(Shown(file) + " cannot be reached");
  return answer == Answer::Yes;
}

bool SetTime(const path& file, std::filesystem::file_time_type time) {
  std::error_code error;
  std::filesystem::last_write_time(file, time, error);
  return !error;
}

/// A replacement under way: its journal, held against other processes, and what the journal says.
class Replacement {
 public:
  explicit Replacement(path folder) : m_folder(std::move(folder)), m_journalPath(m_folder / kJournalName) {}

  /// Makes the journal. Nothing else has been done then.
  void Begin(const std::vector<NewFile>& files);
  /// Takes over what another process has left; false when there is nothing.
  bool TakeOver();

  void WriteNewFiles(const std::vector<NewFile>& files);
  /// Moves the new files to their names. Throws when one cannot be moved; the old ones are back then.
  void Move();
  /// Finishes or undoes, wherever the journal says that it stopped.
  void Finish();
  /// Removes what the replacement has made and nobody needs any more. False when something of it is left.
  bool CleanUp();
  /// The same after a failure, as long as nothing of it is still needed to put the old files back.
  void CleanUpIfUndone();

 private:
  void MoveEach();
  void PutBack();
  void Enter(State state);
  void KeepOld(const Entry& entry);
  bool PutBack(const Entry& entry);

  path m_folder;
  path m_journalPath;
  durable::HeldFile m_held;  // the journal
  State m_state = State::Preparing;
  std::vector<Entry> m_entries;
};

void Replacement::Begin(const std::vector<NewFile>& files) {
  ReplacementJournal journal;
  for (const NewFile& file : files) {
    if (file.path.filename() == kJournalName)
      throw ToolError(Shown(file.path) + " is a name that kvezdata needs itself");
    std::error_code error;
    const std::filesystem::file_type type = std::filesystem::status(file.path, error).type();
    if (type == std::filesystem::file_type::none) throw ToolError(Shown(file.path) + " cannot be reached");
    if (type != std::filesystem::file_type::regular && type != std::filesystem::file_type::not_found) {
      throw ToolError(Shown(file.path) + " is there already and is no file");
    }
    journal.entries.push_back({ToUtf8(TextFromPath(file.path.filename())), NewTemporaryName(kNewEnding),
                               NewTemporaryName(kOldEnding), IsThere(file.path)});
  }
  m_entries = EntriesOf(journal, m_folder);
  const Bytes bytes = JournalBytes(journal);
  const Answer made = m_held.Make(m_journalPath);
  if (made == Answer::NameIsTaken) ThrowInUse(m_folder);
  if (made == Answer::Yes && m_held.Write(0, bytes)) return;
  if (made == Answer::Yes) m_held.Remove();
  throw ToolError(Shown(files.front().path) + " cannot be written");
}

bool Replacement::TakeOver() {
  const Answer opened = m_held.Open(m_journalPath);
  if (opened == Answer::Missing) return false;
  if (opened == Answer::InUse) ThrowInUse(m_folder);
  const auto bytes = opened == Answer::Yes ? m_held.Read() : std::nullopt;
  if (!bytes) throw ToolError(Shown(m_journalPath) + ", left by a run that was interrupted, cannot be read");
  const ParsedJournal parsed = ParseJournal(*bytes);
  // One that was cut while it was made has no entries, and so nothing is cleaned up but itself.
  if (!parsed.journal && !parsed.isCut) {
    throw ToolError(Shown(m_journalPath) + " is not understood; remove it if it is not needed");
  }
  if (!parsed.journal) return true;
  m_state = parsed.journal->state;
  m_entries = EntriesOf(*parsed.journal, m_folder);
  return true;
}

void Replacement::WriteNewFiles(const std::vector<NewFile>& files) {
  for (std::size_t i = 0; i < files.size(); ++i) {
    if (durable::MakeFile(m_entries[i].temporary, files[i].bytes) != Answer::Yes) {
      throw ToolError(Shown(files[i].path) + " cannot be written");
    }
    if (files[i].time && !SetTime(m_entries[i].temporary, *files[i].time)) {
      throw ToolError(Shown(files[i].path) + " cannot be given its time");
    }
  }
  for (std::size_t i = 0; i < files.size(); ++i) {
    const Bytes back = ReadWholeFile(m_entries[i].temporary);
    if (back != files[i].bytes) throw ToolError(Shown(files[i].path) + " reads back other than it was written");
    if (files[i].check) files[i].check(back);
  }
  for (const Entry& entry : m_entries) KeepOld(entry);
  durable::FlushNames(m_folder);
}

void Replacement::KeepOld(const Entry& entry) {
  if (!entry.hadOld || durable::Link(entry.name, entry.kept)) return;
  std::error_code error;
  const auto time = std::filesystem::last_write_time(entry.name, error);
  if (error || durable::MakeFile(entry.kept, ReadWholeFile(entry.name)) != Answer::Yes || !SetTime(entry.kept, time)) {
    throw ToolError(Shown(entry.name) + " cannot be kept");
  }
}

void Replacement::Enter(State state) {
  const auto byte = static_cast<std::uint8_t>(state);
  if (!m_held.Write(kJournalStateOffset, {&byte, 1})) throw ToolError(Shown(m_journalPath) + " cannot be written");
  m_state = state;
}

void Replacement::Move() {
  if (m_state != State::Replacing) Enter(State::Replacing);
  try {
    MoveEach();
  } catch (...) {
    PutBack();
    throw;
  }
  durable::FlushNames(m_folder);
}

void Replacement::MoveEach() {
  for (const Entry& entry : m_entries) {
    // What a killed run had moved already is no longer under its temporary name.
    if (!IsThere(entry.temporary) || durable::Rename(entry.temporary, entry.name)) continue;
    throw ToolError(Shown(entry.name) + " cannot be replaced; perhaps another program uses it");
  }
}

void Replacement::PutBack() {
  if (m_state != State::PuttingBack) Enter(State::PuttingBack);
  for (const Entry& entry : m_entries) {
    if (PutBack(entry)) continue;
    throw ToolError(Shown(entry.name) + " cannot be put back yet; the next run will try again");
  }
  durable::FlushNames(m_folder);
  // What is left now is to be removed, and a file that somebody makes meanwhile is not to be put anywhere.
  Enter(State::Preparing);
}

bool Replacement::PutBack(const Entry& entry) {
  if (entry.hadOld) {
    // Moving a second name over the first one does nothing when they are the same file; it is removed later.
    return !IsThere(entry.kept) || durable::Rename(entry.kept, entry.name);
  }
  // Nothing had this name. The new file goes back to its temporary one, and is removed as such.
  return IsThere(entry.temporary) || !IsThere(entry.name) || durable::Rename(entry.name, entry.temporary);
}

void Replacement::Finish() {
  if (m_state == State::Replacing) Move();
  if (m_state == State::PuttingBack) PutBack();
}

void Replacement::CleanUpIfUndone() {
  if (m_state == State::Preparing) CleanUp();
}

bool Replacement::CleanUp() {
  bool isClean = true;
  for (const Entry& entry : m_entries) {
    for (const path* file : {&entry.temporary, &entry.kept}) isClean = durable::Remove(*file) && isClean;
  }
  return isClean && m_held.Remove();
}

path FolderOf(const std::vector<NewFile>& files) { return files.front().path.parent_path(); }

}  // namespace

void FinishReplacement(const path& folder) {
  Replacement replacement(folder);
  if (!replacement.TakeOver()) return;
  replacement.Finish();
  if (!replacement.CleanUp()) {
    throw ToolError(Shown(folder / kJournalName) + ", left by a run that was interrupted, cannot be removed");
  }
}

void ReplaceFiles(const std::vector<NewFile>& files) {
  const path folder = FolderOf(files);
  FinishReplacement(folder);
  Replacement replacement(folder);
  replacement.Begin(files);
  try {
    replacement.WriteNewFiles(files);
    replacement.Move();
  } catch (...) {
    replacement.CleanUpIfUndone();
    throw;
  }
  // What cannot be removed is left to the next replacement, like the journal that names it.
  replacement.CleanUp();
}

void ExpectNoReplacement(const path& folder) {
  // Looked at without holding it: several may look at once, and the folder may be a read-only one.
  const path journal = folder / kJournalName;
  if (durable::Look(journal) != Answer::Yes) return;
  const ParsedJournal parsed = ParseJournal(ReadWholeFile(journal));
  if (!parsed.journal || parsed.journal->state == State::Preparing) return;
  const std::vector<Entry> entries = EntriesOf(*parsed.journal, folder);
  const auto isToBeMoved = [](const Entry& entry) { return IsThere(entry.temporary); };
  if (parsed.journal->state == State::Replacing && std::none_of(entries.begin(), entries.end(), isToBeMoved)) return;
  throw ToolError("the files in the folder " + ShownFolder(folder) +
                  " are partly new and partly old; the command that was replacing them must run again");
}

}  // namespace kvez
