#pragma once

#include <cstdint>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

namespace kvez::test {

/// What a program file says about itself, read from its bytes: programs of the other processor too. Throws
/// std::runtime_error when the file is no program, and std::out_of_range when it points outside itself.
class PeFile {
 public:
  explicit PeFile(const std::filesystem::path& path);

  std::size_t Size() const { return m_bytes.size(); }
  bool Is64Bit() const { return m_64Bit; }
  std::uint16_t Machine() const { return Number16(m_header + 4); }
  std::uint16_t Characteristics() const { return Number16(m_header + 22); }
  std::uint16_t DllCharacteristics() const { return Number16(m_optional + 70); }
  std::uint16_t Subsystem() const { return Number16(m_optional + 68); }
  /// The oldest Windows that the loader lets it start on, major * 100 + minor: 601 for Windows 7.
  int SubsystemVersion() const { return Number16(m_optional + 48) * 100 + Number16(m_optional + 50); }

  /// Bytes of the relocations that let the loader put the program anywhere.
  std::uint32_t RelocationSize() const { return Number32(Directory(5) + 4); }

  /// "library function" each, the library in small letters. An import without a name is "library #number".
  std::set<std::string> Imports() const;
  /// The same for what comes into the process with the first call.
  std::set<std::string> DelayedImports() const;

  /// The bytes of the resource of this type with the number 1, as a text; empty when there is none.
  std::string Resource(std::uint32_t type) const;

 private:
  struct Section {
    std::string name;
    std::uint32_t address;
    std::uint32_t size;
    std::uint32_t offset;
  };

  std::uint16_t Number16(std::size_t offset) const;
  std::uint32_t Number32(std::size_t offset) const;
  std::string Text(std::size_t offset) const;
  std::size_t Directory(std::size_t index) const { return m_optional + (m_64Bit ? 112 : 96) + index * 8; }
  std::size_t OffsetOf(std::uint32_t address) const;
  bool IsLibraryName(std::uint32_t address) const;
  void AddFunctions(std::set<std::string>& found, std::uint32_t library, std::uint32_t names) const;
  std::size_t ResourceEntry(std::size_t folder, std::uint32_t id) const;

  std::vector<std::uint8_t> m_bytes;
  std::vector<Section> m_sections;
  std::size_t m_header = 0;
  std::size_t m_optional = 0;
  bool m_64Bit = false;
};

}  // namespace kvez::test
