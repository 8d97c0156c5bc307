// What the import takes for no official list, or for a damaged one.

#include "tests/tool/import_test.h"
#include "text/utf8.h"

namespace kvez {
namespace {

class ImportRefusal : public ImportTest {};

const std::string kHeadingExpected = "the heading 'NAZCOBCE;PSC;NAZPOST;KODOKRESU;NAZOKRESU;NAZOBCE' was expected";
const std::wstring kCheb = L"Cheb;35002;Cheb 2;3402;Cheb;Cheb\r\n";

TEST_F(ImportRefusal, HeadingMustBeTheList) {
  const std::string line = Shown(L"list.csv") + ": line 1: ";
  ExpectFailure(ImportBytes(""), line + kHeadingExpected);
  for (const auto& [heading, fault] :
       {std::pair("PSC;NAZCOBCE", "the column 'NAZPOST' is missing"), std::pair("", "the column '' is unexpected"),
        std::pair("NAZCOBCE;PSC;NAZPOST;KODOKRESU;NAZOKRESU;NAZOBCE;KODOBCE", "the column 'KODOBCE' is unexpected"),
        std::pair("NAZCOBCE;PSC;NAZPOSTY;KODOKRESU;NAZOKRESU;NAZOBCE", "the column 'NAZPOSTY' is unexpected"),
        std::pair("NAZCOBCE;PSC;NAZPOST;KODOKRESU;NAZOBCE", "the column 'NAZOKRESU' is missing"),
        std::pair("NAZCOBCE;NAZPOST;PSC;KODOKRESU;NAZOKRESU;NAZOBCE", "column 2 is 'NAZPOST' and not 'PSC'"),
        std::pair("NAZCOBCE;PSC;NAZPOST;KODOKRESU;NAZOKRESU;NAZOBCE;PSC", "the column 'PSC' stands there twice"),
        std::pair("NAZCOBCE;PSC;NAZPOST;KODOKRESU;NAZOKRESU;NAZOBCE ", "the column 'NAZOBCE ' is unexpected")}) {
    ExpectFailure(ImportBytes(std::string(heading) + "\r\n35002;Cheb\r\n"), line + fault + "; " + kHeadingExpected);
  }
}

TEST_F(ImportRefusal, ListWithoutRowsIsRefused) { ExpectRefused(L"", "line 2: at least one row was expected"); }

TEST_F(ImportRefusal, WrongColumnsAreRefused) {
  const std::wstring good = L"Cheb;35002;Cheb 2;3402;Cheb;Cheb\r\n";
  ExpectRefused(good + L"Cheb;35002;Cheb 2;3402;Cheb\r\n", "line 3: 6 columns were expected, not 5");
  ExpectRefused(good + L"Cheb;35002;Cheb 2;3402;Cheb;Cheb;\r\n", "line 3: 6 columns were expected, not 7");
  ExpectRefused(L"\r\n" + good, "line 2: 6 columns were expected, not 1");
}

TEST_F(ImportRefusal, FieldsThatAreNoCodeAreRefused) {
  for (const std::wstring code : {L"", L"3500", L"350021", L"350 02", L"3500x", L"-3500"}) {
    ExpectRefused(L"Cheb;" + code + L";Cheb 2;3402;Cheb;Cheb\r\n",
                  "line 2: PSC '" + ToUtf8(code) + "' is no postal code of five digits");
  }
  for (const std::wstring code : {L"", L"CZ0411", L"-1", L"32768", L"3402 "}) {
    ExpectRefused(L"Cheb;35002;Cheb 2;" + code + L";Cheb;Cheb\r\n",
                  "line 2: KODOKRESU '" + ToUtf8(code) + "' is no district code from 0 to 32767");
  }
  EXPECT_EQ(ImportRows(L"Cheb;35002;Cheb 2;32767;Cheb;Cheb\r\n").status, 0);
}

TEST_F(ImportRefusal, DistrictCodesBeginAtZero) {
  EXPECT_EQ(ImportRows(L"Cheb;35002;Cheb 2;0;Cheb;Cheb\r\n").error, "");
  EXPECT_EQ(folder.Read("data/okresy.csv"), "kod;okres\n0;Cheb\n");
}

TEST_F(ImportRefusal, EmptyNamesAndBlanksAtTheirEndsAreRefused) {
  ExpectRefused(L";35002;Cheb 2;3402;Cheb;Cheb\r\n", "line 2: NAZCOBCE is empty");
  ExpectRefused(L" x);35002;Cheb 2;3402;Cheb;Cheb\r\n", "line 2: NAZCOBCE is empty");
  ExpectRefused(L"Cheb;35002;;3402;Cheb;Cheb\r\n", "line 2: NAZPOST is empty");
  ExpectRefused(L"Cheb;35002;Cheb 2;3402;;Cheb\r\n", "line 2: NAZOKRESU is empty");
  ExpectRefused(L"Cheb;35002;Cheb 2;3402;Cheb;\r\n", "line 2: NAZOBCE is empty");
  ExpectRefused(L"Cheb;35002;Cheb 2;3402;Cheb;  \r\n", "line 2: NAZOBCE is blank");
  ExpectRefused(L"Ch?b;35002;Cheb 2;3402;Cheb;Cheb\r\n", "line 2: NAZCOBCE has the wildcard '?'");
  ExpectRefused(L" Cheb;35002;Cheb 2;3402;Cheb;Cheb\r\n", "line 2: NAZCOBCE has a blank at its end");
  ExpectRefused(L"Cheb;35002;Cheb 2 ;3402;Cheb;Cheb\r\n", "line 2: NAZPOST has a blank at its end");
}

TEST_F(ImportRefusal, UnknownEncodingIsRefusedWithTheLine) {
  const std::wstring rows = std::wstring(kListHeading) + L"Cheb;35002;Cheb 2;3402;Cheb;Cheb\r\n" +
                            L"Žďár;26401;Sedlčany;3211;Příbram;Žďár\r\n";
  const std::string file = Shown(L"list.csv");
  ExpectFailure(ImportBytes(ToUtf8(rows)),
                file +
                    ": line 3: byte 0xC5 at position 1 is no character of a Czech list in Windows-1250; the file "
                    "looks like UTF-8");
  ExpectFailure(ImportBytes("\xEF\xBB\xBF" + ToUtf8(rows)),
                file + ": line 1: the file is UTF-8; the list comes in Windows-1250");
  // ISO 8859-2 and CP852 have their Ž elsewhere.
  for (const auto& [letter, shown] : {std::pair("\xAE", "0xAE"), std::pair("\xA6", "0xA6")}) {
    std::string list = ToWindows1250(rows);
    list.replace(list.find(ToWindows1250(L"Ž")), 1, letter);
    ExpectFailure(ImportBytes(list),
                  file + ": line 3: byte " + shown + " at position 1 is no character of a Czech list in Windows-1250");
  }
}

TEST_F(ImportRefusal, Utf16IsSaid) {
  const std::string message = Shown(L"list.csv") + ": line 1: the file is UTF-16; the list comes in Windows-1250";
  const auto encoded = [](const std::wstring& text, bool lowFirst) {
    std::string bytes;
    for (const wchar_t character : text) {
      const char low = static_cast<char>(character & 0xFF);
      const char high = static_cast<char>(character >> 8);
      bytes.push_back(lowFirst ? low : high);
      bytes.push_back(lowFirst ? high : low);
    }
    return bytes;
  };
  for (const bool lowFirst : {true, false}) {
    for (const std::wstring mark : {L"\xFEFF", L""}) {
      ExpectFailure(ImportBytes(encoded(mark + std::wstring(kListHeading) + kCheb, lowFirst)), message);
    }
  }
  ExpectFailure(ImportBytes("N"), Shown(L"list.csv") + ": line 1: the column 'N' is unexpected; " + kHeadingExpected);
}

TEST_F(ImportRefusal, LettersThatLookLikeUtf8AreNoProblem) {
  // In Windows-1250 "Úž" are two bytes that would be one letter of UTF-8.
  EXPECT_EQ(ImportRows(L"Úžice;28506;Sázava;3205;Kutná Hora;Úžice\r\n").status, 0);
  EXPECT_EQ(folder.Read("data/obce.csv"), "psc;obec;okres\n28506;Úžice;Kutná Hora\n");
}

TEST_F(ImportRefusal, ControlCharactersAndQuotedFieldsAreRefused) {
  ExpectRefused(L"Cheb\t;35002;Cheb 2;3402;Cheb;Cheb\r\n",
                "line 2: byte 0x09 at position 5 is no character of a Czech list in Windows-1250");
  ExpectRefused(L"Žár;35002;\"Cheb; 2\";3402;Cheb;Cheb\r\n",
                "line 2: byte 0x22 at position 11 is no character of a Czech list in Windows-1250");
}

TEST_F(ImportRefusal, ContradictionsAreRefusedWithBothLines) {
  const std::wstring good = L"Cheb;35002;Cheb 2;3402;Cheb;Cheb\r\n";
  ExpectRefused(good + L"Cheb;35002;Cheb 3;3402;Cheb;Cheb\r\n",
                "line 3: PSC 35002 has another post office than in line 2");
  ExpectRefused(good + L"Cheb;35003;Cheb 3;3402;Chebsko;Cheb\r\n",
                "line 3: KODOKRESU 3402 has another name than in line 2");
  ExpectRefused(good + good + L"Cheb;35003;Cheb 3;3403;Cheb;Cheb\r\n",
                "line 4: the district Cheb has another code than in line 2");
}

TEST_F(ImportRefusal, CodesThatNoPostOfficeHasAreRefused) {
  for (const std::wstring code : {L"00000", L"09999", L"80000", L"99999"}) {
    ExpectRefused(kCheb + L"Cheb;" + code + L";Cheb 3;3402;Cheb;Cheb\r\n",
                  "line 3: PSC '" + ToUtf8(code) + "' is not between 10000 and 79999");
  }
  for (const std::wstring code : {L"10000", L"79999"}) {
    EXPECT_EQ(ImportRows(L"Cheb;" + code + L";Cheb 3;3402;Cheb;Cheb\r\n").error, "");
  }
}

TEST_F(ImportRefusal, DamagedNamesAreRefused) {
  ExpectRefused(L"Líšeň (část;35002;Cheb 2;3402;Cheb;Cheb\r\n",
                "line 2: NAZCOBCE has a parenthesis that is not closed");
  ExpectRefused(L"Líšeň (část x);35002;Cheb (2;3402;Cheb;Cheb\r\n",
                "line 2: NAZPOST has a parenthesis that is not closed");
  ExpectRefused(L"Líšeň část);35002;Cheb 2;3402;Cheb;Cheb\r\n",
                "line 2: NAZCOBCE has a parenthesis that was not opened");
  ExpectRefused(kCheb + L"Cheb;35002;Cheb 2;3402;Cheb;Cheb )(\r\n",
                "line 3: NAZOBCE has a parenthesis that was not opened");
  ExpectRefused(L"Nová  Ves;35002;Cheb 2;3402;Cheb;Cheb\r\n", "line 2: NAZCOBCE has two blanks in a row");
  ExpectRefused(L"Cheb;35002;Cheb 2;3402;Hlavní  město;Cheb\r\n", "line 2: NAZOKRESU has two blanks in a row");
}

TEST_F(ImportRefusal, ListThatStandsThereTwiceIsRefused) {
  const std::wstring list = kCheb + L"Aš;35201;Aš 1;3402;Cheb;Aš\r\n";
  ExpectRefused(list + std::wstring(kListHeading) + list,
                "line 4: the heading stands here again: the list is in the file twice");
  ExpectRefused(list + list,
                "line 4: the row of line 2 stands here again, as 2 of 4 rows do: the list is in the file twice");
}

TEST_F(ImportRefusal, OneRowInTenMayBeThereTwice) {
  std::wstring rows;
  for (int i = 0; i < 9; ++i) rows += L"Cheb " + std::to_wstring(i) + L";35002;Cheb 2;3402;Cheb;Cheb\r\n";
  EXPECT_EQ(ImportRows(rows + L"Cheb 3;35002;Cheb 2;3402;Cheb;Cheb\r\n").error, "");
  std::filesystem::remove_all(folder.Path() / "data");
  ExpectRefused(rows + L"Cheb 3;35002;Cheb 2;3402;Cheb;Cheb\r\nCheb 4;35002;Cheb 2;3402;Cheb;Cheb\r\n",
                "line 11: the row of line 5 stands here again, as 2 of 11 rows do: the list is in the file twice");
}

/// So many rows with every letter that a long list has, but for one.
std::wstring LongList(int count, wchar_t without) {
  std::wstring name = L"Žluťoučký kůň pěl ďábelské ódy, Čáp Řehoř Šťáva Ústí bdí fguvxmhci jnrszšřáíýž";
  for (std::size_t at = name.find(without); at != std::wstring::npos; at = name.find(without)) name[at] = L'B';
  std::wstring rows;
  for (int i = 1; i <= count; ++i) rows += name + std::to_wstring(i) + L";35002;B;3402;B;B\r\n";
  return rows;
}

TEST_F(ImportRefusal, LongListThatHasLostALetterIsRefused) {
  EXPECT_EQ(ImportRows(LongList(1000, L'@')).error, "");
  std::filesystem::remove_all(folder.Path() / "data");
  for (const wchar_t letter : std::wstring_view(L"žŽóďťňghČ")) {
    const std::string text = ToUtf8(std::wstring(1, letter));
    ExpectRefused(LongList(1000, letter), "line 1001: up to this last line there is no '" + text +
                                              "' in 1000 rows: the list has lost a letter");
  }
}

TEST_F(ImportRefusal, ShortListNeedsNotHaveEveryLetter) { EXPECT_EQ(ImportRows(LongList(999, L'ž')).error, ""); }

TEST_F(ImportTest, AliasMarkInOtherSpellingsIsRemoved) {
  for (const wchar_t* mark : {L" x)", L"x)", L" X)", L"  x)", L" x) ", L" x )", L" (x)", L"(x)", L" ( X )"}) {
    const ToolRun run =
        ImportRows(L"Brno-Líšeň (část)" + std::wstring(mark) + L";62800;Brno 28;3702;Brno-město;Brno\r\n");
    EXPECT_EQ(run.error, "") << ToUtf8(mark);
    EXPECT_EQ(Names(), "Brno-Líšeň (část)") << ToUtf8(mark);
    EXPECT_NE(run.out.find("alias marks \" x)\" removed: 1\n"), std::string::npos) << ToUtf8(mark);
  }
}

TEST_F(ImportTest, NameInParenthesesIsNoAliasMark) {
  ImportRows(L"Brno (Max);62800;Brno 28;3702;Brno-město;Brno\r\nBrno X;62800;Brno 28;3702;Brno-město;Brno\r\n");
  EXPECT_EQ(Names(), "Brno (Max) | Brno X");
}

}  // namespace
}  // namespace kvez
