#include "bench/mspack_memory.h"

#include <mspack.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <vector>

namespace kvez::bench {
namespace {

// The library reads and writes through such functions; these give it memory instead of files.
struct MemoryFile {
  std::span<const std::uint8_t> input;
  std::vector<std::uint8_t>* output = nullptr;
  std::size_t position = 0;
};

struct MemorySystem {
  mspack_system system;  // first: the library hands this address back
  std::span<const std::uint8_t> input;
  std::vector<std::uint8_t>* output;
};

mspack_file* Open(mspack_system* self, const char*, int mode) {
  auto* memory = reinterpret_cast<MemorySystem*>(self);
  auto* file = new MemoryFile;
  if (mode == MSPACK_SYS_OPEN_READ) {
    file->input = memory->input;
  } else {
    file->output = memory->output;
  }
  return reinterpret_cast<mspack_file*>(file);
}

void Close(mspack_file* file) { delete reinterpret_cast<MemoryFile*>(file); }

int Read(mspack_file* handle, void* buffer, int bytes) {
  auto* file = reinterpret_cast<MemoryFile*>(handle);
  const std::size_t count = std::min(static_cast<std::size_t>(bytes), file->input.size() - file->position);
  std::memcpy(buffer, file->input.data() + file->position, count);
  file->position += count;
  return static_cast<int>(count);
}

int Write(mspack_file* handle, void* buffer, int bytes) {
  auto* file = reinterpret_cast<MemoryFile*>(handle);
  const auto* from = static_cast<const std::uint8_t*>(buffer);
  file->output->insert(file->output->end(), from, from + bytes);
  return bytes;
}

int Seek(mspack_file* handle, off_t offset, int mode) {
  auto* file = reinterpret_cast<MemoryFile*>(handle);
  const auto size = static_cast<off_t>(file->input.size());
  const off_t from = mode == MSPACK_SYS_SEEK_START ? 0
                     : mode == MSPACK_SYS_SEEK_END ? size
                                                   : static_cast<off_t>(file->position);
  const off_t target = from + offset;
  if (target < 0 || target > size) return 1;
  file->position = static_cast<std::size_t>(target);
  return 0;
}

off_t Tell(mspack_file* handle) { return static_cast<off_t>(reinterpret_cast<MemoryFile*>(handle)->position); }
void Message(mspack_file*, const char*, ...) {}
void* Allocate(mspack_system*, std::size_t bytes) { return std::malloc(bytes); }
void Free(void* memory) { std::free(memory); }
void Copy(void* from, void* to, std::size_t bytes) { std::memcpy(to, from, bytes); }

}  // namespace

std::size_t ExpandWithMspack(std::span<const std::uint8_t> file) {
  std::vector<std::uint8_t> output;
  MemorySystem memory{
      {&Open, &Close, &Read, &Write, &Seek, &Tell, &Message, &Allocate, &Free, &Copy, nullptr}, file, &output};
  msszdd_decompressor* decompressor = mspack_create_szdd_decompressor(&memory.system);
  if (decompressor == nullptr) return 0;
  decompressor->decompress(decompressor, "in", "out");
  mspack_destroy_szdd_decompressor(decompressor);
  return output.size();
}

}  // namespace kvez::bench
