// The ways out over rows that no database has found.
#include "output/hand_out.h"

#include <gmock/gmock.h>

#include <array>
#include <stdexcept>

#include "output/list_printing.h"
#include "tests/core/fakes.h"

namespace kvez {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class ResultRowsFake : public ResultRows {
 public:
  std::int32_t Count() const override { return count; }
  std::wstring CountSentence() const override { return L"Řádky."; }
  ResultRow Row(std::int32_t position) override {
    if (position < 1 || position > count) throw std::out_of_range("row");
    m_texts = {L"kód" + std::to_wstring(position), L"pošta", L"obec", L"okres"};
    return {m_texts[0], m_texts[1], m_texts[2], m_texts[3]};
  }
  void StandOn(std::int32_t position) override { stood.push_back(position); }

  std::int32_t count = 2;
  std::vector<std::int32_t> stood;

 private:
  std::array<std::wstring, 4> m_texts;
};

class HandOutOfRows : public testing::Test {
 protected:
  fakes::Machine machine;
  ResultRowsFake rows;
  HandOut handOut{rows, machine.messages, machine.formats, machine.output.Services()};
  fakes::ProgressWindowFake window;

  void Print() { PrintList(L"Nadpis", rows, window, machine.formats, machine.output.Services()); }
};

TEST_F(HandOutOfRows, TextHasARowForEach) {
  handOut.Copy(L"Nadpis");
  ASSERT_EQ(machine.output.clipboard.texts.size(), 1U);
  EXPECT_THAT(machine.output.clipboard.texts[0],
              HasSubstr(L"Nadpis\r\n\r\nPSČ ; POŠTA ; OBEC ; OKRES\r\n\r\nkód1 ; pošta ; obec ; okres\r\n"
                        L"kód2 ; pošta ; obec ; okres\r\n"));
  EXPECT_THAT(rows.stood, IsEmpty());
}

TEST_F(HandOutOfRows, PrintStandsOnEachRowInTurn) {
  Print();
  EXPECT_EQ(machine.output.printer.documents, 1);
  EXPECT_THAT(rows.stood, ElementsAre(1, 2));
  EXPECT_THAT(window.growing, ElementsAre(0.5F, 1.0F));
}

TEST_F(HandOutOfRows, RowsThatGoWhileTheyArePrintedLeaveHalfADocumentNowhere) {
  window.onProgress = [this] { rows.count = 0; };
  Print();
  EXPECT_EQ(machine.output.printer.documents, 0);
  EXPECT_EQ(machine.output.printer.discarded, 1);
  EXPECT_THAT(machine.messages.messages, IsEmpty());
}

// The session may end over whatever is shown meanwhile, and the rows with it. Then nobody is told anything any more.

TEST_F(HandOutOfRows, RowsThatGoBeforeThePrintBeginsAreNotPrinted) {
  machine.output.pendingMessages.onProcess = [this] { rows.count = 0; };
  Print();
  EXPECT_EQ(machine.output.printer.documents, 0);
  EXPECT_EQ(machine.output.printer.discarded, 0);
}

TEST_F(HandOutOfRows, RowsThatGoOverTheFolderDialogAreNotExported) {
  machine.output.folders.answers = {L"C:\\Data"};
  machine.output.folders.onBrowse = [this] { rows.count = 0; };
  handOut.Export(L"Nadpis");
  EXPECT_THAT(machine.output.textFiles.texts, IsEmpty());
  EXPECT_THAT(machine.messages.messages, IsEmpty());
}

TEST_F(HandOutOfRows, RowsThatGoBehindTheExportEndItInSilence) {
  machine.output.folders.answers = {L"C:\\Data"};
  machine.output.pendingMessages.onProcess = [this] { rows.count = 0; };
  handOut.Export(L"Nadpis");
  EXPECT_EQ(machine.output.textFiles.texts.count(L"C:\\Data\\vdkvez.txt"), 1U);
  EXPECT_THAT(machine.messages.messages, IsEmpty());
}

TEST_F(HandOutOfRows, RowsThatGoOverTheMailEndItInSilence) {
  machine.output.mail.result = 3;
  machine.output.mail.onSend = [this] { rows.count = 0; };
  handOut.Mail(L"Nadpis", L"D:\\Kvez");
  EXPECT_EQ(machine.output.mail.sent.size(), 1U);
  EXPECT_THAT(machine.messages.messages, IsEmpty());
}

TEST_F(HandOutOfRows, MailGoesIntoTheFolderThatIsNamed) {
  handOut.Mail(L"Nadpis", L"D:\\Kvez");
  EXPECT_EQ(machine.output.textFiles.texts.count(L"D:\\Kvez\\meil.txt"), 1U);
}

}  // namespace
}  // namespace kvez
