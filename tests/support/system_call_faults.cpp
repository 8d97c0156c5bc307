#include "tests/support/system_call_faults.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <utility>

namespace kvez::test::system_calls {
namespace {

bool armed = false;
bool failed = false;
std::size_t target = 0;
std::size_t counted = 0;
Fault kind = Fault::Refuse;
std::size_t renamingsToRefusal = 0;
char description[512];
const char* namedCall = nullptr;
std::function<int()> atNamedCall;
int namedError = 0;

/// What a call can suffer besides being refused and killed.
enum class Call { Plain, Interruptible, Partial };

bool CanHappen(Call call) {
  switch (kind) {
    case Fault::Refuse:
    case Fault::Kill:
      return true;
    case Fault::Interrupt:
      return call != Call::Plain;
    case Fault::Part:
      return call == Call::Partial;
  }
  return false;
}

bool NamedCallIsToFail(const char* name) {
  if (namedCall == nullptr || std::strcmp(name, namedCall) != 0) return false;
  namedCall = nullptr;
  // It may name the next one.
  const std::function<int()> act = std::move(atNamedCall);
  namedError = act();
  return namedError != 0;
}

/// Whether this call is the one. A kill does not return.
bool IsToFail(const char* name, const char* detail, Call call) {
  if (NamedCallIsToFail(name)) return true;
  if (armed && renamingsToRefusal > 0) return std::strcmp(name, "rename") == 0 && --renamingsToRefusal == 0;
  if (!armed || !CanHappen(call) || ++counted != target) return false;
  if (kind == Fault::Kill) ::kill(::getpid(), SIGKILL);
  failed = true;
  std::snprintf(description, sizeof description, "%s(%s)", name, detail);
  return true;
}

int Errno(int refusal) {
  if (namedError != 0) return std::exchange(namedError, 0);
  return kind == Fault::Interrupt ? EINTR : refusal;
}

template <class Function>
Function* Real(Function*, const char* name) {
  return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

}  // namespace

void Arm(std::size_t failing, Fault fault) {
  target = failing;
  kind = fault;
  counted = 0;
  failed = false;
  description[0] = '\0';
  armed = true;
}

void ArmToKill(std::size_t refusal, std::size_t number) {
  renamingsToRefusal = refusal;
  Arm(number, Fault::Kill);
}

void AtNext(const char* name, std::function<int()> act) {
  namedError = 0;
  atNamedCall = std::move(act);
  namedCall = name;
}

std::size_t Disarm() {
  armed = false;
  namedCall = nullptr;
  return counted;
}

bool HasFailed() { return failed; }
std::string FailedCall() { return description; }

}  // namespace kvez::test::system_calls

using kvez::test::system_calls::Call;
using kvez::test::system_calls::Errno;
using kvez::test::system_calls::IsToFail;
using kvez::test::system_calls::kind;
using kvez::test::system_calls::Real;
using Fault = kvez::test::system_calls::Fault;

#define KVEZ_REAL(name) static auto* const real = Real(&::name, #name)

namespace {

template <class Result, class Act>
Result Perform(const char* name, const char* detail, Call call, int refusal, Act act) {
  if (!IsToFail(name, detail, call)) return act();
  errno = Errno(refusal);
  return static_cast<Result>(-1);
}

/// Reading or writing `count` bytes: `act` does it with as many as it is told.
template <class Act>
ssize_t Transfer(const char* name, std::size_t count, int refusal, Act act) {
  const bool isPart = kind == Fault::Part;
  // Of a single byte there is no part.
  if ((isPart && count < 2) || !IsToFail(name, "", Call::Partial)) return act(count);
  if (isPart) return act(std::max<std::size_t>(1, count / 2));
  errno = Errno(refusal);
  return -1;
}

mode_t ModeOf(int flags, va_list list) { return (flags & O_CREAT) != 0 ? va_arg(list, mode_t) : 0; }

}  // namespace

extern "C" {

int open(const char* path, int flags, ...) {
  KVEZ_REAL(open);
  va_list list;
  va_start(list, flags);
  const mode_t mode = ModeOf(flags, list);
  va_end(list);
  return Perform<int>("open", path, Call::Interruptible, EACCES, [&] { return real(path, flags, mode); });
}

FILE* fopen64(const char* path, const char* mode) {
  KVEZ_REAL(fopen64);
  if (!IsToFail("fopen", path, Call::Plain)) return real(path, mode);
  errno = EACCES;
  return nullptr;
}

int fclose(FILE* file) {
  KVEZ_REAL(fclose);
  const bool fails = IsToFail("fclose", "", Call::Plain);
  const int result = real(file);
  if (!fails) return result;
  errno = EIO;
  return EOF;
}

int close(int file) {
  KVEZ_REAL(close);
  // Whatever the answer is, the descriptor is gone.
  const bool fails = IsToFail("close", "", Call::Interruptible);
  const int result = real(file);
  if (!fails) return result;
  errno = Errno(EIO);
  return -1;
}

ssize_t read(int file, void* to, size_t count) {
  KVEZ_REAL(read);
  return Transfer("read", count, EIO, [&](size_t n) { return real(file, to, n); });
}

ssize_t pread(int file, void* to, size_t count, off_t offset) {
  KVEZ_REAL(pread);
  return Transfer("pread", count, EIO, [&](size_t n) { return real(file, to, n, offset); });
}

ssize_t write(int file, const void* from, size_t count) {
  KVEZ_REAL(write);
  return Transfer("write", count, ENOSPC, [&](size_t n) { return real(file, from, n); });
}

ssize_t pwrite(int file, const void* from, size_t count, off_t offset) {
  KVEZ_REAL(pwrite);
  return Transfer("pwrite", count, ENOSPC, [&](size_t n) { return real(file, from, n, offset); });
}

ssize_t writev(int file, const struct iovec* parts, int count) {
  KVEZ_REAL(writev);
  return Perform<ssize_t>("writev", "", Call::Interruptible, ENOSPC, [&] { return real(file, parts, count); });
}

int fsync(int) {
  // The disk itself is not flushed: a thousand times over it takes longer than everything else.
  return Perform<int>("fsync", "", Call::Interruptible, EIO, [] { return 0; });
}

int link(const char* from, const char* to) noexcept {
  KVEZ_REAL(link);
  return Perform<int>("link", to, Call::Plain, EPERM, [&] { return real(from, to); });
}

int unlink(const char* path) noexcept {
  KVEZ_REAL(unlink);
  return Perform<int>("unlink", path, Call::Plain, EACCES, [&] { return real(path); });
}

int rename(const char* from, const char* to) noexcept {
  KVEZ_REAL(rename);
  return Perform<int>("rename", to, Call::Plain, EACCES, [&] { return real(from, to); });
}

int utimensat(int folder, const char* path, const timespec* times, int flags) noexcept {
  KVEZ_REAL(utimensat);
  return Perform<int>("utimensat", path, Call::Plain, EPERM, [&] { return real(folder, path, times, flags); });
}

int mkdir(const char* path, mode_t mode) noexcept {
  KVEZ_REAL(mkdir);
  return Perform<int>("mkdir", path, Call::Plain, EACCES, [&] { return real(path, mode); });
}

int stat(const char* path, struct stat* status) noexcept {
  KVEZ_REAL(stat);
  return Perform<int>("stat", path, Call::Plain, EACCES, [&] { return real(path, status); });
}

int lstat(const char* path, struct stat* status) noexcept {
  KVEZ_REAL(lstat);
  return Perform<int>("lstat", path, Call::Plain, EACCES, [&] { return real(path, status); });
}

int fstat(int file, struct stat* status) noexcept {
  KVEZ_REAL(fstat);
  return Perform<int>("fstat", "", Call::Plain, EIO, [&] { return real(file, status); });
}

int flock(int file, int operation) noexcept {
  KVEZ_REAL(flock);
  return Perform<int>("flock", "", Call::Plain, ENOLCK, [&] { return real(file, operation); });
}

off64_t lseek64(int file, off64_t offset, int whence) noexcept {
  KVEZ_REAL(lseek64);
  return Perform<off64_t>("lseek", "", Call::Plain, EIO, [&] { return real(file, offset, whence); });
}
}
