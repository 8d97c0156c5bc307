#include "tools/replacement_journal.h"

#include <algorithm>
#include <array>
#include <random>
#include <string_view>

#include "platform/portable/portable_path.h"
#include "text/utf8.h"

namespace kvez {
namespace {

// Fields are closed by a NUL, which no name of a file can have.
constexpr std::string_view kSignature{"kvezdata journal 1\0", 19};
constexpr std::string_view kHadOld = "old";
constexpr std::string_view kHadNone = "none";
constexpr std::string_view kEnd = "end";
constexpr std::string_view kTemporaryBeginning = "kvezdata-";
constexpr std::size_t kTemporaryDigits = 16;
constexpr std::string_view kHexDigits = "0123456789abcdef";

static_assert(kSignature.size() == kJournalStateOffset);

void AppendField(Bytes& bytes, std::string_view field) {
  bytes.insert(bytes.end(), field.begin(), field.end());
  bytes.push_back(0);
}

/// Takes the next field off; nothing when it is not closed.
std::optional<std::string> TakeField(std::string_view& text) {
  const std::size_t end = text.find('\0');
  if (end == std::string_view::npos) return std::nullopt;
  std::string field(text.substr(0, end));
  text.remove_prefix(end + 1);
  return field;
}

// Folders that others can write to may hold a journal of somebody else's making: it must not lead out of its folder.
bool IsPlainName(std::string_view name) {
  const auto text = FromUtf8(name);
  if (!text || text->empty() || name == "." || name == "..") return false;
  const std::filesystem::path path = PathFromText(*text);
  return path == path.filename();
}

bool IsTemporaryName(std::string_view name, std::string_view ending) {
  if (!name.starts_with(kTemporaryBeginning) || !name.ends_with(ending)) return false;
  name.remove_prefix(kTemporaryBeginning.size());
  return name.size() == kTemporaryDigits + ending.size() &&
         name.substr(0, kTemporaryDigits).find_first_not_of(kHexDigits) == std::string_view::npos;
}

bool IsSound(const ReplacementJournal::Entry& entry) {
  return IsPlainName(entry.name) && IsTemporaryName(entry.temporary, kNewEnding) &&
         IsTemporaryName(entry.kept, kOldEnding);
}

std::optional<ReplacementJournal::State> StateFrom(const std::string& field) {
  for (const auto state : {ReplacementJournal::State::Preparing, ReplacementJournal::State::Replacing,
                           ReplacementJournal::State::PuttingBack}) {
    if (field == std::string(1, static_cast<char>(state))) return state;
  }
  return std::nullopt;
}

}  // namespace

Bytes JournalBytes(const ReplacementJournal& journal) {
  Bytes bytes(kSignature.begin(), kSignature.end());
  AppendField(bytes, std::string_view(reinterpret_cast<const char*>(&journal.state), 1));
  for (const ReplacementJournal::Entry& entry : journal.entries) {
    AppendField(bytes, entry.hadOld ? kHadOld : kHadNone);
    for (const std::string* name : {&entry.name, &entry.temporary, &entry.kept}) AppendField(bytes, *name);
  }
  AppendField(bytes, kEnd);
  return bytes;
}

ParsedJournal ParseJournal(std::span<const std::uint8_t> bytes) {
  std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
  ParsedJournal parsed;
  if (!kSignature.starts_with(text.substr(0, kSignature.size()))) return parsed;
  parsed.isCut = true;
  if (text.size() < kSignature.size()) return parsed;
  text.remove_prefix(kSignature.size());

  ReplacementJournal journal;
  const auto state = TakeField(text);
  if (!state) return parsed;
  const auto known = StateFrom(*state);
  if (known) journal.state = *known;
  bool isSound = known.has_value();
  for (;;) {
    const auto first = TakeField(text);
    if (!first) return parsed;
    if (*first == kEnd) break;
    auto name = TakeField(text);
    auto temporary = TakeField(text);
    auto kept = TakeField(text);
    if (!kept) return parsed;
    journal.entries.push_back({std::move(*name), std::move(*temporary), std::move(*kept), *first == kHadOld});
    isSound = isSound && (*first == kHadOld || *first == kHadNone) && IsSound(journal.entries.back());
  }
  parsed.isCut = false;
  if (isSound && text.empty()) parsed.journal = std::move(journal);
  return parsed;
}

std::string NewTemporaryName(const char* ending) {
  std::random_device random;
  std::string name(kTemporaryBeginning);
  for (std::size_t i = 0; i < kTemporaryDigits; ++i) name.push_back(kHexDigits[random() % kHexDigits.size()]);
  return name + ending;
}

}  // namespace kvez
