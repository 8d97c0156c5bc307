// Every command of the data tool with every failure in turn: each allocation and each call of the system fails once at
// each place, and the process is killed at each. Afterwards the command has said what it must, the folder holds the old
// files or the new ones, and a second try gives the same as ever.

#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <functional>
#include <iostream>
#include <map>
#include <ostream>
#include <regex>
#include <streambuf>

#include "tests/support/allocation_faults.h"
#include "tests/support/system_call_faults.h"
#include "tests/tool/tool_test.h"
#include "tools/program.h"

namespace kvez {
namespace {

using test::system_calls::Fault;
namespace allocation = test::allocation;
namespace system_calls = test::system_calls;

/// The files below a folder by their names.
using Tree = std::map<std::string, std::string>;

/// Made by the tool for itself: they may be left when a process was killed or could not remove them.
bool IsOwn(const std::string& name) {
  static const std::regex own(".*kvezdata(\\.journal|-[0-9a-f]{16}\\.(new|old))");
  return std::regex_match(name, own);
}

Tree TreeOf(const std::filesystem::path& folder) {
  Tree tree;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
    if (!entry.is_regular_file()) continue;
    std::ifstream stream(entry.path(), std::ios::binary);
    tree[entry.path().lexically_relative(folder).native()] = {std::istreambuf_iterator<char>(stream),
                                                              std::istreambuf_iterator<char>()};
  }
  return tree;
}

Tree WithoutOwn(Tree tree) {
  std::erase_if(tree, [](const auto& file) { return IsOwn(file.first); });
  return tree;
}

std::string NamesOf(const Tree& tree) {
  std::string names;
  for (const auto& [name, bytes] : tree) names += name + " (" + std::to_string(bytes.size()) + ") ";
  return names;
}

const std::string kObce =
    "psc;obec;okres\n35002;Cheb;Cheb\n11000;Staré Město;Hlavní město Praha\n60200;Žabovřesky;Brno-město\n";
const std::string kNewObce = "psc;obec;okres\n35002;Cheb;Cheb\n11000;Josefov;Hlavní město Praha\n";
const std::string kList =
    "NAZCOBCE;PSC;NAZPOST;KODOKRESU;NAZOKRESU;NAZOBCE\r\nCheb;35002;Cheb 2;3402;Cheb;Cheb\r\n"
    "Hradec;35002;Cheb 2;3402;Cheb;Hradec\r\n";

/// An output that needs no memory, because there may be none left when something has to be said.
class FixedOutput : public std::streambuf {
 public:
  FixedOutput() { setp(m_text, m_text + sizeof m_text); }
  std::string Text() const { return {pbase(), pptr()}; }

 private:
  char m_text[8192];
};

/// A folder with everything that the commands need, made anew for each failure.
class World {
 public:
  World() {
    std::filesystem::create_directory(folder.Path() / "data");
    folder.Write("data/obce.csv", kObce);
    folder.Write("data/posty.csv", std::string("psc;posta\n60200;Brno 2\n35002;Cheb 2\n11000;Praha 1\n"));
    folder.Write("data/okresy.csv", std::string("kod;okres\n3702;Brno-město\n3100;Hlavní město Praha\n3402;Cheb\n"));
    folder.Write("data/stav.txt", std::string("listopad 2024\n2024-11-01\n"));
    folder.Write("list.csv", kList);
  }

  std::wstring Path(const wchar_t* name) const { return TextFromPath(folder.Path() / PathFromText(name)); }

  /// The results go through a file, as the system's calls shall fail for them, too.
  ToolRun Run(const std::vector<std::wstring>& arguments, const std::function<void()>& arm = {},
              const std::function<void()>& disarm = {}) const {
    ToolRun run;
    const std::filesystem::path printed = output.Path() / "printed";
    std::ofstream out(printed, std::ios::binary | std::ios::trunc);
    FixedOutput errorText;
    std::ostream error(&errorText);
    if (arm) arm();
    run.status = RunTool(arguments, out, error);
    if (disarm) disarm();
    out.close();
    run.out = output.Read("printed");
    run.error = errorText.Text();
    return run;
  }

  TemporaryFolder folder;
  TemporaryFolder output;
};

struct ToolCommand {
  const char* name;
  std::function<void(const World&)> prepare;
  std::vector<const wchar_t*> arguments;  // the paths are names in the world's folder, marked by "@"

