#pragma once

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include "platform/portable/portable_path.h"

namespace kvez {

/// A folder of the test's own, with Czech letters and a blank in its name, removed with everything in it.
class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::random_device random;
    do {
      m_path = std::filesystem::temp_directory_path() / PathFromText(L"kvez žluťoučký " + std::to_wstring(random()));
    } while (!std::filesystem::create_directory(m_path));
  }
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(m_path, ignored);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  const std::filesystem::path& Path() const { return m_path; }

  void Write(const std::filesystem::path& name, const std::vector<std::uint8_t>& bytes) const {
    Write(name, std::string(bytes.begin(), bytes.end()));
  }
  void Write(const std::filesystem::path& name, const std::string& bytes) const {
    std::ofstream(m_path / name, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  }

  /// The bytes of a file; a missing one reads as "(missing)".
  std::string Read(const std::filesystem::path& name) const {
    std::ifstream stream(m_path / name, std::ios::binary);
    if (!stream) return "(missing)";
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
  }

 private:
  std::filesystem::path m_path;
};

}  // namespace kvez
