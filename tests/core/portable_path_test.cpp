#include "platform/portable/portable_path.h"

#include <gtest/gtest.h>

namespace kvez {
namespace {

TEST(PortablePath, TextsSurviveTheWayThereAndBack) {
  for (const std::wstring text : {L"", L"vd1.kl_", L"Žďár nad Sázavou", L"/tmp/kvez"}) {
    EXPECT_EQ(TextFromPath(PathFromText(text)), text);
  }
}

#ifndef _WIN32
// Where the backslash is a letter like others, the one that the core joins with becomes a separator.
TEST(PortablePath, LastBackslashBecomesASeparator) {
  EXPECT_EQ(PortablePath(L"/home/kvez\\vd1.kl_").native(), "/home/kvez/vd1.kl_");
  EXPECT_EQ(PortablePath(L"a\\b\\c").native(), "a\\b/c");
  EXPECT_EQ(PortablePath(L"a\\b/c").native(), "a\\b/c");
  EXPECT_EQ(PortablePath(L"vd1.kl_").native(), "vd1.kl_");
  EXPECT_EQ(PortablePath(L"\\").native(), "/");
}

TEST(PortablePath, NameThatIsNoUtf8KeepsItsLettersOfAscii) {
  EXPECT_EQ(TextFromPath(std::filesystem::path("/tmp/\xC8"
                                               "ern\xE1")),
            L"/tmp/\xFFFD"
            L"ern\xFFFD");
}
#endif

}  // namespace
}  // namespace kvez