  std::vector<std::wstring> Arguments(const World& world) const {
    std::vector<std::wstring> texts;
    for (const std::wstring_view argument : arguments) {
      texts.push_back(argument.front() == L'@' ? world.Path(argument.data() + 1) : std::wstring(argument));
    }
    return texts;
  }
};

std::ostream& operator<<(std::ostream& stream, const ToolCommand& command) { return stream << command.name; }

void Nothing(const World&) {}

void Build(const World& world) { ASSERT_EQ(world.Run({L"build", world.Path(L"data"), world.Path(L"out")}).error, ""); }

void BuildThenChange(const World& world) {
  Build(world);
  world.folder.Write("data/obce.csv", kNewObce);
}

void CompressThenChange(const World& world) {
  ASSERT_EQ(world.Run({L"compress", world.Path(L"list.csv"), world.Path(L"packed")}).error, "");
  world.folder.Write("list.csv", kList + "other");
}

/// What a folder holds before and after a command, and what it prints.
struct Expected {
  Tree before;
  Tree after;
  std::string out;
};

class EveryToolFailure : public testing::TestWithParam<ToolCommand> {
 protected:
  EveryToolFailure() : m_expected(Expect(GetParam())) {}

  static Expected Expect(const ToolCommand& command) {
    World world;
    command.prepare(world);
    Expected expected;
    expected.before = TreeOf(world.folder.Path());
    const ToolRun run = world.Run(command.Arguments(world));
    EXPECT_EQ(run.error, "");
    EXPECT_EQ(run.status, 0);
    expected.after = TreeOf(world.folder.Path());
    expected.out = run.out;
    return expected;
  }

  bool IsOld(const Tree& tree) const { return WithoutOwn(tree) == m_expected.before; }
  bool IsNew(const Tree& tree) const { return WithoutOwn(tree) == m_expected.after; }

  /// The answer of a run in which something failed.
  void ExpectDesignedAnswer(const World& world, const ToolRun& run) const {
    const Tree tree = TreeOf(world.folder.Path());
    if (run.status == 0) {
      EXPECT_EQ(run.error, "");
      EXPECT_EQ(run.out, m_expected.out);
      EXPECT_TRUE(IsNew(tree)) << NamesOf(tree);
      return;
    }
    EXPECT_TRUE(m_mayFail) << run.error;
    EXPECT_EQ(run.status, 1);
    static const std::regex sentences(
        "kvezdata: (.* (cannot be (written|read|replaced; perhaps another program uses it|kept|made|reached|given its "
        "time)|"
        "reads back other than it was written|.* left by a run that was interrupted, cannot be read)|"
        "there is not enough memory|the output cannot be written(; the files are written)?|"
        "another kvezdata is writing into the folder .* just now|"
        "Soubor se seznamem (PSČ|podávacích pošt|okresů) je poškozen nebo neexistuje !)\n"
        "((.* cannot be read|Soubor se seznamem (podávacích pošt|okresů) je poškozen nebo neexistuje !)\n)*");
    EXPECT_TRUE(std::regex_match(run.error, sentences)) << run.error;
    const bool saysItIsDone = run.error.find("the files are written") != std::string::npos;
    EXPECT_TRUE(saysItIsDone ? IsNew(tree) : IsOld(tree)) << NamesOf(tree) << run.error;
  }

  /// A run with nothing failing, whatever an earlier one has left.
  void ExpectSameAsEver(const World& world) const {
    const ToolRun run = world.Run(GetParam().Arguments(world));
    EXPECT_EQ(run.error, "");
    EXPECT_EQ(run.out, m_expected.out);
    EXPECT_EQ(run.status, 0);
    const Tree tree = TreeOf(world.folder.Path());
    EXPECT_TRUE(tree == m_expected.after) << NamesOf(tree);
  }

  void LetEachFail(const char* what, const std::function<void(std::size_t)>& arm,
                   const std::function<bool(std::string&)>& disarm) {
    std::size_t number = 1;
    for (bool failed = true; failed && !HasFailure(); ++number) {
      World world;
      GetParam().prepare(world);
      std::string call;
      failed = false;
      const ToolRun run = world.Run(
          GetParam().Arguments(world), [&] { arm(number); }, [&] { failed = disarm(call); });
      SCOPED_TRACE(std::string(what) + " " + std::to_string(number) + " " + call);
      if (!failed) break;
      ExpectDesignedAnswer(world, run);
      ExpectSameAsEver(world);
    }
    EXPECT_TRUE(number > 1 || !m_mayFail);
  }

