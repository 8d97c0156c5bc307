// The list text and its three ways out.
#include <gmock/gmock.h>

#include <algorithm>
#include <memory>

#include "tests/core/loaded_database.h"
#include "text/windows1250.h"

namespace kvez {
namespace {

using fakes::LoadedDatabase;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using Message = fakes::MessageDialogFake::Message;

const std::wstring kHeading = L"Název začíná \"Ž\".";
const std::wstring kDiskette = L"Vložte prosím disketu.";
const std::wstring kDone = L"Export do souboru \"vdkvez.txt\" je dokončen.";

// Three municipalities of which two begin with Ž.
std::unique_ptr<LoadedDatabase> TwoFound() {
  auto loaded = std::make_unique<LoadedDatabase>(
      std::vector<LoadedDatabase::Municipality>{
          {79862, L"Želeč", L"Prostějov"}, {11000, L"Praha 1", L"Praha"}, {1000, L"Žďár", L"Mělník"}},
      std::vector<LoadedDatabase::Named>{{79862, L"Rozstání"}, {11000, L"Praha 1"}, {1000, L"Horní Počaply"}},
      std::vector<LoadedDatabase::Named>{{3100, L"Praha"}});
  loaded->database.pscVyberPostu(L"Ž*", loaded->list, loaded->description);
  loaded->machine.log.clear();
  return loaded;
}

std::wstring ListText(const std::wstring& rows) {
  return kHeading + L"\r\n\r\nPSČ ; POŠTA ; OBEC ; OKRES\r\n" + rows +
         L"\r\n\r\n\r\npondělí, 16.listopad 2026 00:50\r\n\r\n\r\nKvez, © Hora";
}

const std::wstring kTwoRows = L"\r\n798 62 ; Rozstání ; Želeč ; Prostějov\r\n010 00 ; Horní Počaply ; Žďár ; Mělník";

TEST(ListText, HasOneLinePerEntryBetweenHeaderAndDate) {
  const auto loaded = TwoFound();
  loaded->database.pClipboard(kHeading);
  EXPECT_THAT(loaded->machine.output.clipboard.texts, ElementsAre(ListText(kTwoRows)));
}

TEST(ListText, ShowsThreeEmptyLinesForAnEmptyResult) {
  const auto loaded = TwoFound();
  loaded->database.pscVyberPostu(L"X*", loaded->list, loaded->description);
  loaded->database.pscDetail(2);
  loaded->database.pClipboard(kHeading);
  EXPECT_THAT(loaded->machine.output.clipboard.texts, ElementsAre(ListText(L"")));
  EXPECT_EQ(loaded->database.pscObec(), L"Praha 1") << "the detail fields stay as they were";
}

TEST(ListText, ShowsEmptyRowsForMunicipalitiesThatAreReleasedAlready) {
  const auto loaded = TwoFound();
  loaded->window.onProgress = [&] { loaded->database.pClipboard(kHeading); };
  loaded->database.pscUvolniPamet(loaded->window);
  // Of the three municipalities the first is left when the progress is shown, and none when it is for the post offices.
  EXPECT_THAT(loaded->machine.output.clipboard.texts,
              ElementsAre(ListText(L"\r\n798 62 ; Rozstání ; Želeč ; Prostějov\r\n ;  ;  ; "),
                          ListText(L"\r\n ;  ;  ; \r\n ;  ;  ; ")));
}

TEST(ListText, WritesASeparatorWithinANameAsItStands) {
  LoadedDatabase loaded({{11000, L"Žár ; dolní \"konec\"", L"Praha"}}, {{11000, L"Praha"}}, {{3100, L"Praha"}});
  loaded.database.pscVyberPostu(L"Ž*", loaded.list, loaded.description);
  loaded.database.pClipboard(kHeading);
  EXPECT_EQ(loaded.machine.output.clipboard.texts.back(),
            ListText(L"\r\n110 00 ; Praha ; Žár ; dolní \"konec\" ; Praha"));
}

TEST(ListText, CarriesThePostOfficeOverWhereACodeHasNone) {
  LoadedDatabase loaded({{11000, L"Žár", L"Praha"}, {12000, L"Žír", L"Praha"}}, {{11000, L"Praha"}},
                        {{3100, L"Praha"}});
  loaded.database.pscVyberPostu(L"Ž*", loaded.list, loaded.description);
  loaded.database.pClipboard(kHeading);
  EXPECT_EQ(loaded.machine.output.clipboard.texts.back(),
            ListText(L"\r\n110 00 ; Praha ; Žár ; Praha\r\n120 00 ; Praha ; Žír ; Praha"));
}

TEST(ListText, LeavesTheDetailOnTheLastEntryAndTheResultCursorAlone) {
  const auto loaded = TwoFound();
  loaded->database.pDetail(1);
  loaded->database.pClipboard(kHeading);
  EXPECT_EQ(loaded->database.pscPozice(), 3);
  EXPECT_EQ(loaded->database.pscPSCObec(), L"010 00  Horní Počaply");
  EXPECT_EQ(loaded->database.pVybran(), L"1. záznam z 2");
}

TEST(Clipboard, TakesEachTextAfterTheOtherWithoutAMessage) {
  const auto loaded = TwoFound();
  loaded->database.pClipboard(kHeading);
  loaded->database.pClipboard(kHeading);
  EXPECT_THAT(loaded->machine.output.clipboard.texts, SizeIs(2));
  EXPECT_THAT(loaded->machine.messages.messages, IsEmpty());
}

TEST(Export, DoesNothingAtAllForAnEmptyResult) {
  const auto loaded = TwoFound();
  loaded->database.pscVyberPostu(L"X*", loaded->list, loaded->description);
  loaded->machine.log.clear();
  loaded->database.pExport(kHeading);
  EXPECT_THAT(loaded->machine.log, IsEmpty());
}

TEST(Export, AsksWritesLetsTheWindowsCatchUpAndSaysSo) {
  const auto loaded = TwoFound();
  loaded->machine.output.folders.answers = {L"C:\\Data"};
  loaded->database.pExport(kHeading);
  EXPECT_THAT(loaded->machine.log,
              ElementsAre(L"browse Zadejte cestu kam si přejete soubor uložit.", L"is directory C:\\Data",
                          L"write C:\\Data\\vdkvez.txt", L"pending messages", L"message"));
  EXPECT_EQ(loaded->machine.output.textFiles.texts[L"C:\\Data\\vdkvez.txt"], ListText(kTwoRows));
  EXPECT_THAT(loaded->machine.messages.messages, ElementsAre(Message{kDone, MessageIcon::Information, L"Kvez"}));
  EXPECT_EQ(loaded->database.pscObec(), L"Žďár") << "the detail fields describe the last entry";
}

TEST(Export, AddsNoSecondBackslashAtTheRootOfADrive) {
  const auto loaded = TwoFound();
  loaded->machine.output.folders.answers = {L"C:\\"};
  loaded->machine.output.folders.directory = L"C:\\";
  loaded->database.pExport(kHeading);
  EXPECT_EQ(loaded->machine.output.textFiles.texts.count(L"C:\\vdkvez.txt"), 1U);
}

TEST(Export, EndsQuietlyWhenTheFirstDialogIsCancelled) {
  const auto loaded = TwoFound();
  loaded->database.pExport(kHeading);
  EXPECT_THAT(loaded->machine.log, ElementsAre(L"browse Zadejte cestu kam si přejete soubor uložit."));
}

TEST(Export, AsksForADisketteAsOftenAsTheFolderIsNone) {
  const auto loaded = TwoFound();
  loaded->machine.output.folders.answers = {L"A:\\", L"B:\\", L"C:\\Data"};
  loaded->database.pExport(kHeading);
  const Message diskette{kDiskette, MessageIcon::Exclamation, L"Kvez"};
  EXPECT_THAT(loaded->machine.messages.messages,
              ElementsAre(diskette, diskette, Message{kDone, MessageIcon::Information, L"Kvez"}));
  EXPECT_EQ(loaded->machine.output.textFiles.texts.count(L"C:\\Data\\vdkvez.txt"), 1U);
}

TEST(Export, GoesOnWithThePathOfThePassBeforeWhenARepeatedDialogIsCancelled) {
  const auto loaded = TwoFound();
  loaded->machine.output.folders.answers = {L"A:\\", std::nullopt};
  loaded->database.pExport(kHeading);
  EXPECT_EQ(loaded->machine.output.textFiles.texts.count(L"A:\\vdkvez.txt"), 1U);
  EXPECT_THAT(loaded->machine.messages.messages, ElementsAre(Message{kDiskette, MessageIcon::Exclamation, L"Kvez"},
                                                             Message{kDone, MessageIcon::Information, L"Kvez"}));
}

TEST(Export, EndsQuietlyWhenOnlyAnItemWithoutAPathWasPicked) {
  const auto loaded = TwoFound();
  loaded->machine.output.folders.answers = {L"", std::nullopt};
  loaded->database.pExport(kHeading);
  EXPECT_THAT(loaded->machine.messages.messages, ElementsAre(Message{kDiskette, MessageIcon::Exclamation, L"Kvez"}));
  EXPECT_THAT(loaded->machine.output.textFiles.texts, IsEmpty());
}

TEST(Export, TakesAPathThatFillsTheWholeBufferUnseen) {
  const auto loaded = TwoFound();
  const std::wstring path = L"C:\\" + std::wstring(FolderDialog::kPathBufferLength - 3, L'x');
  loaded->machine.output.folders.answers = {path};
  loaded->database.pExport(kHeading);
  EXPECT_EQ(loaded->machine.output.textFiles.texts.count(path + L"\\vdkvez.txt"), 1U);
  EXPECT_EQ(std::count(loaded->machine.log.begin(), loaded->machine.log.end(), L"is directory " + path), 0);
}

TEST(Export, SaysThatItIsDoneEvenWhenTheFileWasRefused) {
  const auto loaded = TwoFound();
  loaded->machine.output.folders.answers = {L"C:\\Data"};
  loaded->machine.output.textFiles.refuses = true;
  loaded->database.pExport(kHeading);
  EXPECT_THAT(loaded->machine.messages.messages, ElementsAre(Message{kDone, MessageIcon::Information, L"Kvez"}));
}

TEST(Mail, SendsTheFileUnderTheHeading) {
  const auto loaded = TwoFound();
  loaded->database.pMail(kHeading);
  EXPECT_EQ(loaded->machine.output.textFiles.texts[L"C:\\Kvez\\meil.txt"], ListText(kTwoRows));
  EXPECT_THAT(loaded->machine.output.mail.sent,
              ElementsAre(fakes::MailClientFake::Sent{L";", L"C:\\Kvez\\meil.txt", kHeading}));
  EXPECT_THAT(loaded->machine.messages.messages, IsEmpty());
  EXPECT_THAT(loaded->machine.log, ElementsAre(L"write C:\\Kvez\\meil.txt", L"mail"));
}

TEST(Mail, SendsAnEmptyResultToo) {
  const auto loaded = TwoFound();
  loaded->database.pscVyberPostu(L"X*", loaded->list, loaded->description);
  loaded->database.pMail(kHeading);
  EXPECT_EQ(loaded->machine.output.textFiles.texts[L"C:\\Kvez\\meil.txt"], ListText(L""));
  EXPECT_THAT(loaded->machine.output.mail.sent, SizeIs(1));
}

TEST(Mail, DoublesTheBackslashAtTheRootOfADrive) {
  fakes::Machine machine;
  clspsc database(machine.Platform(), L"C:\\");
  database.pMail(kHeading);
  EXPECT_EQ(machine.output.mail.sent.at(0).files, L"C:\\\\meil.txt");
  EXPECT_EQ(machine.output.textFiles.texts.count(L"C:\\\\meil.txt"), 1U);
}

TEST(Mail, ShowsTheCodeOfAFailureInTheCaption) {
  const auto loaded = TwoFound();
  loaded->machine.output.mail.result = 26;
  loaded->database.pMail(kHeading);
  EXPECT_THAT(
      loaded->machine.messages.messages,
      ElementsAre(Message{L"Nastala chyba při pokusu o odeslání souboru e-mailem.", MessageIcon::Exclamation, L"26"}));
}

TEST(Mail, NeverCarriesAnOlderListWhenTheFileWasRefused) {
  const auto loaded = TwoFound();
  loaded->database.pMail(L"Starší seznam.");
  ASSERT_THAT(loaded->machine.output.mail.sent, SizeIs(1));
  loaded->machine.output.textFiles.refuses = true;
  loaded->database.pMail(kHeading);
  EXPECT_THAT(loaded->machine.output.mail.sent, SizeIs(1));
  EXPECT_THAT(
      loaded->machine.messages.messages,
      ElementsAre(Message{L"Nastala chyba při pokusu o odeslání souboru e-mailem.", MessageIcon::Exclamation, L"2"}));
}

TEST(TextFile, HasTheExactBytesOfWindows1250) {
  const auto loaded = TwoFound();
  loaded->database.pClipboard(kHeading);
  EXPECT_EQ(ToWindows1250(loaded->machine.output.clipboard.texts.back()),
            "N\xe1zev za\xe8\xedn\xe1 \"\x8e\".\r\n\r\n"
            "PS\xc8 ; PO\x8aTA ; OBEC ; OKRES\r\n\r\n"
            "798 62 ; Rozst\xe1n\xed ; \x8e"
            "ele\xe8 ; Prost\xecjov\r\n"
            "010 00 ; Horn\xed Po\xe8"
            "aply ; \x8e\xef\xe1r ; M\xecln\xedk\r\n\r\n\r\n"
            "pond\xecl\xed, 16.listopad 2026 00:50\r\n\r\n\r\n"
            "Kvez, \xa9 Hora");
}

}  // namespace
}  // namespace kvez
