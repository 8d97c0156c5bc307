// What the shortcut class asks of the machine, step by step, on a machine of the test's own.
#include <gmock/gmock.h>

#include "settings/boolean_text.h"
#include "tests/windows/shortcut_fakes.h"
#include "text/error.h"

namespace kvez::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const std::wstring kLink = L"C:\\Plocha\\Kvez.lnk";

class ZastupceRules : public testing::Test {
 protected:
  clszastupce Shortcut() { return clszastupce({settings, shell, automation, L"D:\\Programy\\Kvez", L"kvez"}); }
  void Record(const std::wstring& wish) {
    settings.values[FakeSettingsStore::Path(L"VD", L"VDKVEZ", L"zástupce")] = wish;
  }

  FakeSettingsStore settings;
  FakeShell shell;
  FakeAutomation automation;
};

TEST_F(ZastupceRules, CreatingTakesTheDesignedSteps) {
  Shortcut().zZastupcePlocha(true);
  EXPECT_THAT(automation.steps,
              ElementsAre(L"create WScript.Shell", L"CreateShortcut(" + kLink + L")",
                          L"TargetPath=\"D:\\Programy\\Kvez\\kvez.exe\"", L"WorkingDirectory=\"D:\\Programy\\Kvez\"",
                          L"WindowStyle=4", L"IconLocation=\"D:\\Programy\\Kvez\\kvez.exe\"", L"Save()"));
  EXPECT_THAT(shell.folders, ElementsAre(0));
  EXPECT_THAT(settings.writes, ElementsAre(L"zástupce=True"));
}

// Inside, the scripting host is 8-bit.
TEST_F(ZastupceRules, PathsThatTheCodePageLosesGoPastTheScriptingHost) {
  const std::wstring japanese = L"D:\\日本";
  clszastupce({settings, shell, automation, japanese, L"kvez"}).zZastupcePlocha(true);
  shell.desktop = L"C:\\日本";
  Shortcut().zZastupcePlocha(true);
  EXPECT_THAT(automation.steps, IsEmpty());
  ASSERT_EQ(shell.links.size(), 2U);
  EXPECT_EQ(shell.links[0].path, kLink);
  EXPECT_EQ(shell.links[0].target, L"D:\\日本\\kvez.exe");
  EXPECT_EQ(shell.links[0].folder, japanese);
  EXPECT_EQ(shell.links[0].windowState, 4);
  EXPECT_EQ(shell.links[1].path, L"C:\\日本\\Kvez.lnk");
  EXPECT_THAT(settings.writes, ElementsAre(L"zástupce=True", L"zástupce=True"));
}

TEST_F(ZastupceRules, AnExistingShortcutIsSavedAnew) {
  shell.existing.insert(kLink);
  Shortcut().zZastupcePlocha(true);
  EXPECT_EQ(automation.steps.back(), L"Save()");
}

TEST_F(ZastupceRules, ARefusedPropertyIsSkipped) {
  for (const wchar_t* property : {L"TargetPath", L"WorkingDirectory", L"WindowStyle", L"IconLocation"}) {
    automation.refused = {property};
    automation.steps.clear();
    Shortcut().zZastupcePlocha(true);
    EXPECT_EQ(automation.steps.size(), 7u) << testing::PrintToString(property);
    EXPECT_EQ(automation.steps.back(), L"Save()") << testing::PrintToString(property);
  }
}

TEST_F(ZastupceRules, AFailureIsSilentAndTheWishIsRecordedAllTheSame) {
  for (const wchar_t* step : {L"WScript.Shell", L"CreateShortcut", L"Save"}) {
    automation.refused = {step};
    settings.writes.clear();
    Shortcut().zZastupcePlocha(true);
    EXPECT_THAT(settings.writes, ElementsAre(L"zástupce=True")) << testing::PrintToString(step);
  }
}

TEST_F(ZastupceRules, DeletingIsSilentAndRecordsFalse) {
  shell.existing.insert(kLink);
  Shortcut().zZastupcePlocha(false);
  EXPECT_THAT(shell.operations, ElementsAre(L"3|" + kLink + L"||20"));
  EXPECT_THAT(settings.writes, ElementsAre(L"zástupce=False"));
  EXPECT_THAT(automation.steps, IsEmpty());
}

