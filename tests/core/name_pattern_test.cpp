#include "database/name_pattern.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>

namespace kvez {
namespace {

struct Pattern {
  const wchar_t* typed;
  NameMode mode;
  const wchar_t* text;
  const wchar_t* right;
  const wchar_t* description;
};

void PrintTo(const Pattern& tried, std::ostream* out) { *out << testing::PrintToString(std::wstring(tried.typed)); }

class NamePatternOf : public testing::TestWithParam<Pattern> {};

TEST_P(NamePatternOf, ATypedText) {
  const auto pattern = ParseNamePattern(GetParam().typed);
  ASSERT_TRUE(pattern.has_value());
  EXPECT_EQ(pattern->mode, GetParam().mode);
  EXPECT_EQ(pattern->text, GetParam().text);
  EXPECT_EQ(pattern->right, GetParam().right);
  EXPECT_EQ(DescribeNamePattern(*pattern), GetParam().description);
}

INSTANTIATE_TEST_SUITE_P(
    Modes, NamePatternOf,
    testing::Values(Pattern{L"*raha*", NameMode::Contains, L"raha", L"", L"Název obsahuje \"raha\"."},
                    Pattern{L"*raha", NameMode::EndsWith, L"raha", L"", L"Název končí \"raha\"."},
                    Pattern{L"Praha*", NameMode::BeginsWith, L"Praha", L"", L"Název začíná \"Praha\"."},
                    Pattern{L"Pr*ha", NameMode::BeginsAndEndsWith, L"Pr", L"ha",
                            L"Název začíná \"Pr\" a končí \"ha\"."},
                    Pattern{L"Praha", NameMode::Whole, L"Praha", L"", L"Název obce \"Praha\"."}));

INSTANTIATE_TEST_SUITE_P(
    QuestionMarks, NamePatternOf,
    testing::Values(Pattern{L"?raha?", NameMode::Contains, L"raha", L"", L"Název obsahuje \"raha\"."},
                    Pattern{L"*raha?", NameMode::Contains, L"raha", L"", L"Název obsahuje \"raha\"."},
                    Pattern{L"?raha", NameMode::EndsWith, L"raha", L"", L"Název končí \"raha\"."},
                    Pattern{L"Praha?", NameMode::BeginsWith, L"Praha", L"", L"Název začíná \"Praha\"."},
                    Pattern{L"Pr?ha", NameMode::BeginsAndEndsWith, L"Pr", L"ha",
                            L"Název začíná \"Pr\" a končí \"ha\"."}));

// Only the first asterisk counts, or the first question mark where there is no asterisk; its place decides.
INSTANTIATE_TEST_SUITE_P(
    SeveralWildcards, NamePatternOf,
    testing::Values(
        Pattern{L"a*b*", NameMode::BeginsAndEndsWith, L"a", L"b*", L"Název začíná \"a\" a končí \"b*\"."},
        Pattern{L"a*b*c", NameMode::BeginsAndEndsWith, L"a", L"b*c", L"Název začíná \"a\" a končí \"b*c\"."},
        Pattern{L"*a*b", NameMode::EndsWith, L"a*b", L"", L"Název končí \"a*b\"."},
        Pattern{L"*a*b*", NameMode::Contains, L"a*b", L"", L"Název obsahuje \"a*b\"."},
        Pattern{L"?a*b", NameMode::BeginsAndEndsWith, L"?a", L"b", L"Název začíná \"?a\" a končí \"b\"."},
        Pattern{L"?a*b?", NameMode::BeginsAndEndsWith, L"?a", L"b?", L"Název začíná \"?a\" a končí \"b?\"."},
        Pattern{L"?a*", NameMode::Contains, L"a", L"", L"Název obsahuje \"a\"."},
        Pattern{L"a?b*", NameMode::BeginsWith, L"a?b", L"", L"Název začíná \"a?b\"."},
        Pattern{L"a**", NameMode::BeginsAndEndsWith, L"a", L"*", L"Název začíná \"a\" a končí \"*\"."},
        Pattern{L"**a", NameMode::EndsWith, L"*a", L"", L"Název končí \"*a\"."},
        Pattern{L"?a?b", NameMode::EndsWith, L"a?b", L"", L"Název končí \"a?b\"."}));

INSTANTIATE_TEST_SUITE_P(Shortest, NamePatternOf,
                         testing::Values(Pattern{L"a*", NameMode::BeginsWith, L"a", L"", L"Název začíná \"a\"."},
                                         Pattern{L"*a", NameMode::EndsWith, L"a", L"", L"Název končí \"a\"."},
                                         Pattern{L"***", NameMode::Contains, L"*", L"", L"Název obsahuje \"*\"."},
                                         Pattern{L"*a*", NameMode::Contains, L"a", L"", L"Název obsahuje \"a\"."},
                                         Pattern{L"a", NameMode::Whole, L"a", L"", L"Název obce \"a\"."}));

TEST(NamePatternRefused, WildcardsAlone) {
  for (const wchar_t* typed : {L"*", L"?", L"**", L"*?", L"?*", L"??"}) {
    EXPECT_EQ(ParseNamePattern(typed).has_value(), false) << typed;
  }
}

}  // namespace
}  // namespace kvez
