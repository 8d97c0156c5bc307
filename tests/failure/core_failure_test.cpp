// Every operation of the database with every failure in turn: each allocation and each call of the machine fails once
// at each place. Afterwards the answer is the designed one, and a second try with nothing failing gives the same as
// ever.

#include <gtest/gtest.h>

#include <functional>
#include <ostream>

#include "tests/failure/scene.h"

namespace kvez {
namespace {

using test::CallFault;
using test::kDistricts;
using test::kMunicipalities;
using test::kOffices;
using test::Scene;
using test::Seen;
namespace allocation = test::allocation;

/// What came of a run in which something failed.
struct Outcome {
  bool noMemory = false;  // std::bad_alloc reached the caller
  bool refused = false;   // std::runtime_error did
};

struct Operation {
  const char* name;
  std::function<void(Scene&)> prepare;
  std::function<void(Scene&)> run;
  std::function<void(Scene&, const Outcome&)> expect;
  std::function<void(Scene&)> beforeEachRun = [](Scene&) {};
};

std::ostream& operator<<(std::ostream& stream, const Operation& operation) { return stream << operation.name; }

// The designed answers.

const std::vector<std::wstring> kDamaged = {L"Soubor se seznamem PSČ je poškozen nebo neexistuje !",
                                            L"Soubor se seznamem podávacích pošt je poškozen nebo neexistuje !",
                                            L"Soubor se seznamem okresů je poškozen nebo neexistuje !"};

/// Each list is there as a whole, or empty and its message was shown.
void ExpectWholeOrEmptyLists(Scene& scene, const Outcome& outcome) {
  EXPECT_FALSE(outcome.noMemory);
  EXPECT_FALSE(outcome.refused);
  clspsc& database = scene.database;
  std::vector<std::wstring> messages;
  const auto expect = [&](std::size_t list, std::size_t size, std::int32_t whole) {
    EXPECT_TRUE(size == 0 || size == static_cast<std::size_t>(whole)) << list << ": " << size;
    if (size == 0) messages.push_back(kDamaged[list]);
  };
  expect(0, database.Municipalities().size(), kMunicipalities);
  expect(1, database.PostOffices().size(), kOffices);
  expect(2, database.Districts().size(), kDistricts);
  std::vector<std::wstring> shown;
  for (const auto& message : scene.machine.real.messages.messages) shown.push_back(message.text);
  EXPECT_EQ(shown, messages);
  EXPECT_EQ(database.pscCelkem(), static_cast<std::int32_t>(database.Municipalities().size()));
  EXPECT_EQ(database.pscoCelkem(), static_cast<std::int32_t>(database.Districts().size()));
  EXPECT_EQ(database.pCelkem(), 0);
  EXPECT_EQ(database.pscPozice(), 0);
  EXPECT_EQ(scene.machine.real.lz.OpenHandles(), 0U);
}

void ExpectEmptyBox(const Scene& scene) {
  EXPECT_TRUE(scene.machine.realList.rows.empty());
  EXPECT_EQ(scene.machine.realList.openFillings, 0);
}

/// A search ends with nothing found and says why.
void ExpectNothingFound(Scene& scene, const Outcome& outcome) {
  EXPECT_FALSE(outcome.noMemory);
  EXPECT_FALSE(outcome.refused);
  EXPECT_EQ(scene.description, L"Nedostatek paměti.");
  ExpectEmptyBox(scene);
  EXPECT_EQ(scene.database.pCelkem(), 0);
  EXPECT_EQ(scene.database.pVybran(), L"Seznam je prázdný.");
  EXPECT_FALSE(scene.database.pscNalezen());
  EXPECT_EQ(scene.database.pscCelkem(), kMunicipalities);
}

void ExpectEmptyListing(Scene& scene, const Outcome& outcome) {
  EXPECT_TRUE(outcome.noMemory);
  ExpectEmptyBox(scene);
}

void ExpectNothingSelected(Scene& scene, const Outcome& outcome) {
  EXPECT_TRUE(outcome.noMemory);
  EXPECT_EQ(scene.database.pscPozice(), 0);
  EXPECT_EQ(scene.database.pscObec(), L"");
  EXPECT_EQ(scene.database.pscPSCObec(), L"");
  EXPECT_EQ(scene.database.pscDodavaci(), L"");
  EXPECT_FALSE(scene.database.pscNalezen());
}

void ExpectNoDistrict(Scene& scene, const Outcome& outcome) {
  EXPECT_TRUE(outcome.noMemory);
  EXPECT_EQ(scene.database.pscoVybran(), L"V seznamu jsou 3 okresy.");
  scene.database.pscoVyberPostu(scene.machine.list, scene.description);
  EXPECT_EQ(scene.description, L"Bez zadání.");
  // Asking leaves no trace in what is compared.
  scene.description.clear();
  scene.machine.realList.extent = fakes::ListBoxFake().extent;
}

void ExpectNoMemory(Scene&, const Outcome& outcome) { EXPECT_TRUE(outcome.noMemory); }

// So short that whoever hands it over needs no memory.
constexpr const wchar_t* kHeading = L"Nad";

/// The list text leaves whole or not at all.
std::wstring WholeText() {
  Scene scene;
  scene.Load();
  scene.database.pscVyberPostu(L"*nad*", scene.machine.list, scene.description);
  scene.database.pClipboard(kHeading);
  return scene.machine.real.output.clipboard.texts.at(0);
}

void ExpectWholeTextOrNone(const std::vector<std::wstring>& texts) {
  static const std::wstring whole = WholeText();
  for (const std::wstring& text : texts) EXPECT_EQ(text, whole);
}

std::vector<std::wstring> WrittenTexts(const Scene& scene) {
  std::vector<std::wstring> texts;
  for (const auto& [path, text] : scene.machine.real.output.textFiles.texts) texts.push_back(text);
  return texts;
}

void ExpectClipboardWholeOrUntouched(Scene& scene, const Outcome& outcome) {
  ExpectWholeTextOrNone(scene.machine.real.output.clipboard.texts);
  EXPECT_TRUE(!outcome.noMemory || scene.machine.real.output.clipboard.texts.empty());
}

/// Failures of the file are not spoken of; before it there is nothing to say but that memory ran out.
void ExpectExportedOrNot(Scene& scene, const Outcome& outcome) {
  const auto& messages = scene.machine.real.messages.messages;
  ExpectWholeTextOrNone(WrittenTexts(scene));
  if (outcome.noMemory) {
    EXPECT_TRUE(WrittenTexts(scene).empty());
    EXPECT_TRUE(messages.empty());
  } else if (!messages.empty()) {
    EXPECT_EQ(messages.back().text, L"Export do souboru \"vdkvez.txt\" je dokončen.");
  }
}

void ExpectMailedOrNot(Scene& scene, const Outcome&) {
  ExpectWholeTextOrNone(WrittenTexts(scene));
  for (const auto& message : scene.machine.real.messages.messages) {
    EXPECT_EQ(message.text, L"Nastala chyba při pokusu o odeslání souboru e-mailem.");
    EXPECT_EQ(message.caption, L"2");
  }
}

void ExpectPrintedOrDiscarded(Scene& scene, const Outcome& outcome) {
  EXPECT_FALSE(outcome.noMemory);
  EXPECT_FALSE(outcome.refused);
  const auto& printer = scene.machine.real.output.printer;
  EXPECT_FALSE(printer.HasOpenDocument());
  EXPECT_LE(printer.documents, 1);
  EXPECT_TRUE(scene.machine.real.messages.messages.empty());
}

/// The printer is what it was, unless putting back is what failed.
void ExpectPrinted(Scene& scene, const Outcome& outcome) {
  ExpectPrintedOrDiscarded(scene, outcome);
  const auto& printer = scene.machine.real.output.printer;
  if (printer.documents == 0) {
    EXPECT_EQ(printer.settings, (PrinterSettings{2, 1, PrinterScale::Twips}));
  }
  scene.machine.real.output.printer.settings = {2, 1, PrinterScale::Twips};
}

void Loaded(Scene& scene) { scene.Load(); }
void Found(Scene& scene) {
  scene.Load();
  scene.database.pscoDetail(2);
  scene.database.pscVyberPostu(L"*nad*", scene.machine.list, scene.description);
}

template <class Search>
Operation SearchOperation(const char* name, Search search) {
  return {name, Found, [search](Scene& scene) { search(scene.database, scene.machine.list, scene.description); },
          ExpectNothingFound};
}

Operation NameSearch(const char* name, const wchar_t* text) {
  return SearchOperation(name, [text = std::wstring(text)](clspsc& database, ListBox& list, std::wstring& description) {
    database.pscVyberPostu(text, list, description);
  });
}

Operation CodeSearch(const char* name, bool exact, const wchar_t* text) {
  return SearchOperation(
      name, [exact, text = std::wstring(text)](clspsc& database, ListBox& list, std::wstring& description) {
        database.pscNajdiPSC(exact, text, list, description);
      });
}

template <class Text>
Operation TextOperation(const char* name, Text text) {
  return {name,
          [](Scene& scene) {
            Found(scene);
            scene.database.pDetail(3);
            scene.database.pscoDetail(1);
          },
          [text](Scene& scene) { scene.answer = text(scene.database); }, ExpectNoMemory};
}

std::vector<Operation> Operations() {
  return {
      {"Load", [](Scene&) {}, [](Scene& scene) { scene.Load(); }, ExpectWholeOrEmptyLists},
      {"LoadOverALoadedOne", Loaded, [](Scene& scene) { scene.Load(); }, ExpectWholeOrEmptyLists},
      {"ReleaseAndLoad", Found,
       [](Scene& scene) {
         scene.database.pscUvolniPamet(scene.machine.window);
         scene.Load();
       },
       ExpectWholeOrEmptyLists},
      CodeSearch("ExactCode", true, L"110 02"),
      CodeSearch("BeginningOfACode", false, L"110"),
      NameSearch("WholeName", L"Obec s dlouhým názvem ab nad řekou"),
      NameSearch("BeginningOfAName", L"obec*"),
      NameSearch("EndOfAName", L"*nad řekou"),
      NameSearch("BothEndsOfAName", L"obec*řekou"),
      NameSearch("PartOfAName", L"*s dlouhým*"),
      SearchOperation("District", [](clspsc& database, ListBox& list,
                                     std::wstring& description) { database.pscoVyberPostu(list, description); }),
      {"SameCode", Found, [](Scene& scene) { scene.database.pscObceKPSC(scene.machine.list, scene.description); },
       ExpectNothingFound, [](Scene& scene) { scene.database.pDetail(7); }},
      {"AllMunicipalities", Found,
       [](Scene& scene) { scene.database.pscVyberVse(scene.machine.list, scene.machine.window); }, ExpectEmptyListing},
      {"AllDistricts", Found,
       [](Scene& scene) { scene.database.pscoVyberVse(scene.machine.list, scene.machine.window); }, ExpectEmptyListing},
      {"MunicipalityCursor", Loaded, [](Scene& scene) { scene.database.pscDetail(5); }, ExpectNothingSelected},
      {"ResultCursor", Found, [](Scene& scene) { scene.database.pDetail(5); },
       [](Scene& scene, const Outcome& outcome) {
         ExpectNothingSelected(scene, outcome);
         EXPECT_EQ(scene.database.pVybran(), L"Zadání vyhovuje 30 obcí.");
       }},
      {"DistrictCursor", Loaded, [](Scene& scene) { scene.database.pscoDetail(2); }, ExpectNoDistrict},
      TextOperation("MunicipalityText", [](clspsc& database) { return database.pscVybran(); }),
      TextOperation("DistrictText", [](clspsc& database) { return database.pscoVybran(); }),
      TextOperation("ResultText", [](clspsc& database) { return database.pVybran(); }),
      TextOperation("AddressLine", [](clspsc& database) { return database.pscPSCObec(); }),
      TextOperation("Fields",
                    [](clspsc& database) {
                      return database.pscPSC() + database.pscObec() + database.pscOkres() + database.pscDodavaci();
                    }),
      {"Clipboard", Found, [](Scene& scene) { scene.database.pClipboard(kHeading); }, ExpectClipboardWholeOrUntouched},
      {"Export", Found, [](Scene& scene) { scene.database.pExport(kHeading); }, ExpectExportedOrNot},
      {"Mail", Found, [](Scene& scene) { scene.database.pMail(kHeading); }, ExpectMailedOrNot},
      {"Print", Found, [](Scene& scene) { scene.database.pTisk(kHeading, scene.machine.window); }, ExpectPrinted,
       [](Scene& scene) { scene.database.pDetail(0); }},
      {"ReadASetting", [](Scene& scene) { scene.database.vSetNastaveniRegistr(2, 1); },
       [](Scene& scene) { scene.answer = std::to_wstring(scene.database.vGetNastaveniRegistr(2)); },
       [](Scene& scene, const Outcome& outcome) { EXPECT_EQ(scene.answer, outcome.noMemory ? L"" : L"0"); }},
      {"StoreASetting", Loaded, [](Scene& scene) { scene.database.vSetNastaveniRegistr(2, 1); },
       [](Scene& scene, const Outcome& outcome) {
         EXPECT_TRUE(outcome.noMemory || outcome.refused);
         EXPECT_EQ(scene.database.vGetNastaveniRegistr(2), 0);
       }},
      {"Date", Loaded, [](Scene& scene) { scene.answer = std::to_wstring(scene.database.pscDatabazeZeDne().year); },
       [](Scene& scene, const Outcome& outcome) { EXPECT_EQ(scene.answer, outcome.noMemory ? L"" : L"0"); }},
  };
}

/// Runs an operation and says what came out of it. Nothing but the two expected exceptions may.
Outcome RunWithFailure(const Operation& operation, Scene& scene) {
  Outcome outcome;
  try {
    operation.run(scene);
  } catch (const std::bad_alloc&) {
    outcome.noMemory = true;
  } catch (const std::runtime_error&) {
    outcome.refused = true;
  }
  return outcome;
}

/// What an operation leaves behind that ran well a second time.
std::wstring SeenAsEver(const Operation& operation) {
  Scene scene;
  operation.prepare(scene);
  for (int time = 0; time < 2; ++time) {
    scene.ForgetOutput();
    operation.beforeEachRun(scene);
    operation.run(scene);
  }
  return Seen(scene);
}

class EveryFailure : public testing::TestWithParam<Operation> {
 protected:
  /// Lets failure number 1, 2, 3 ... happen, each in a scene of its own, until the operation needs no more.
  template <class Arm, class Disarm>
  void LetEachFail(Arm arm, Disarm disarm, const char* what) {
    const Operation& operation = GetParam();
    const std::wstring asEver = SeenAsEver(operation);
    for (std::size_t number = 1;; ++number) {
      SCOPED_TRACE(std::string(what) + " " + std::to_string(number));
      Scene scene;
      operation.prepare(scene);
      scene.ForgetOutput();
      operation.beforeEachRun(scene);
      arm(scene, number);
      const Outcome outcome = RunWithFailure(operation, scene);
      if (!disarm(scene)) {
        m_failures = number - 1;
        break;
      }
      operation.expect(scene, outcome);
      scene.ForgetOutput();
      scene.answer.clear();
      operation.beforeEachRun(scene);
      operation.run(scene);
      EXPECT_EQ(test::Difference(Seen(scene), asEver), "");
      // One failure says enough.
      if (HasFailure()) break;
    }
  }

