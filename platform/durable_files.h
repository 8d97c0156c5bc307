#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <vector>

/// Files that are replaced so that nobody ever finds half of one, whenever the process ends. Nothing here throws
/// anything but std::bad_alloc.
namespace kvez::durable {

using FilePath = std::filesystem::path;

enum class Answer {
  Yes,
  No,           // refused, for whatever reason
  NameIsTaken,  // something of that name is there already; it was not touched
  Missing,      // there is no such file
  InUse         // another process holds it
};

/// Makes a new file of these bytes and flushes it to the disk: Yes, NameIsTaken, or No; then nothing of it is left.
Answer MakeFile(const FilePath& file, std::span<const std::uint8_t> bytes);

/// Gives a file a second name that is not there yet. False where the file system knows no second names, too.
bool Link(const FilePath& file, const FilePath& secondName);

/// Moves a file to another name of the same folder, in place of the file there: at once or not at all.
bool Rename(const FilePath& from, const FilePath& to);

/// Removes a file. A missing one counts as removed.
bool Remove(const FilePath& file);

/// Whether there is anything of that name: Yes, Missing or No.
Answer Look(const FilePath& file);

/// Flushes what a folder says of its files to the disk, where the system can do that.
void FlushNames(const FilePath& folder);

/// A file that one process at a time holds, until it removes it or ends in whatever way.
class HeldFile {
 public:
  HeldFile() = default;
  ~HeldFile() { LetGo(); }
  HeldFile(const HeldFile&) = delete;
  HeldFile& operator=(const HeldFile&) = delete;

  /// Makes a new, empty file and holds it: Yes, NameIsTaken or No.
  Answer Make(const FilePath& file);
  /// Holds a file that is there: Yes, Missing, InUse or No.
  Answer Open(const FilePath& file);

  std::optional<std::vector<std::uint8_t>> Read();
  /// Writes from `offset` on and flushes.
  bool Write(std::size_t offset, std::span<const std::uint8_t> bytes);
  /// Removes the file and lets go of it. False when it cannot be removed.
  bool Remove();
  /// The file stays there.
  void LetGo();

 private:
#ifdef _WIN32
  void* m_file = nullptr;
#else
  int m_file = -1;
#endif
  FilePath m_path;
};

}  // namespace kvez::durable
