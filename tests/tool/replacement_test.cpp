// Replacing files: names of its own, and what becomes of a replacement that was killed.

#include "platform/durable_files.h"
#include "tests/tool/tool_test.h"
#include "tools/replacement_journal.h"

namespace kvez {
namespace {

using Entry = ReplacementJournal::Entry;
using State = ReplacementJournal::State;

class ReplacementTest : public ToolTest {
 protected:
  /// The next command that writes into the folder.
  ToolRun WriteAnother() {
    folder.Write("in", std::string("text"));
    return RunCommand({L"compress", Path(L"in"), Path(L"another")});
  }

  /// What a replacement of these files has left when it was killed in a state.
  void Leave(State state, const std::vector<Entry>& files) const {
    ReplacementJournal journal;
    journal.state = state;
    journal.entries = files;
    folder.Write("kvezdata.journal", JournalBytes(journal));
  }

  const std::string firstNew = "kvezdata-0000000000000001.new";
  const std::string firstOld = "kvezdata-0000000000000001.old";
  const std::string secondNew = "kvezdata-0000000000000002.new";
  const std::string secondOld = "kvezdata-0000000000000002.old";
  const std::vector<Entry> entries = {{"first", firstNew, firstOld, true}, {"second", secondNew, secondOld, false}};
};

// Names

TEST_F(ReplacementTest, FilesWithEndingsBehindTheTargetsNameAreLeftAlone) {
  folder.Write("report.new", std::string("input"));
  ExpectSuccess(RunCommand({L"expand", Path(L"report.new"), Path(L"report")}), "");
  EXPECT_EQ(folder.Read("report"), "input");
  EXPECT_EQ(folder.Read("report.new"), "input");
  folder.Write("out.new", std::string("somebody's"));
  EXPECT_EQ(RunCommand({L"expand", Path(L"missing"), Path(L"out")}).status, 1);
  EXPECT_EQ(folder.Read("out.new"), "somebody's");
  EXPECT_EQ(NamesIn(""), "out.new report report.new");
}

TEST_F(ReplacementTest, TargetMayNotHaveTheJournalsName) {
  folder.Write("in", std::string("text"));
  ExpectFailure(RunCommand({L"compress", Path(L"in"), Path(L"kvezdata.journal")}),
                Shown(L"kvezdata.journal") + " is a name that kvezdata needs itself");
  EXPECT_EQ(NamesIn(""), "in");
}

TEST_F(ReplacementTest, LongestNameCanBeReplaced) {
  const std::wstring name(250, L'x');
  folder.Write("in", std::string("text"));
  ExpectSuccess(RunCommand({L"expand", Path(L"in"), Path(name)}), "");
  ExpectSuccess(RunCommand({L"expand", Path(L"in"), Path(name)}), "");
}

// Killed

TEST_F(ReplacementTest, KilledBeforeTheFirstMoveIsUndone) {
  folder.Write("first", std::string("old"));
  folder.Write(firstNew, std::string("new"));
  folder.Write(firstOld, std::string("old"));
  folder.Write("kvezdata-0000000000000003.new", std::string("not in the journal"));
  Leave(State::Preparing, entries);
  ExpectSuccess(WriteAnother(), "");
  EXPECT_EQ(NamesIn(""), "another first in kvezdata-0000000000000003.new");
  EXPECT_EQ(folder.Read("first"), "old");
}

TEST_F(ReplacementTest, KilledBetweenTheMovesIsFinished) {
  folder.Write("first", std::string("new"));
  folder.Write(firstOld, std::string("old"));
  folder.Write(secondNew, std::string("also new"));
  Leave(State::Replacing, entries);
  ExpectSuccess(WriteAnother(), "");
  EXPECT_EQ(NamesIn(""), "another first in second");
  EXPECT_EQ(folder.Read("first"), "new");
  EXPECT_EQ(folder.Read("second"), "also new");
}

TEST_F(ReplacementTest, KilledWhileItPutBackIsUndone) {
  folder.Write("first", std::string("new"));
  folder.Write(firstOld, std::string("old"));
  folder.Write("second", std::string("also new"));
  Leave(State::PuttingBack, entries);
  ExpectSuccess(WriteAnother(), "");
  EXPECT_EQ(NamesIn(""), "another first in");
  EXPECT_EQ(folder.Read("first"), "old");
}

TEST_F(ReplacementTest, KilledWhileItMadeTheJournalHasDoneNothing) {
  ReplacementJournal journal;
  journal.entries = entries;
  const Bytes whole = JournalBytes(journal);
  folder.Write("first", std::string("old"));
  for (std::size_t length = 0; length < whole.size(); ++length) {
    folder.Write("kvezdata.journal", Bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length)));
    ExpectSuccess(WriteAnother(), "");
    EXPECT_EQ(NamesIn(""), "another first in") << length;
  }
}