  /// A fault that must not show: whatever it happens to, the command ends as ever.
  void LetEachCallPass(const char* what, Fault fault) {
    m_mayFail = false;
    LetEachCallSuffer(what, fault);
  }

  void LetEachAllocationFail(const char* what, bool andLater) {
    LetEachFail(
        what, [andLater](std::size_t number) { allocation::Arm(number, andLater); },
        [](std::string&) {
          allocation::Disarm();
          return allocation::HasFailed();
        });
  }

  void LetEachCallSuffer(const char* what, Fault fault) {
    LetEachFail(
        what, [fault](std::size_t number) { system_calls::Arm(number, fault); },
        [](std::string& call) {
          system_calls::Disarm();
          call = system_calls::FailedCall();
          return system_calls::HasFailed();
        });
  }

  const Expected m_expected;
  bool m_mayFail = true;
};

TEST_P(EveryToolFailure, OfOneAllocation) { LetEachAllocationFail("allocation", false); }
TEST_P(EveryToolFailure, OfAllAllocationsFromOneOn) { LetEachAllocationFail("allocations from", true); }
TEST_P(EveryToolFailure, OfARefusedCall) { LetEachCallSuffer("refused call", Fault::Refuse); }
TEST_P(EveryToolFailure, OfAnInterruptedCallThatIsCalledAgain) {
  LetEachCallPass("interrupted call", Fault::Interrupt);
}
TEST_P(EveryToolFailure, OfACallThatDoesAPart) { LetEachCallPass("part of a call", Fault::Part); }

// Killed before call number `number`, or the first run ended well before it. With `refusal` the call of that number is
// refused first, and the count begins behind it.
bool IsKilled(const World& world, const std::vector<std::wstring>& arguments, std::size_t refusal, std::size_t number) {
  const pid_t process = ::fork();
  if (process == 0) {
    world.Run(arguments, [&] { system_calls::ArmToKill(refusal, number); });
    ::_exit(0);
  }
  int status = 0;
  while (::waitpid(process, &status, 0) == -1) {
  }
  EXPECT_TRUE(WIFSIGNALED(status) ? WTERMSIG(status) == SIGKILL : WEXITSTATUS(status) == 0);
  return WIFSIGNALED(status);
}

class EveryKill : public EveryToolFailure {
 protected:
  /// Whatever reads the folder finds the old files or the new ones, or is told that they are mixed. Then the next run
  /// finishes or undoes what the killed one has left.
  void ExpectOneSetInTheEnd(const World& world) const {
    const Tree tree = TreeOf(world.folder.Path());
    if (!IsOld(tree) && !IsNew(tree)) {
      EXPECT_TRUE(tree.contains("out/kvezdata.journal") || tree.contains("data/kvezdata.journal") ||
                  tree.contains("tables/kvezdata.journal"))
          << NamesOf(tree);
      if (tree.contains("out/kvezdata.journal")) {
        const ToolRun run = RunCommand({L"check", world.Path(L"out")});
        EXPECT_NE(run.error.find(" are partly new and partly old; "), std::string::npos) << run.error << run.out;
      }
    }
    ExpectSameAsEver(world);
  }

  /// Kills the command before its first call, its second, and so on; returns how many there are.
  std::size_t KillAtEachCall(std::size_t refusal) {
    for (std::size_t number = 1;; ++number) {
      SCOPED_TRACE("refused " + std::to_string(refusal) + ", killed before call " + std::to_string(number));
      const World world;
      GetParam().prepare(world);
      const bool wasKilled = IsKilled(world, GetParam().Arguments(world), refusal, number);
      ExpectOneSetInTheEnd(world);
      if (!wasKilled || HasFailure()) return number - 1;
    }
  }
};

TEST_P(EveryKill, LeavesOneSetOfFiles) { EXPECT_GT(KillAtEachCall(0), 10U); }

TEST_P(EveryKill, WhileTheOldFilesArePutBackLeavesOneSetOfFiles) {
  // Renaming is the only call that may be refused when some files have their new names already.
  for (std::size_t rename = 1; rename <= m_expected.after.size(); ++rename) {
    if (KillAtEachCall(rename) == 0 || HasFailure()) break;
  }
}

// Failures that come two at a time.

class ToolFailures : public testing::Test {
 protected:
  ToolFailures() { BuildThenChange(world); }
  ~ToolFailures() override { system_calls::Disarm(); }

