// Any bytes as an expanded data file: the loading either takes all of it or nothing, and what it took is found by
// the searches as the plain searches of the tests find it.
//
// Input: a byte that says which of the three files it is, the length of a search text and the text in Windows-1250,
// then the file.

#include "fuzz/require.h"
#include "tests/core/loaded_database.h"
#include "tests/core/reference.h"
#include "text/error.h"

namespace kvez {
namespace {

using fakes::LoadedDatabase;

struct Input {
  int file = 0;
  std::wstring searched;
  fakes::Bytes bytes;
};

Input Split(std::span<const std::uint8_t> data) {
  Input input;
  if (data.size() < 2) return input;
  input.file = data[0] % 3 + 1;
  const std::size_t length = std::min<std::size_t>(data[1], data.size() - 2);
  input.searched = FromWindows1250(data.subspan(2, length));
  const auto rest = data.subspan(2 + length);
  input.bytes.assign(rest.begin(), rest.end());
  return input;
}

/// A little-endian number; nothing behind the end.
std::uint64_t NumberAt(const fakes::Bytes& bytes, std::uint64_t offset, unsigned width) {
  std::uint64_t value = 0;
  for (unsigned i = 0; i < width && offset + i < bytes.size(); ++i) {
    value |= static_cast<std::uint64_t>(bytes[static_cast<std::size_t>(offset + i)]) << (8 * i);
  }
  return value;
}

/// How many records the file has, or 0 when it does not end with a record.
std::int32_t RecordsOf(const Input& input) {
  const unsigned codeWidth = input.file == 3 ? 2 : 4;
  const int texts = input.file == 1 ? 2 : 1;
  std::uint64_t offset = 0;
  std::int32_t records = 0;
  for (; offset < input.bytes.size(); ++records) {
    offset += codeWidth;
    for (int i = 0; i < texts; ++i) offset += 2 + NumberAt(input.bytes, offset, 2);
  }
  return offset == input.bytes.size() ? records : 0;
}

void CheckNameSearch(LoadedDatabase& loaded, const std::wstring& searched) {
  std::vector<std::wstring> expected;
  for (std::int32_t n = 1; n <= loaded.database.pscCelkem(); ++n) {
    loaded.database.pscDetail(n);
    const std::wstring name = loaded.database.pscObec();
    if (searched.empty() || reference::IsRefused(searched)) continue;
    if (reference::Matches(reference::Normalised(name), searched)) expected.push_back(name);
  }
  loaded.database.pscVyberPostu(searched, loaded.list, loaded.description);
  Require(loaded.list.Texts() == expected, "the name search finds what the plain one finds");
}

void CheckOtherSearches(LoadedDatabase& loaded, const std::wstring& searched) {
  loaded.database.pscNajdiPSC(false, searched, loaded.list, loaded.description);
  try {
    loaded.database.pscNajdiPSC(true, searched, loaded.list, loaded.description);
  } catch (const ConversionError&) {
  }
  for (std::int32_t n = 1; n <= loaded.database.pscoCelkem(); ++n) {
    loaded.database.pscoDetail(n);
    loaded.database.pscoVyberPostu(loaded.list, loaded.description);
  }
}

void Check(const Input& input) {
  if (input.file == 0) return;
  LoadedDatabase loaded;
  fakes::AppendMunicipality(loaded.municipalityFile, 11000, L"Praha 1", L"Praha");
  fakes::AppendPostOffice(loaded.postOfficeFile, 11000, L"Praha 1");
  fakes::AppendDistrict(loaded.districtFile, 3100, L"Praha");
  fakes::Bytes* const files[] = {&loaded.municipalityFile, &loaded.postOfficeFile, &loaded.districtFile};
  *files[input.file - 1] = input.bytes;
  loaded.Load();

  const std::int32_t records = RecordsOf(input);
  Require(loaded.machine.messages.messages.size() == (records == 0 ? 1 : 0), "a message for a damaged file only");
  Require(loaded.database.pscCelkem() == (input.file == 1 ? records : 1), "all municipalities or none");
  Require(loaded.database.pscoCelkem() == (input.file == 3 ? records : 1), "all districts or none");
  Require(loaded.machine.disk.files.size() == 3, "no expanded file is left");

  CheckNameSearch(loaded, input.searched);
  CheckOtherSearches(loaded, input.searched);
  loaded.database.pscUvolniPamet(loaded.window);
  Require(loaded.database.pscCelkem() == 0, "a release empties the lists");
}

}  // namespace
}  // namespace kvez

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  kvez::Check(kvez::Split({data, size}));
  return 0;
}
