// Durable files by the calls of POSIX.

#include "platform/durable_files.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <utility>

namespace kvez::durable {
namespace {

constexpr mode_t kEverybodyAsMasked = 0666;

/// A call that a signal has interrupted is called again.
template <class Call>
auto Uninterrupted(Call call) {
  auto result = call();
  while (result == -1 && errno == EINTR) result = call();
  return result;
}

int OpenFile(const char* file, int flags) {
  return Uninterrupted([&] { return ::open(file, flags | O_CLOEXEC, kEverybodyAsMasked); });
}

class Descriptor {
 public:
  explicit Descriptor(int file) : m_file(file) {}
  ~Descriptor() { Close(); }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;

  int Get() const { return m_file; }
  // Whatever the answer is, the descriptor is gone; a second try could close another one.
  bool Close() { return m_file == -1 || ::close(std::exchange(m_file, -1)) == 0 || errno == EINTR; }

 private:
  int m_file;
};

bool WriteAll(int file, std::size_t offset, std::span<const std::uint8_t> bytes) {
  while (!bytes.empty()) {
    const ssize_t written =
        Uninterrupted([&] { return ::pwrite(file, bytes.data(), bytes.size(), static_cast<off_t>(offset)); });
    if (written <= 0) return false;
    bytes = bytes.subspan(static_cast<std::size_t>(written));
    offset += static_cast<std::size_t>(written);
  }
  return true;
}

bool Flush(int file) {
  // Some file systems have nothing to flush and say so.
  return Uninterrupted([&] { return ::fsync(file); }) == 0 || errno == EINVAL || errno == ENOSYS;
}

// Whether the name still leads to the open file: while it was waited for, its holder may have removed it.
bool IsStillNamed(int file, const FilePath& path) {
  struct stat opened {};
  struct stat named {};
  return ::fstat(file, &opened) == 0 && ::lstat(path.c_str(), &named) == 0 &&
         std::pair(opened.st_dev, opened.st_ino) == std::pair(named.st_dev, named.st_ino);
}

}  // namespace

Answer MakeFile(const FilePath& file, std::span<const std::uint8_t> bytes) {
  Descriptor made(OpenFile(file.c_str(), O_WRONLY | O_CREAT | O_EXCL));
  if (made.Get() == -1) return errno == EEXIST ? Answer::NameIsTaken : Answer::No;
  const bool written = WriteAll(made.Get(), 0, bytes) && Flush(made.Get());
  if (made.Close() && written) return Answer::Yes;
  ::unlink(file.c_str());
  return Answer::No;
}

bool Link(const FilePath& file, const FilePath& secondName) { return ::link(file.c_str(), secondName.c_str()) == 0; }

bool Rename(const FilePath& from, const FilePath& to) { return std::rename(from.c_str(), to.c_str()) == 0; }

bool Remove(const FilePath& file) { return ::unlink(file.c_str()) == 0 || errno == ENOENT; }

Answer Look(const FilePath& file) {
  struct stat status {};
  if (::lstat(file.c_str(), &status) == 0) return Answer::Yes;
  return errno == ENOENT || errno == ENOTDIR ? Answer::Missing : Answer::No;
}

void FlushNames(const FilePath& folder) {
  const Descriptor opened(OpenFile(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY));
  // Some file systems cannot, and then nothing can be done about it.
  if (opened.Get() != -1) Flush(opened.Get());
}

Answer HeldFile::Make(const FilePath& file) {
  m_file = OpenFile(file.c_str(), O_RDWR | O_CREAT | O_EXCL);
  if (m_file == -1) return errno == EEXIST ? Answer::NameIsTaken : Answer::No;
  m_path = file;
  // A file system without locks holds nothing; there, two processes at once are not told from one.
  if (::flock(m_file, LOCK_EX | LOCK_NB) == -1 && errno == EWOULDBLOCK) {
    LetGo();
    return Answer::NameIsTaken;
  }
  if (IsStillNamed(m_file, file)) return Answer::Yes;
  LetGo();
  return Answer::NameIsTaken;
}

Answer HeldFile::Open(const FilePath& file) {
  m_file = OpenFile(file.c_str(), O_RDWR | O_NOFOLLOW);
  if (m_file == -1) return errno == ENOENT || errno == ENOTDIR ? Answer::Missing : Answer::No;
  m_path = file;
  const bool inUse = ::flock(m_file, LOCK_EX | LOCK_NB) == -1 && errno == EWOULDBLOCK;
  if (!inUse && IsStillNamed(m_file, file)) return Answer::Yes;
  LetGo();
  return Answer::InUse;
}

std::optional<std::vector<std::uint8_t>> HeldFile::Read() {
  std::vector<std::uint8_t> bytes;
  std::array<std::uint8_t, 4096> block{};
  for (;;) {
    const ssize_t count =
        Uninterrupted([&] { return ::pread(m_file, block.data(), block.size(), static_cast<off_t>(bytes.size())); });
    if (count < 0) return std::nullopt;
    if (count == 0) return bytes;
    bytes.insert(bytes.end(), block.begin(), block.begin() + count);
  }
}

bool HeldFile::Write(std::size_t offset, std::span<const std::uint8_t> bytes) {
  return WriteAll(m_file, offset, bytes) && Flush(m_file);
}

bool HeldFile::Remove() {
  const bool removed = durable::Remove(m_path);
  LetGo();
  return removed;
}

void HeldFile::LetGo() {
  if (m_file != -1) ::close(std::exchange(m_file, -1));
}

}  // namespace kvez::durable
