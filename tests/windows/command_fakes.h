#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "mainwindow/command_services.h"
#include "tests/windows/shortcut_fakes.h"

namespace kvez::test {

/// Downloads that give the results of the test, 0 when it names none.
class FakeDownloader : public Downloader {
 public:
  std::int32_t Download(const std::wstring& address, const std::wstring& path) override {
    downloads.push_back(address + L" > " + path);
    if (onDownload) onDownload(address, path);
    const auto found = results.find(address.substr(address.rfind(L'/') + 1));
    return found == results.end() ? 0 : found->second;
  }

  std::vector<std::wstring> downloads;
  std::map<std::wstring, std::int32_t> results;  // by file name
  std::function<void(const std::wstring& address, const std::wstring& path)> onDownload;
};

class FakeHelpViewer : public HelpViewer {
 public:
  void Show(const std::wstring& path) override { shown.push_back(path); }
  void CloseAll() override {
    ++closings;
    if (onCloseAll) onCloseAll();
  }

  std::vector<std::wstring> shown;
  int closings = 0;
  std::function<void()> onCloseAll;  // what the world looks like while the program closes
};

/// All that the commands ask of the machine.
struct CommandFakes {
  FakeDownloader downloader;
  FakeHelpViewer help;
  FakeShell shell;
  FakeAutomation automation;

  CommandServices Services(SettingsStore& settings, const std::wstring& programFolder) {
    return {downloader, help, {settings, shell, automation, programFolder, L"kvez"}};
  }
};

}  // namespace kvez::test
