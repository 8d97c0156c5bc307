#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "forms/message_loop.h"
#include "mainwindow/frmhlavni.h"
#include "tests/core/data_bytes.h"
#include "tests/core/fakes.h"
#include "tests/support/program_driver.h"
#include "tests/support/window_test.h"
#include "tests/windows/command_fakes.h"

namespace kvez {

/// The real main window over a small database on a fake machine.
class MainWindowTest : public ::testing::Test {
 protected:
  void SetUp() override {
    using namespace fakes;
    Bytes municipalities;
    AppendMunicipality(municipalities, 69201, L"Bavory", L"Břeclav");
    AppendMunicipality(municipalities, 69144, L"Lednice", L"Břeclav");
    AppendMunicipality(municipalities, 69201, L"Mikulov", L"Břeclav");
    AppendMunicipality(municipalities, 11000, L"Praha 1", L"Hlavní město Praha");
    AppendMunicipality(municipalities, 11000, L"Staré Město", L"Hlavní město Praha");
    AppendMunicipality(municipalities, 69142, L"Valtice", L"Břeclav");
    Bytes postOffices;
    AppendPostOffice(postOffices, 11000, L"Praha 1");
    AppendPostOffice(postOffices, 69142, L"Valtice");
    AppendPostOffice(postOffices, 69144, L"Lednice na Moravě");
    AppendPostOffice(postOffices, 69201, L"Mikulov na Moravě");
    Bytes districts;
    AppendDistrict(districts, 3704, L"Břeclav");
    AppendDistrict(districts, 3100, L"Hlavní město Praha");
    m_machine.disk.files[kFolder + L"\\vd1.kl_"] = municipalities;
    m_machine.disk.files[kFolder + L"\\vd2.kl_"] = postOffices;
    m_machine.disk.files[kFolder + L"\\vd3.kl_"] = districts;
    m_machine.disk.written[kFolder + L"\\vd1.kl_"] = {2026, 11, 16, 0, 50, 0};
    m_commands.files.disk = &m_machine.disk;
  }

  void TearDown() override {
    if (!m_window) return;
    m_machine.messages.answers = {true};
    m_window->Unload();
  }

  /// The window before its loading.
  frmhlavni& Make() {
    m_window =
        std::make_unique<frmhlavni>(m_database, m_machine.Platform(), m_commands.Services(m_machine.settings, kFolder));
    return *m_window;
  }
  frmhlavni& Open() {
    Make().Load();
    forms::DoEvents();
    return *m_window;
  }

  /// The same in front of everything: what the keyboard types goes to it.
  frmhlavni& OpenInFront() {
    frmhlavni& window = Open();
    EXPECT_TRUE(test::ShowActive(window));
    return window;
  }

  // Real keys; each returns when they have arrived.
  static void TypeText(const std::wstring& text) {
    test::TypeText(text);
    test::PumpInput();
  }
  static void PressKey(WORD key, bool control = false, bool shift = false, bool alt = false) {
    test::PressKey(key, control, shift, alt);
    test::PumpInput();
  }

  /// The time that a message of the status bar has, without its length.
  void LetMessageTimeEnd() {
    EXPECT_TRUE(m_window->messageTimer.IsRunning());
    m_window->messageTimer.SetInterval(1);
    EXPECT_TRUE(test::PumpUntil([this] { return !m_window->messageTimer.IsRunning(); }));
  }

  void SetSetting(int number, const wchar_t* value) {
    m_machine.settings.values[{L"VD", L"VDKVEZ", L"nastavení" + std::to_wstring(number)}] = value;
  }

  static std::vector<std::wstring> Rows(const forms::ListBox& list) {
    std::vector<std::wstring> rows;
    for (int row = 0; row < list.ListCount(); ++row) rows.push_back(list.List(row));
    return rows;
  }

  static inline const std::wstring kFolder = L"C:\\Kvez";
  fakes::Machine m_machine;
  test::CommandFakes m_commands;
  clspsc m_database{m_machine.Platform(), kFolder};
  std::unique_ptr<frmhlavni> m_window;
};

}  // namespace kvez
