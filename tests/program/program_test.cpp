#include "tests/program/program_test.h"

#include <cstdint>
#include <fstream>
#include <iterator>

namespace kvez::test {
namespace {

std::wstring FromUtf8(const std::string& bytes) {
  const int length = static_cast<int>(bytes.size());
  std::wstring text(static_cast<std::size_t>(MultiByteToWideChar(CP_UTF8, 0, bytes.data(), length, nullptr, 0)), L'\0');
  MultiByteToWideChar(CP_UTF8, 0, bytes.data(), length, text.data(), static_cast<int>(text.size()));
  return text;
}

}  // namespace

// The root of the machine that builds is drive Z here.
std::filesystem::path Native(const char* path) {
  return (std::filesystem::path(path[0] == '/' ? L"Z:" : L"") += path).make_preferred();
}

std::wstring DayOfTheList() {
  std::ifstream stream(Native(KVEZ_SOURCE_DIR) / "data" / "stav.txt");
  std::string line;
  std::getline(stream, line);
  std::getline(stream, line);
  return FromUtf8(line);
}

std::wstring Today() {
  SYSTEMTIME now{};
  GetLocalTime(&now);
  const auto two = [](WORD number) { return std::to_wstring(number / 10) + std::to_wstring(number % 10); };
  return std::to_wstring(now.wYear) + L"-" + two(now.wMonth) + L"-" + two(now.wDay);
}

std::wstring LastUpdateOf(const std::wstring& day) {
  constexpr const wchar_t* months[] = {L"leden",    L"únor",  L"březen", L"duben", L"květen",   L"červen",
                                       L"červenec", L"srpen", L"září",   L"říjen", L"listopad", L"prosinec"};
  const std::size_t month = std::stoul(day.substr(5, 2));
  return L"Poslední aktualizace databáze byla provedena " + std::to_wstring(std::stoul(day.substr(8))) + L"." +
         months[month - 1] + L" " + day.substr(0, 4) + L".";
}

std::vector<TableRow> ReadTable(const char* name) {
  std::ifstream stream(Native(KVEZ_SOURCE_DIR) / "data" / name);
  std::vector<TableRow> rows;
  std::string line;
  std::getline(stream, line);  // the heading
  while (std::getline(stream, line)) {
    TableRow row(1);
    for (const wchar_t character : FromUtf8(line)) {
      if (character == L';') {
        row.emplace_back();
      } else if (character != L'\r') {
        row.back() += character;
      }
    }
    rows.push_back(row);
  }
  return rows;
}

void ProgramTest::SetUp() {
  ClearSettings();
  const auto* test = ::testing::UnitTest::GetInstance()->current_test_info();
  // A folder a suite: a tree of folders that is opened while another suite removes one of its own stays half empty.
  m_folder = Native(KVEZ_BINARY_DIR) / "program-tests" / test->test_suite_name() / test->name();
  CopyProgram(Native(KVEZ_PROGRAM_FOLDER), m_folder);
}

void ProgramTest::TearDown() {
  ClearSettings();
  std::error_code ignored;
  // A failed test keeps its folder for whoever looks into it.
  if (!HasFailure()) std::filesystem::remove_all(m_folder, ignored);
}

void ProgramTest::MoveFolder(const std::filesystem::path& folder) {
  std::filesystem::create_directories(folder);
  for (const auto& entry : std::filesystem::directory_iterator(m_folder)) {
    if (entry.is_regular_file()) std::filesystem::rename(entry.path(), folder / entry.path().filename());
  }
  m_folder = folder;
}

bool ProgramTest::HasNoExpandedFiles() const {
  for (const auto& entry : std::filesystem::directory_iterator(m_folder)) {
    if (entry.path().extension() == L".bin") return false;
  }
  return true;
}

}  // namespace kvez::test