  void LetEachAllocationFail(bool andLater, const char* what) {
    LetEachFail([andLater](Scene&, std::size_t number) { allocation::Arm(number, andLater); },
                [](Scene&) {
                  allocation::Disarm();
                  return allocation::HasFailed();
                },
                what);
  }

  void LetEachCallFail(CallFault fault, const char* what) {
    LetEachFail([fault](Scene& scene, std::size_t number) { scene.machine.faults.Arm(number, fault); },
                [](Scene& scene) {
                  const bool failed = scene.machine.faults.HasFailed();
                  scene.machine.faults.Disarm();
                  return failed;
                },
                what);
  }

  std::size_t m_failures = 0;
};

TEST_P(EveryFailure, OfOneAllocation) { LetEachAllocationFail(false, "allocation"); }
TEST_P(EveryFailure, OfAllAllocationsFromOneOn) { LetEachAllocationFail(true, "allocations from"); }
TEST_P(EveryFailure, OfACallThatSaysSo) { LetEachCallFail(CallFault::Answer, "refusing call"); }
TEST_P(EveryFailure, OfACallThatThrows) { LetEachCallFail(CallFault::Throw, "throwing call"); }
TEST_P(EveryFailure, OfACallThatRunsOutOfMemory) { LetEachCallFail(CallFault::NoMemory, "call without memory"); }

INSTANTIATE_TEST_SUITE_P(Core, EveryFailure, testing::ValuesIn(Operations()),
                         [](const testing::TestParamInfo<Operation>& test) { return std::string(test.param.name); });

}  // namespace
}  // namespace kvez