  ToolRun BuildAgain() const { return world.Run({L"build", world.Path(L"data"), world.Path(L"out")}); }
  std::string Shown(const wchar_t* name) const { return ToUtf8(world.Path(name)); }

  World world;
};

TEST_F(ToolFailures, OldFileThatCanBeNeitherLinkedNorCopiedStays) {
  const Tree before = TreeOf(world.folder.Path());
  // Its time is read, the copy is made, and the copy is given that time.
  for (const char* call : {"stat", "open", "utimensat"}) {
    system_calls::AtNext("link", [call] {
      system_calls::AtNext(call, [] { return EACCES; });
      return EPERM;
    });
    EXPECT_EQ(BuildAgain().error, "kvezdata: " + Shown(L"out/vd1.kl_") + " cannot be kept\n") << call;
    EXPECT_TRUE(TreeOf(world.folder.Path()) == before) << call;
  }
}

TEST_F(ToolFailures, FileThatCannotBeGivenTheDayOfTheListIsNotGiven) {
  const Tree before = TreeOf(world.folder.Path());
  system_calls::AtNext("utimensat", [] { return EPERM; });
  EXPECT_EQ(BuildAgain().error, "kvezdata: " + Shown(L"out/vd1.kl_") + " cannot be given its time\n");
  EXPECT_TRUE(TreeOf(world.folder.Path()) == before);
}

TEST_F(ToolFailures, OldFileThatIsCopiedAndPutBackHasItsTime) {
  const std::filesystem::path file = world.folder.Path() / "out" / "vd1.kl_";
  const auto time = std::filesystem::last_write_time(file) - std::chrono::hours(1000);
  std::filesystem::last_write_time(file, time);
  system_calls::AtNext("link", [] {
    // The second file cannot be moved to its name, and the first one goes back.
    system_calls::AtNext("rename", [] {
      system_calls::AtNext("rename", [] { return EACCES; });
      return 0;
    });
    return EPERM;
  });
  EXPECT_EQ(BuildAgain().error,
            "kvezdata: " + Shown(L"out/vd2.kl_") + " cannot be replaced; perhaps another program uses it\n");
  EXPECT_EQ(std::filesystem::last_write_time(file), time);
}

TEST_F(ToolFailures, OldFileThatCannotBeLinkedIsCopied) {
  system_calls::AtNext("link", [] { return EPERM; });
  EXPECT_EQ(BuildAgain().error, "");
  EXPECT_TRUE(TreeOf(world.folder.Path()) == WithoutOwn(TreeOf(world.folder.Path())));
}

TEST_F(ToolFailures, NewFileThatCannotBeTakenBackIsTakenBackByTheNextRun) {
  // Tables that are not there yet: one has its name when the next is refused, and cannot go back.
  const auto import = [this] { return world.Run({L"import", world.Path(L"list.csv"), world.Path(L"tables")}); };
  system_calls::AtNext("rename", [] {
    system_calls::AtNext("rename", [] {
      system_calls::AtNext("rename", [] { return EACCES; });
      return EACCES;
    });
    return 0;
  });
  EXPECT_EQ(import().error,
            "kvezdata: " + Shown(L"tables/obce.csv") + " cannot be put back yet; the next run will try again\n");
  const Tree between = TreeOf(world.folder.Path());
  EXPECT_TRUE(between.contains("tables/obce.csv") && between.contains("tables/kvezdata.journal")) << NamesOf(between);
  // Somebody removes it meanwhile, or not.
  for (const bool isRemoved : {false, true}) {
    const TemporaryFolder copy;
    std::filesystem::copy(world.folder.Path() / "tables", copy.Path() / "tables");
    if (isRemoved) std::filesystem::remove(copy.Path() / "tables" / "obce.csv");
    const ToolRun run = RunCommand({L"import", world.Path(L"list.csv"), TextFromPath(copy.Path() / "tables")});
    EXPECT_EQ(run.error, "");
    EXPECT_EQ(NamesOf(TreeOf(copy.Path())), NamesOf(WithoutOwn(TreeOf(copy.Path()))));
  }
}

TEST_F(ToolFailures, JournalOfAKilledRunThatCannotBeRemovedIsSaid) {
  EXPECT_TRUE(IsKilled(world, {L"build", world.Path(L"data"), world.Path(L"out")}, 1, 1));
  system_calls::AtNext("unlink", [] { return EACCES; });
  EXPECT_EQ(BuildAgain().error, "kvezdata: " + Shown(L"out/kvezdata.journal") +
                                    ", left by a run that was interrupted, cannot be removed\n");
  EXPECT_EQ(BuildAgain().error, "");
}

TEST_F(ToolFailures, FolderThatOneStandsInIsGone) {
  const std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::create_directory(world.folder.Path() / "gone");
  std::filesystem::current_path(world.folder.Path() / "gone");
  std::filesystem::remove(world.folder.Path() / "gone");
  const ToolRun run = RunCommand({L"list", L"data", L"districts"});
  std::filesystem::current_path(before);
  EXPECT_EQ(run.error,
            "kvezdata: Soubor se seznamem PSČ je poškozen nebo neexistuje !\n"
            "Soubor se seznamem podávacích pošt je poškozen nebo neexistuje !\n"
            "Soubor se seznamem okresů je poškozen nebo neexistuje !\n");
}

TEST(ProgramFailure, ArgumentsWithoutMemory) {
  char name[] = "kvezdata";
  // Longer than what a text holds without memory of its own.
  char argument[] = "an argument that has more characters than a text holds by itself";
  char* values[] = {name, argument};
  FixedOutput text;
  std::streambuf* const error = std::cerr.rdbuf(&text);
  allocation::Arm(1, true);
  const int status = RunProgram(2, values);
  allocation::Disarm();
  std::cerr.rdbuf(error);
  EXPECT_EQ(text.Text(), "kvezdata: there is not enough memory\n");
  EXPECT_EQ(status, 1);
}

TEST(ProgramFailure, NoArgumentAtAll) {
  FixedOutput text;
  std::streambuf* const error = std::cerr.rdbuf(&text);
  const int status = RunProgram(0, nullptr);
  std::cerr.rdbuf(error);
  EXPECT_EQ(text.Text(), RunCommand({}).error);
  EXPECT_EQ(status, 1);
}

const ToolCommand kBuildAnew = {"BuildAnew", Nothing, {L"build", L"@data", L"@out"}};
const ToolCommand kBuildOver = {"BuildOver", BuildThenChange, {L"build", L"@data", L"@out"}};
const ToolCommand kCompareTables = {"Compare", Nothing, {L"compare", L"@data", L"@data"}};
const ToolCommand kImportAnew = {"ImportAnew", Nothing, {L"import", L"@list.csv", L"@tables"}};
const ToolCommand kImportOver = {"ImportOver", Nothing, {L"import", L"@list.csv", L"@data"}};
const ToolCommand kCompressAnew = {"CompressAnew", Nothing, {L"compress", L"@list.csv", L"@packed"}};
const ToolCommand kExpandOver = {"ExpandOver", CompressThenChange, {L"expand", L"@packed", L"@list.csv"}};
const ToolCommand kCheck = {"Check", Build, {L"check", L"@out", L"--strict"}};
const ToolCommand kListing = {"List", Build, {L"list", L"@out", L"offices"}};
const ToolCommand kSearch = {"Search", Build, {L"search", L"@out", L"name", L"*e*"}};

std::string NameOf(const testing::TestParamInfo<ToolCommand>& test) { return test.param.name; }

INSTANTIATE_TEST_SUITE_P(Tool, EveryToolFailure,
                         testing::Values(kBuildAnew, kBuildOver, kImportAnew, kImportOver, kCompareTables,
                                         kCompressAnew, kExpandOver, kCheck, kListing, kSearch),
                         NameOf);
INSTANTIATE_TEST_SUITE_P(Tool, EveryKill,
                         testing::Values(kBuildAnew, kBuildOver, kImportAnew, kImportOver, kCompressAnew, kExpandOver),
                         NameOf);

}  // namespace
}  // namespace kvez