TEST_F(ReplacementTest, BuildFinishesTheTablesItReads) {
  BuildFiles();
  folder.Write("data/" + firstNew, std::string("psc;obec;okres\n35002;Aš;Cheb\n"));
  ReplacementJournal journal;
  journal.state = State::Replacing;
  journal.entries = {{"obce.csv", firstNew, firstOld, true}};
  folder.Write("data/kvezdata.journal", JournalBytes(journal));
  EXPECT_EQ(RunCommand({L"build", Path(L"data"), Path(L"out")}).status, 0);
  EXPECT_EQ(NamesIn("data"), "obce.csv okresy.csv posty.csv");
  ExpectSuccess(RunCommand({L"list", Path(L"out"), L"municipalities"}), "35002;Aš;Cheb\n");
}

// Looking while files are replaced

TEST_F(ReplacementTest, MixedFilesAreNotLookedAt) {
  BuildFiles();
  const auto leave = [&](State state) {
    ReplacementJournal journal;
    journal.state = state;
    journal.entries = {{"vd1.kl_", firstNew, firstOld, true}};
    folder.Write("out/kvezdata.journal", JournalBytes(journal));
  };
  const auto expectRefused = [&](bool refused) {
    for (const std::vector<std::wstring>& command :
         std::vector<std::vector<std::wstring>>{{L"check", Path(L"out")},
                                                {L"list", Path(L"out"), L"districts"},
                                                {L"search", Path(L"out"), L"name", L"Cheb"}}) {
      const ToolRun run = RunCommand(command);
      EXPECT_EQ(run.error, refused ? "kvezdata: the files in the folder " + Shown(L"out") +
                                         " are partly new and partly old; the command that was replacing them must run "
                                         "again\n"
                                   : "");
    }
  };
  folder.Write("out/" + firstNew, std::string("new"));
  folder.Write("out/kvezdata.journal", std::string("kvezdata journ"));
  expectRefused(false);
  leave(State::Preparing);
  expectRefused(false);
  leave(State::Replacing);
  expectRefused(true);
  leave(State::PuttingBack);
  expectRefused(true);
  // All of them have been moved; only the old ones were not removed yet.
  std::filesystem::remove(folder.Path() / "out" / firstNew);
  leave(State::Replacing);
  expectRefused(false);
  leave(State::PuttingBack);
  expectRefused(true);
}

// What stands under the journal's name and is none of ours

TEST_F(ReplacementTest, OtherFileOfTheJournalsNameIsLeftAlone) {
  folder.Write("kvezdata.journal", std::string("a diary"));
  ExpectFailure(WriteAnother(), Shown(L"kvezdata.journal") + " is not understood; remove it if it is not needed");
  EXPECT_EQ(folder.Read("kvezdata.journal"), "a diary");
  EXPECT_EQ(NamesIn(""), "in kvezdata.journal");
}

TEST_F(ReplacementTest, JournalThatNamesOtherFilesIsNotFollowed) {
  const std::vector<Entry> forged = {{"../first", firstNew, firstOld, true},
                                     {"..", firstNew, firstOld, true},
                                     {".", firstNew, firstOld, true},
                                     {"", firstNew, firstOld, true},
                                     {"first", "second", firstOld, true},
                                     {"first", firstNew, "second", true},
                                     {"first", firstOld, firstNew, true},
                                     {"first", firstNew, "../" + firstOld, true},
                                     {"first", "kvezdata-000000000000000g.new", firstOld, true},
                                     {"first", "kvezdata-00000000000000001.new", firstOld, true},
                                     {"\xFF", firstNew, firstOld, true}};
  for (const Entry& entry : forged) {
    Leave(State::Replacing, {entry});
    ExpectFailure(WriteAnother(), Shown(L"kvezdata.journal") + " is not understood; remove it if it is not needed");
  }
  Bytes otherState = JournalBytes({State::Replacing, entries});
  otherState[kJournalStateOffset] = 'x';
  folder.Write("kvezdata.journal", otherState);
  EXPECT_EQ(WriteAnother().status, 1);
  Bytes neither = JournalBytes({State::Replacing, entries});
  neither[kJournalStateOffset + 2] = 'O';  // for "old"
  folder.Write("kvezdata.journal", neither);
  EXPECT_EQ(WriteAnother().status, 1);
  Bytes longer = JournalBytes({State::Replacing, entries});
  longer.push_back('x');
  folder.Write("kvezdata.journal", longer);
  EXPECT_EQ(WriteAnother().status, 1);
}

