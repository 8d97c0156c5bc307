#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "mainwindow/control_ids.h"
#include "tests/support/program_driver.h"
#include "tests/support/program_folder.h"

namespace kvez::test {

/// A folder that the build names, as a path of this system.
std::filesystem::path Native(const char* path);

/// One row of a table of data/.
using TableRow = std::vector<std::wstring>;

/// Reads a table of data/ without its heading.
std::vector<TableRow> ReadTable(const char* name);

/// The day in the second line of data/stav.txt, "2024-11-01", and today in the same form.
std::wstring DayOfTheList();
std::wstring Today();

/// What the program says of a database of such a day.
std::wstring LastUpdateOf(const std::wstring& day);

/// A test with the program in a folder of its own and a clean branch of the settings store.
class ProgramTest : public ::testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;

  /// The test's copy of the program's folder: kvez.exe and the three data files.
  const std::filesystem::path& Folder() const { return m_folder; }
  std::wstring Exe() const { return (m_folder / L"kvez.exe").wstring(); }

  /// Moves the copy to another, new folder.
  void MoveFolder(const std::filesystem::path& folder);

  /// No expanded data file lies in the folder.
  bool HasNoExpandedFiles() const;

 private:
  std::filesystem::path m_folder;
};

}  // namespace kvez::test
