// Loaded before the other libraries of a process (LD_PRELOAD), it makes the disk faulty: what the process writes to
// files below the folder KVEZ_ALTERED_WRITES arrives with its first byte altered, and with KVEZ_REFUSED_RENAMES every
// renaming is refused.

#include <dlfcn.h>
#include <sys/uio.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

template <class Function>
Function* TheSystems(const char* name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

bool IsAltered(int descriptor) {
  const char* const folder = std::getenv("KVEZ_ALTERED_WRITES");
  if (folder == nullptr) return false;
  std::array<char, PATH_MAX> path{};
  const std::string link = "/proc/self/fd/" + std::to_string(descriptor);
  const ssize_t length = readlink(link.c_str(), path.data(), path.size());
  return length > 0 && std::string_view(path.data(), static_cast<std::size_t>(length)).starts_with(folder);
}

int RefuseOr(int (*rename)(const char*, const char*), const char* from, const char* to) {
  if (std::getenv("KVEZ_REFUSED_RENAMES") == nullptr) return rename(from, to);
  errno = EACCES;
  return -1;
}

}  // namespace

extern "C" {

ssize_t write(int descriptor, const void* bytes, std::size_t count) {
  const auto write = TheSystems<ssize_t(int, const void*, std::size_t)>("write");
  if (count == 0 || !IsAltered(descriptor)) return write(descriptor, bytes, count);
  std::string altered(static_cast<const char*>(bytes), count);
  altered.front() = static_cast<char>(~altered.front());
  return write(descriptor, altered.data(), count);
}

ssize_t pwrite(int descriptor, const void* bytes, std::size_t count, off_t offset) {
  const auto pwrite = TheSystems<ssize_t(int, const void*, std::size_t, off_t)>("pwrite");
  if (count == 0 || !IsAltered(descriptor)) return pwrite(descriptor, bytes, count, offset);
  std::string altered(static_cast<const char*>(bytes), count);
  altered.front() = static_cast<char>(~altered.front());
  return pwrite(descriptor, altered.data(), count, offset);
}

ssize_t writev(int descriptor, const iovec* pieces, int count) {
  if (!IsAltered(descriptor)) return TheSystems<ssize_t(int, const iovec*, int)>("writev")(descriptor, pieces, count);
  std::string bytes;
  for (int i = 0; i < count; ++i) bytes.append(static_cast<const char*>(pieces[i].iov_base), pieces[i].iov_len);
  return write(descriptor, bytes.data(), bytes.size());
}

int rename(const char* from, const char* to) noexcept {
  return RefuseOr(TheSystems<int(const char*, const char*)>("rename"), from, to);
}

}  // extern "C"
