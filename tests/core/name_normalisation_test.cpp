#include "database/name_normalisation.h"

#include <gtest/gtest.h>

#include <ostream>

namespace kvez {
namespace {

struct Case {
  const char* name;
  const char* normalised;
};

void PrintTo(const Case& tried, std::ostream* out) { *out << testing::PrintToString(tried.name); }

class NameNormalisation : public testing::TestWithParam<Case> {};

TEST_P(NameNormalisation, GivesThePartThatIsCompared) {
  EXPECT_EQ(NormalisedName(GetParam().name), GetParam().normalised);
}

INSTANTIATE_TEST_SUITE_P(RomanNumberAtTheEnd, NameNormalisation,
                         testing::Values(Case{"Praha IX", "Praha"}, Case{"Praha I", "Praha"}, Case{"Praha V", "Praha"},
                                         Case{"Praha X", "Praha"}, Case{"Nov\xE9 M\xECsto XIV", "Nov\xE9 M\xECsto"},
                                         // once a Roman letter has been seen, anything goes up to the space
                                         Case{"Lhota abX", "Lhota"}, Case{"Praha 2-IV", "Praha"},
                                         // the first step that changes the name gives the result
                                         Case{"Praha-Nov\xE9 M\xECsto II", "Praha-Nov\xE9 M\xECsto"}, Case{" X", ""}));

INSTANTIATE_TEST_SUITE_P(NoRomanNumber, NameNormalisation,
                         testing::Values(Case{"Praha ix", "Praha ix"},  // small letters are no Roman numbers
                                         Case{"Praha IC", "Praha IC"}, Case{"IX", "IX"}, Case{"XAVEROV", "XAVEROV"},
                                         Case{"I", "I"},
                                         // no space in front: this step leaves the name to the next ones
                                         Case{"Brno-XV", "Brno"}, Case{"Brno1X", "Brno"}));

INSTANTIATE_TEST_SUITE_P(RomanNumberBeforeAHyphen, NameNormalisation,
                         testing::Values(Case{"Praha IX-Let\xF2"
                                              "any",
                                              "Praha"},
                                         Case{"Hradec V-X-b", "Hradec"}, Case{"IX-mlyn", "IX"}));

INSTANTIATE_TEST_SUITE_P(Hyphen, NameNormalisation,
                         testing::Values(Case{"Brno-L\xED\x9A"
                                              "e\xF2",
                                              "Brno"},
                                         Case{"Praha-Bohnice (\xE8\xE1st)", "Praha"},
                                         Case{"Praha 4-Krc", "Praha 4"},  // the hyphen comes before the digit
                                         Case{"a-b-c", "a"}, Case{"-a", ""}, Case{"a-", "a"}, Case{"-", ""}));

INSTANTIATE_TEST_SUITE_P(Digit, NameNormalisation,
                         testing::Values(Case{"Praha 10", "Praha"}, Case{"Praha 1", "Praha"}, Case{"Kolin2", "Kolin"},
                                         // the digits are looked for from 1 to 9, so the 1 is found before the 2
                                         Case{"Lhota 2/1", "Lhota 2/"}, Case{"Lhota 2 a 1", "Lhota 2 a"},
                                         Case{"9 krizu 3", "9 krizu"}, Case{"Lhota 0", "Lhota 0"},
                                         Case{"Lhota 03", "Lhota 0"}, Case{"3 Dvory", ""}, Case{"Lhota  7", "Lhota "},
                                         // the digit comes before the parenthesis
                                         Case{"Lhota (u 5)", "Lhota (u"}));

INSTANTIATE_TEST_SUITE_P(Parenthesis, NameNormalisation,
                         testing::Values(Case{"Bohnice (\xE8\xE1st)", "Bohnice"}, Case{"Lhota(b)", "Lhot"},
                                         Case{"a (b) (c)", "a"}, Case{" (a)", ""}, Case{"(a)", ""}));

INSTANTIATE_TEST_SUITE_P(Unchanged, NameNormalisation,
                         testing::Values(Case{"", ""}, Case{"Praha", "Praha"},
                                         Case{"\xDA"
                                              "dol\xED nad Labem",
                                              "\xDA"
                                              "dol\xED nad Labem"},
                                         Case{" ", " "}, Case{"a)", "a)"}));

}  // namespace
}  // namespace kvez
