#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "mainwindow/command_services.h"
#include "tests/core/fakes.h"
#include "tests/windows/shortcut_fakes.h"

namespace kvez::test {

/// Downloads that give the results of the test, 0 when it names none.
class FakeDownloader : public Downloader {
 public:
  std::int32_t Download(const std::wstring& address, const std::wstring& path, const DownloadWatch& goesOn) override {
    downloads.push_back(address + L" > " + path);
    watch = goesOn;
    if (onDownload) onDownload(address, path);
    watch = nullptr;
    const auto found = results.find(address.substr(address.rfind(L'/') + 1));
    return found == results.end() ? 0 : found->second;
  }

  std::vector<std::wstring> downloads;
  std::map<std::wstring, std::int32_t> results;  // by file name
  std::function<void(const std::wstring& address, const std::wstring& path)> onDownload;
  DownloadWatch watch;  // of the download that goes on
};

class FakeHelpViewer : public HelpViewer {
 public:
  bool Takes(const std::wstring&) override { return takes; }
  bool Show(const std::wstring& path) override {
    shown.push_back(path);
    return opens;
  }
  void CloseAll() override {
    ++closings;
    if (onCloseAll) onCloseAll();
  }

  bool takes = true;
  bool opens = true;
  std::vector<std::wstring> shown;
  int closings = 0;
  std::function<void()> onCloseAll;  // what the world looks like while the program closes
};

/// Files of a fake disk; without one there are none.
class FakeFileOperations : public FileOperations {
 public:
  bool Exists(const std::wstring& path) override { return disk != nullptr && disk->files.contains(path); }
  bool IsNormalFile(const std::wstring& path) override { return Exists(path) && !hidden; }
  bool Copy(const std::wstring& from, const std::wstring& to) override {
    steps.push_back(L"copy " + from + L" > " + to);
    if (from == refused || !Exists(from)) return false;
    disk->files[to] = disk->files[from];
    disk->written[to] = disk->written[from];
    return true;
  }
  bool Move(const std::wstring& from, const std::wstring& to) override {
    steps.push_back(L"move " + from + L" > " + to);
    if (from == refused || !Exists(from)) return false;
    disk->files[to] = disk->files[from];
    disk->written[to] = disk->written[from];
    return Remove(from);
  }
  bool Remove(const std::wstring& path) override {
    if (disk == nullptr) return true;
    disk->files.erase(path);
    disk->written.erase(path);
    return true;
  }

  fakes::Disk* disk = nullptr;
  bool hidden = false;   // all of them
  std::wstring refused;  // that file can be neither copied nor moved
  std::vector<std::wstring> steps;
};

/// All that the commands ask of the machine.
struct CommandFakes {
  FakeDownloader downloader;
  FakeHelpViewer help;
  FakeFileOperations files;
  FakeShell shell;
  FakeAutomation automation;

  CommandServices Services(SettingsStore& settings, const std::wstring& programFolder) {
    return {downloader, help, files, {settings, shell, automation, programFolder, L"kvez"}};
  }
};

}  // namespace kvez::test
