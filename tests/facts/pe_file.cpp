#include "tests/facts/pe_file.h"

#include <algorithm>
#include <cctype>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace kvez::test {
namespace {

constexpr std::uint32_t kImportDirectory = 1;
constexpr std::uint32_t kResourceDirectory = 2;
constexpr std::size_t kImportDescriptor = 20;
constexpr std::size_t kDelayDescriptor = 32;

std::string Small(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(),
                 [](unsigned char letter) { return static_cast<char>(std::tolower(letter)); });
  return text;
}

}  // namespace

PeFile::PeFile(const std::filesystem::path& path) {
  std::ifstream stream(path, std::ios::binary);
  if (!stream) throw std::runtime_error(path.string() + " is missing; ./kvez test builds it");
  m_bytes.assign(std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>());
  m_header = Number32(60);
  if (Text(m_header) != "PE") throw std::runtime_error(path.string() + " is no program");
  m_optional = m_header + 24;
  m_64Bit = Number16(m_optional) == 0x20B;
  const std::size_t first = m_optional + Number16(m_header + 20);
  for (std::size_t i = 0; i < Number16(m_header + 6); ++i) {
    const std::size_t at = first + 40 * i;
    m_sections.push_back({Text(at), Number32(at + 12), Number32(at + 16), Number32(at + 20)});
  }
}

std::uint16_t PeFile::Number16(std::size_t offset) const {
  return static_cast<std::uint16_t>(m_bytes.at(offset) | m_bytes.at(offset + 1) << 8);
}

std::uint32_t PeFile::Number32(std::size_t offset) const {
  return Number16(offset) | static_cast<std::uint32_t>(Number16(offset + 2)) << 16;
}

std::string PeFile::Text(std::size_t offset) const {
  std::string text;
  while (m_bytes.at(offset) != 0) text.push_back(static_cast<char>(m_bytes[offset++]));
  return text;
}

std::size_t PeFile::OffsetOf(std::uint32_t address) const {
  for (const Section& section : m_sections) {
    if (address >= section.address && address < section.address + section.size) {
      return address - section.address + section.offset;
    }
  }
  throw std::out_of_range("an address lies in no section");
}

void PeFile::AddFunctions(std::set<std::string>& found, std::uint32_t library, std::uint32_t names) const {
  const std::string prefix = Small(Text(OffsetOf(library))) + " ";
  const std::size_t width = m_64Bit ? 8 : 4;
  for (std::size_t at = OffsetOf(names); Number32(at) != 0; at += width) {
    const bool byNumber = (Number32(at + width - 4) & 0x80000000U) != 0;
    // A name stands behind two bytes of a hint.
    found.insert(prefix + (byNumber ? "#" + std::to_string(Number16(at)) : Text(OffsetOf(Number32(at)) + 2)));
  }
}

std::set<std::string> PeFile::Imports() const {
  std::set<std::string> found;
  std::size_t at = OffsetOf(Number32(Directory(kImportDirectory)));
  for (; Number32(at + 12) != 0; at += kImportDescriptor) AddFunctions(found, Number32(at + 12), Number32(at));
  return found;
}

bool PeFile::IsLibraryName(std::uint32_t address) const {
  const auto inside = [address](const Section& section) {
    return address >= section.address && address < section.address + section.size;
  };
  if (std::none_of(m_sections.begin(), m_sections.end(), inside)) return false;
  const std::string name = Small(Text(OffsetOf(address)));
  return name.size() > 4 && (name.ends_with(".dll") || name.ends_with(".drv"));
}

std::set<std::string> PeFile::DelayedImports() const {
  // The linker does not enter the descriptors into the directory meant for them (the calls know theirs without it), so
  // they are looked for: the attribute 1, then the address of a library's name.
  std::set<std::string> found;
  for (const Section& section : m_sections) {
    const std::size_t end = section.offset + section.size;
    for (std::size_t at = section.offset; at + kDelayDescriptor <= end; at += 4) {
      if (Number32(at) == 1 && IsLibraryName(Number32(at + 4)))
        AddFunctions(found, Number32(at + 4), Number32(at + 16));
    }
  }
  return found;
}

std::size_t PeFile::ResourceEntry(std::size_t folder, std::uint32_t id) const {
  const unsigned named = Number16(folder + 12);
  const unsigned numbered = Number16(folder + 14);
  for (std::size_t i = named; i < named + numbered; ++i) {
    const std::size_t entry = folder + 16 + 8 * i;
    if (Number32(entry) == id) return Number32(entry + 4) & 0x7FFFFFFFU;
  }
  return 0;
}

std::string PeFile::Resource(std::uint32_t type) const {
  // Folders of types, of numbers, of languages; the first language will do.
  const std::size_t root = OffsetOf(Number32(Directory(kResourceDirectory)));
  const std::size_t numbers = ResourceEntry(root, type);
  const std::size_t languages = numbers == 0 ? 0 : ResourceEntry(root + numbers, 1);
  if (languages == 0) return {};
  const std::size_t data = root + Number32(root + languages + 16 + 4);
  const auto begin = m_bytes.begin() + static_cast<std::ptrdiff_t>(OffsetOf(Number32(data)));
  return {begin, begin + static_cast<std::ptrdiff_t>(Number32(data + 4))};
}

}  // namespace kvez::test
