#include "tests/core/data_bytes.h"
#include "tests/tool/tool_test.h"
#include "tools/loaded_database.h"

namespace kvez {
namespace {

class QueryTest : public ToolTest {
 protected:
  QueryTest() { BuildFiles(); }

  ToolRun List(const std::wstring& list) { return RunCommand({L"list", Path(L"out"), list}); }
  ToolRun Search(const std::vector<std::wstring>& rest) {
    std::vector<std::wstring> arguments = {L"search", Path(L"out")};
    arguments.insert(arguments.end(), rest.begin(), rest.end());
    return RunCommand(arguments);
  }
};

TEST_F(QueryTest, ListsGiveTheRowsOfTheTables) {
  ExpectSuccess(List(L"municipalities"),
                "35002;Cheb;Cheb\n11000;Staré Město;Hlavní město Praha\n60200;Žabovřesky;Brno-město\n");
  ExpectSuccess(List(L"offices"), "60200;Brno 2\n35002;Cheb 2\n11000;Praha 1\n");
  ExpectSuccess(List(L"districts"), "3702;Brno-město\n3100;Hlavní město Praha\n3402;Cheb\n");
}

TEST_F(QueryTest, NothingIsWrittenIntoTheFolder) {
  // Not even over what stands where the program expands its files.
  folder.Write("out/vd1.bin", std::string("somebody's"));
  EXPECT_EQ(List(L"offices").status, 0);
  EXPECT_EQ(Search({L"name", L"Cheb"}).status, 0);
  EXPECT_EQ(RunCommand({L"check", Path(L"out")}).status, 0);
  EXPECT_EQ(NamesIn("out"), "vd1.bin vd1.kl_ vd2.kl_ vd3.kl_");
  EXPECT_EQ(folder.Read("out/vd1.bin"), "somebody's");
}

TEST_F(QueryTest, ListKeepsSignsAndLeadingZeros) {
  fakes::Bytes districts;
  fakes::AppendDistrict(districts, -1, L"Cheb");
  folder.Write("out/vd3.kl_", districts);
  ExpectSuccess(List(L"districts"), "-1;Cheb\n");
  fakes::Bytes offices;
  fakes::AppendPostOffice(offices, 123, L"Aš");
  fakes::AppendPostOffice(offices, -5, L"Aš");
  folder.Write("out/vd2.kl_", offices);
  ExpectSuccess(List(L"offices"), "00123;Aš\n-5;Aš\n");
}

TEST_F(QueryTest, UnknownListIsRefused) {
  ExpectFailure(List(L"obce"), "there is no list 'obce', only municipalities, offices and districts");
}

TEST_F(QueryTest, NameSearch) {
  ExpectSuccess(Search({L"name", L"žab*"}),
                "Název začíná \"žab\".\nZadání vyhovuje 1 obec.\n602 00 ; Brno 2 ; Žabovřesky ; Brno-město\n");
  ExpectSuccess(Search({L"name", L"*b*"}),
                "Název obsahuje \"b\".\nZadání vyhovují 2 obce.\n350 02 ; Cheb 2 ; Cheb ; Cheb\n"
                "602 00 ; Brno 2 ; Žabovřesky ; Brno-město\n");
}

TEST_F(QueryTest, NothingFoundIsNoError) {
  ExpectSuccess(Search({L"name", L"Praha"}), "Název obce \"Praha\".\nSeznam je prázdný.\n");
  ExpectSuccess(Search({L"name", L""}), "Seznam je prázdný.\nSeznam je prázdný.\n");
}

TEST_F(QueryTest, PostalCodeSearch) {
  const std::string row = "350 02 ; Cheb 2 ; Cheb ; Cheb\n";
  ExpectSuccess(Search({L"psc", L"35"}), "Obce s PSČ začínající na  \"35\".\nZadání vyhovuje 1 obec.\n" + row);
  ExpectSuccess(Search({L"psc", L"350 02", L"--exact"}),
                "Hledané obce s PSČ \"350 02\".\nZadání vyhovuje 1 obec.\n" + row);
  ExpectSuccess(Search({L"psc", L"35", L"--exact"}), "Hledané obce s PSČ \"000 35\".\nSeznam je prázdný.\n");
}

TEST_F(QueryTest, DistrictSearch) {
  const std::string result = "Obce v okrese \"Cheb\".\nZadání vyhovuje 1 obec.\n350 02 ; Cheb 2 ; Cheb ; Cheb\n";
  ExpectSuccess(Search({L"district", L"Cheb"}), result);
  ExpectSuccess(Search({L"district", L"CHEB"}), result);
  ExpectSuccess(Search({L"district", L""}), "Bez zadání.\nSeznam je prázdný.\n");
}

TEST_F(QueryTest, MunicipalityWithoutAPostOfficeShowsTheOneBefore) {
  fakes::Bytes offices;
  fakes::AppendPostOffice(offices, 35002, L"Cheb 2");
  folder.Write("out/vd2.kl_", offices);
  const ToolRun run = Search({L"name", L"*b*"});
  EXPECT_NE(run.out.find("602 00 ; Cheb 2 ; Žabovřesky ; "), std::string::npos) << run.out;
}

TEST_F(QueryTest, UnknownDistrictIsRefused) {
  ExpectFailure(Search({L"district", L"Česká Lhota"}), "there is no district 'Česká Lhota'");
}

TEST_F(QueryTest, RefusedPatternShowsTheProgramsMessage) {
  ExpectFailure(Search({L"name", L"**"}), "Zadejte minimálně 1 znak pro vyhledání !");
}

TEST_F(QueryTest, TextThatIsNoPostalCodeIsQuoted) {
  // Quoted as it was typed, not as the search takes it apart: "abcgh", "xx".
  ExpectFailure(Search({L"psc", L"abcdefgh", L"--exact"}), "'abcdefgh' is no postal code");
  ExpectFailure(Search({L"psc", L"x", L"--exact"}), "'x' is no postal code");
  ExpectFailure(Search({L"psc", L" ", L"--exact"}), "' ' is no postal code");
}

TEST_F(QueryTest, UnknownSearchIsRefused) {
  ExpectFailure(Search({L"obec", L"Cheb"}), "there is no search 'obec', only name, psc and district");
  const std::string only = " is not understood; only search DIR psc TEXT takes --exact";
  ExpectFailure(Search({L"psc", L"11", L"exact"}), "'exact'" + only);
  ExpectFailure(Search({L"name", L"Cheb", L"--exact"}), "'--exact'" + only);
}

TEST_F(QueryTest, DamagedFilesShowTheProgramsMessages) {
  const std::string municipalities = "Soubor se seznamem PSČ je poškozen nebo neexistuje !";
  const std::string offices = "Soubor se seznamem podávacích pošt je poškozen nebo neexistuje !";
  const std::string districts = "Soubor se seznamem okresů je poškozen nebo neexistuje !";
  std::string file = folder.Read("out/vd2.kl_");
  file.pop_back();
  folder.Write("out/vd2.kl_", file);
  ExpectFailure(Search({L"name", L"Cheb"}), offices);
  ExpectFailure(List(L"municipalities"), offices);
  std::filesystem::remove(folder.Path() / "out" / "vd1.kl_");
  folder.Write("out/vd3.kl_", fakes::Bytes());
  ExpectFailure(List(L"offices"), municipalities + "\n" + offices + "\n" + districts);
}

TEST(CollectedMessages, NobodyAnswersAQuestion) {
  CollectedMessages messages;
  EXPECT_NO_THROW(messages.ThrowIfAny());
  messages.Show(L"První.", MessageIcon::Exclamation, L"Kvez");
  EXPECT_EQ(messages.Ask(L"Druhá?", L"Kvez"), false);
  try {
    messages.ThrowIfAny();
    FAIL() << "no error";
  } catch (const ToolError& error) {
    EXPECT_STREQ(error.what(), "První.\nDruhá?");
  }
}

}  // namespace
}  // namespace kvez