TEST_F(ReplacementTest, JournalSurvivesItsBytes) {
  const ReplacementJournal journal = {State::PuttingBack, entries};
  const Bytes bytes = JournalBytes(journal);
  const auto parsed = ParseJournal(bytes).journal;
  ASSERT_TRUE(parsed);
  EXPECT_EQ(JournalBytes(*parsed), bytes);
  EXPECT_EQ(bytes[kJournalStateOffset], 'b');
}

// Two at once

TEST_F(ReplacementTest, SecondProcessIsRefusedWhileTheFirstOneWrites) {
  durable::HeldFile held;
  ASSERT_EQ(held.Make(folder.Path() / "kvezdata.journal"), durable::Answer::Yes);
  const ToolRun run = WriteAnother();
  EXPECT_EQ(run.error, "kvezdata: another kvezdata is writing into the folder " + Shown(L"") + " just now\n");
  EXPECT_EQ(run.status, 1);
  EXPECT_TRUE(held.Remove());
  ExpectSuccess(WriteAnother(), "");
}

TEST_F(ReplacementTest, FolderThatOneStandsInIsAFullStop) {
  folder.Write("in", std::string("text"));
  const std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::current_path(folder.Path());
  durable::HeldFile held;
  const durable::Answer made = held.Make("kvezdata.journal");
  const ToolRun refused = RunCommand({L"expand", L"in", L"out"});
  held.Remove();
  const ToolRun next = RunCommand({L"expand", L"in", L"out"});
  std::filesystem::current_path(before);
  EXPECT_EQ(made, durable::Answer::Yes);
  EXPECT_EQ(refused.error, "kvezdata: another kvezdata is writing into the folder . just now\n");
  ExpectSuccess(next, "");
  EXPECT_EQ(folder.Read("out"), "text");
}

TEST_F(ReplacementTest, HeldFileIsOnesOwn) {
  const std::filesystem::path path = folder.Path() / "held";
  durable::HeldFile missing;
  EXPECT_EQ(missing.Open(path), durable::Answer::Missing);
  durable::HeldFile held;
  ASSERT_EQ(held.Make(path), durable::Answer::Yes);
  durable::HeldFile other;
  EXPECT_EQ(other.Make(path), durable::Answer::NameIsTaken);
  EXPECT_EQ(other.Open(path), durable::Answer::InUse);
  EXPECT_TRUE(held.Write(0, Bytes{1, 2, 3}));
  EXPECT_TRUE(held.Write(1, Bytes{9}));
  EXPECT_EQ(held.Read(), (Bytes{1, 9, 3}));
  held.LetGo();
  EXPECT_EQ(other.Open(path), durable::Answer::Yes);
  EXPECT_EQ(other.Read(), (Bytes{1, 9, 3}));
  EXPECT_TRUE(other.Remove());
  EXPECT_EQ(NamesIn(""), "");
}

TEST_F(ReplacementTest, NewFileTakesNobodysName) {
  const std::filesystem::path path = folder.Path() / "file";
  EXPECT_EQ(durable::MakeFile(path, Bytes{1}), durable::Answer::Yes);
  EXPECT_EQ(durable::MakeFile(path, Bytes{2}), durable::Answer::NameIsTaken);
  EXPECT_EQ(folder.Read("file"), "\x01");
  EXPECT_EQ(durable::MakeFile(folder.Path() / "no folder" / "file", Bytes{1}), durable::Answer::No);
  EXPECT_TRUE(durable::Link(path, folder.Path() / "second"));
  EXPECT_FALSE(durable::Link(path, folder.Path() / "second"));
  EXPECT_TRUE(durable::Remove(path));
  EXPECT_TRUE(durable::Remove(path));
  EXPECT_EQ(durable::Look(path), durable::Answer::Missing);
  EXPECT_EQ(folder.Read("second"), "\x01");
}

}  // namespace
}  // namespace kvez