TEST_F(ZastupceRules, DeletingNothingDoesNothingAndRecordsFalse) {
  Shortcut().zZastupcePlocha(false);
  EXPECT_THAT(shell.searches, ElementsAre(kLink));
  EXPECT_THAT(shell.operations, IsEmpty());
  EXPECT_THAT(settings.writes, ElementsAre(L"zástupce=False"));
}

TEST_F(ZastupceRules, ExistsExactlyWhenTheFileIsFound) {
  EXPECT_FALSE(Shortcut().zZastupcePlocha());
  shell.existing.insert(kLink);
  EXPECT_TRUE(Shortcut().zZastupcePlocha());
  EXPECT_THAT(settings.writes, IsEmpty());
}

TEST_F(ZastupceRules, WithoutADesktopTheLinkIsInTheRootOfTheCurrentDrive) {
  shell.desktop.clear();
  EXPECT_FALSE(Shortcut().zZastupcePlocha());
  EXPECT_THAT(shell.searches, ElementsAre(L"\\Kvez.lnk"));
  Shortcut().zZastupcePlocha(true);
  EXPECT_EQ(automation.steps.at(1), L"CreateShortcut(\\Kvez.lnk)");
}

TEST_F(ZastupceRules, TheWishDefaultsToFalse) {
  EXPECT_FALSE(Shortcut().zZastupceRegistr());
  Record(L"");
  EXPECT_FALSE(Shortcut().zZastupceRegistr());
}

TEST_F(ZastupceRules, TheWishIsReadBackAsItWasRecorded) {
  Shortcut().zZastupceRegistr(true);
  EXPECT_TRUE(Shortcut().zZastupceRegistr());
  Shortcut().zZastupceRegistr(false);
  EXPECT_FALSE(Shortcut().zZastupceRegistr());
  EXPECT_THAT(settings.writes, ElementsAre(L"zástupce=True", L"zástupce=False"));
  EXPECT_THAT(automation.steps, IsEmpty());
}

TEST_F(ZastupceRules, AnotherWishIsAConversionError) {
  for (const wchar_t* wish : {L"ano", L"Pravda", L"1", L" True", L"Truee"}) {
    Record(wish);
    EXPECT_THROW(Shortcut().zZastupceRegistr(), ConversionError) << testing::PrintToString(wish);
    EXPECT_THROW(Shortcut().zStop(), ConversionError) << testing::PrintToString(wish);
  }
  EXPECT_THAT(automation.steps, IsEmpty());
}

TEST_F(ZastupceRules, StopWithoutAWishNeverTouchesTheDesktop) {
  Record(L"False");
  Shortcut().zStop();
  EXPECT_THAT(shell.folders, IsEmpty());
  EXPECT_THAT(shell.searches, IsEmpty());
  EXPECT_THAT(automation.steps, IsEmpty());
  EXPECT_THAT(settings.writes, IsEmpty());
}

TEST_F(ZastupceRules, StopLeavesAnExistingShortcutAsItIs) {
  Record(L"True");
  shell.existing.insert(kLink);
  Shortcut().zStop();
  EXPECT_THAT(automation.steps, IsEmpty());
  EXPECT_THAT(settings.writes, IsEmpty());
}

TEST_F(ZastupceRules, StopPutsAWantedShortcutBack) {
  Record(L"True");
  Shortcut().zStop();
  EXPECT_EQ(automation.steps.back(), L"Save()");
  EXPECT_THAT(settings.writes, ElementsAre(L"zástupce=True"));
}

TEST(BooleanTexts, AreEnglishAndReadWithoutRegardToCase) {
  EXPECT_EQ(BooleanText(true), L"True");
  EXPECT_EQ(BooleanText(false), L"False");
  EXPECT_TRUE(BooleanFromText(L"TRUE"));
  EXPECT_FALSE(BooleanFromText(L"false"));
  EXPECT_THROW(BooleanFromText(L""), ConversionError);
}

}  // namespace
}  // namespace kvez::test
