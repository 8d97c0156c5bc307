// What we compress, other people's expanders expand to the same bytes; what they compress, ours does.

#include <map>
#include <memory>
#include <ostream>
#include <random>

#include "platform/portable/szdd.h"
#include "tests/tool/process.h"
#include "tests/tool/tool_test.h"
#include "tools/files.h"

#ifdef _WIN32
#include <windows.h>

#include <lzexpand.h>
#endif
#ifdef KVEZ_HAS_LIBMSPACK
#include <mspack.h>
#endif

namespace kvez {
namespace {

struct Sample {
  const char* name;
  Bytes (*make)();
};

std::ostream& operator<<(std::ostream& stream, const Sample& sample) { return stream << sample.name; }

template <char number>
Bytes RealData() {
  return ExpandSzdd(ReadWholeFile(std::filesystem::path(KVEZ_DATA_FOLDER) / (std::string("vd") + number + ".kl_")))
      .bytes;
}

template <unsigned letters>
Bytes Random() {
  std::mt19937 generator(letters);
  Bytes bytes(30'000);
  for (auto& byte : bytes) byte = static_cast<std::uint8_t>('A' + generator() % letters);
  return bytes;
}

/// Distances of every size up to beyond the window: each block again after 4000 to 4200 bytes of something else.
Bytes FarRepetitions() {
  const Bytes noise = Random<200>();
  Bytes bytes;
  for (std::size_t gap = 4000; gap < 4200; gap += 10) {
    const auto block = noise.begin() + static_cast<std::ptrdiff_t>(gap);
    bytes.insert(bytes.end(), block, block + 18);
    bytes.insert(bytes.end(), noise.end() - static_cast<std::ptrdiff_t>(gap), noise.end());
    bytes.insert(bytes.end(), block, block + 18);
  }
  return bytes;
}

Bytes BlanksAndText() {
  Bytes bytes(4096, ' ');
  for (unsigned i = 0; i < 1000; ++i) {
    bytes.insert(bytes.end(), i % 30, ' ');
    bytes.push_back(static_cast<std::uint8_t>('a' + i % 26));
  }
  return bytes;
}

// mscompress spoils inputs shorter than its look-ahead, so that nothing compares with the first one.
constexpr Sample kSamples[] = {{"OneByte", [] { return Bytes{'x'}; }},
                               {"Municipalities", &RealData<'1'>},
                               {"PostOffices", &RealData<'2'>},
                               {"Districts", &RealData<'3'>},
                               {"Blanks", [] { return Bytes(10'000, ' '); }},
                               {"BlanksFirst", &BlanksAndText},
                               {"OneLetter", [] { return Bytes(10'000, 'x'); }},
                               {"TwoLetters", &Random<2>},
                               {"ThreeLetters", &Random<3>},
                               {"ManyLetters", &Random<190>},
                               {"FarRepetitions", &FarRepetitions}};

class SzddInterop : public testing::TestWithParam<Sample> {
 protected:
  SzddInterop() : plain(GetParam().make()) { folder.Write("vd_", Compressed()); }

  /// The sample compressed, once for all tests.
  const Bytes& Compressed() const {
    static std::map<std::string, Bytes> samples;
    Bytes& compressed = samples[GetParam().name];
    if (compressed.empty()) compressed = CompressSzdd(plain, 'n');
    return compressed;
  }

  /// That a file was expanded to the sample.
  void ExpectPlain(const std::string& name) {
    EXPECT_EQ(folder.Read(name) == std::string(plain.begin(), plain.end()), true) << name;
  }

  TemporaryFolder folder;
  Bytes plain;
};

TEST_P(SzddInterop, OwnExpander) {
  ASSERT_NE(plain, Bytes());
  EXPECT_EQ(ExpandSzdd(Compressed()).bytes == plain, true);
}

#ifdef _WIN32

TEST_P(SzddInterop, PlatformsLibrary) {
  OFSTRUCT information{};
  std::wstring source = (folder.Path() / "vd_").native();
  std::wstring target = (folder.Path() / "vd").native();
  const INT from = LZOpenFileW(source.data(), &information, OF_READ);
  const INT to = LZOpenFileW(target.data(), &information, OF_CREATE);
  EXPECT_EQ(LZCopy(from, to), static_cast<LONG>(plain.size()));
  LZClose(from);
  LZClose(to);
  ExpectPlain("vd");
}

#else

TEST_P(SzddInterop, Libmspack) {
#ifdef KVEZ_HAS_LIBMSPACK
  const std::string source = (folder.Path() / "vd_").native();
  const std::string target = (folder.Path() / "vd").native();
  const auto close = [](msszdd_decompressor* decompressor) { mspack_destroy_szdd_decompressor(decompressor); };
  const std::unique_ptr<msszdd_decompressor, decltype(close)> expander(mspack_create_szdd_decompressor(nullptr), close);
  ASSERT_NE(expander, nullptr);
  EXPECT_EQ(expander->decompress(expander.get(), source.c_str(), target.c_str()), MSPACK_ERR_OK);
  ExpectPlain("vd");
#else
  GTEST_SKIP() << "libmspack is not installed (package libmspack-dev).";
#endif
}

TEST_P(SzddInterop, Msexpand) {
#ifdef KVEZ_HAS_MSCOMPRESS
  EXPECT_EQ(RunProcess(L"msexpand " + Argument(folder.Path() / "vd_")).status, 0);
  ExpectPlain("vd");
#else
  GTEST_SKIP() << "msexpand is not installed (package mscompress).";
#endif
}

class SzddSize : public SzddInterop {};

TEST_P(SzddSize, IsNotAboveThatOfMscompress) {
#ifdef KVEZ_HAS_MSCOMPRESS
  folder.Write("plain", plain);
  EXPECT_EQ(RunProcess(L"mscompress " + Argument(folder.Path() / "plain")).status, 0);
  const Bytes theirs = ReadWholeFile(folder.Path() / "plain_");
  EXPECT_EQ(ExpandSzdd(theirs).error, "");
  EXPECT_EQ(ExpandSzdd(theirs).bytes == plain, true);
  EXPECT_LE(Compressed().size(), theirs.size());
#else
  GTEST_SKIP() << "mscompress is not installed (package mscompress).";
#endif
}

INSTANTIATE_TEST_SUITE_P(Samples, SzddSize, testing::ValuesIn(std::begin(kSamples) + 1, std::end(kSamples)),
                         [](const testing::TestParamInfo<Sample>& test) { return std::string(test.param.name); });

#endif

INSTANTIATE_TEST_SUITE_P(Samples, SzddInterop, testing::ValuesIn(kSamples),
                         [](const testing::TestParamInfo<Sample>& test) { return std::string(test.param.name); });

}  // namespace
}  // namespace kvez
