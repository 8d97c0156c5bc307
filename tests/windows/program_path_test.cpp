#include "platform/windows/program_path.h"

#include <gtest/gtest.h>

namespace kvez::test {
namespace {

TEST(ProgramPath, HasAFolderWithoutSeparatorButAtTheRoot) {
  EXPECT_EQ(FolderOf(L"C:\\Programy\\Kvez\\kvez.exe"), L"C:\\Programy\\Kvez");
  EXPECT_EQ(FolderOf(L"C:\\kvez.exe"), L"C:\\");
  EXPECT_EQ(FolderOf(L"\\\\server\\slozka\\kvez.exe"), L"\\\\server\\slozka");
}

TEST(ProgramPath, NamesTheRunningProgram) {
  EXPECT_EQ(ProgramFolder() + L"\\" + ProgramName() + L".exe", ProgramPath());
}

}  // namespace
}  // namespace kvez::test
