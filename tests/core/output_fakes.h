#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "platform/platform.h"

/// What handing out a list asks of the machine, without a machine. Like fakes.h, without the test framework.
namespace kvez::fakes {

class ClockFake : public Clock {
 public:
  DateTime Now() override { return now; }
  std::uint64_t Milliseconds() override { return milliseconds += step; }

  DateTime now{2026, 11, 16, 0, 50, 0};  // a Monday
  std::uint64_t milliseconds = 0;
  std::uint64_t step = 1000;  // by which it goes on between two looks
};

class PendingMessagesFake : public PendingMessages {
 public:
  explicit PendingMessagesFake(std::vector<std::wstring>& log) : m_log(log) {}
  void Process() override {
    m_log.push_back(L"pending messages");
    if (onProcess) onProcess();
  }

  std::function<void()> onProcess;  // what the world looks like while the windows catch up

 private:
  std::vector<std::wstring>& m_log;
};

class VersionInformationFake : public VersionInformation {
 public:
  std::wstring LegalNotice() override { return L"© Hora"; }
  std::wstring ProductName() override { return L"Kvez"; }
  std::wstring ProductVersion() override { return L"1.0"; }
};

class TextFilesFake : public TextFiles {
 public:
  explicit TextFilesFake(std::vector<std::wstring>& log) : m_log(log) {}

  void Write(const std::wstring& path, std::wstring_view text) override {
    m_log.push_back(L"write " + path);
    if (refuses) throw std::runtime_error("refused");
    texts[path] = text;
  }

  std::map<std::wstring, std::wstring> texts;
  bool refuses = false;

 private:
  std::vector<std::wstring>& m_log;
};

class ClipboardFake : public Clipboard {
 public:
  void Replace(std::wstring_view text) override { texts.emplace_back(text); }

  std::vector<std::wstring> texts;  // all of them, the last one is there now
};

class FolderDialogFake : public FolderDialog {
 public:
  explicit FolderDialogFake(std::vector<std::wstring>& log) : m_log(log) {}

  std::optional<std::wstring> Browse(std::wstring_view prompt) override {
    m_log.push_back(L"browse " + std::wstring(prompt));
    if (onBrowse) onBrowse();
    if (answers.empty()) return std::nullopt;
    const auto answer = answers.front();
    answers.pop_front();
    if (!answer) return std::nullopt;
    std::wstring buffer = *answer;
    buffer.resize(kPathBufferLength, L'\0');
    return buffer;
  }

  bool IsDirectory(const std::wstring& path) override {
    m_log.push_back(L"is directory " + path);
    return path == directory;
  }

  std::deque<std::optional<std::wstring>> answers;  // given one after the other; then the user cancels
  std::wstring directory = L"C:\\Data";             // the only one that there is
  std::function<void()> onBrowse;                   // what happens while the dialog is open

 private:
  std::vector<std::wstring>& m_log;
};

class MailClientFake : public MailClient {
 public:
  struct Sent {
    std::wstring delimiter;
    std::wstring files;
    std::wstring displayNames;
    friend bool operator==(const Sent&, const Sent&) = default;
  };

  explicit MailClientFake(std::vector<std::wstring>& log) : m_log(log) {}

  std::uint32_t SendDocuments(std::wstring_view delimiter, std::wstring_view files,
                              std::wstring_view displayNames) override {
    m_log.push_back(L"mail");
    sent.push_back({std::wstring(delimiter), std::wstring(files), std::wstring(displayNames)});
    if (onSend) onSend();
    return result;
  }

  std::vector<Sent> sent;
  std::uint32_t result = 0;
  std::function<void()> onSend;  // what happens while the client's window is open

 private:
  std::vector<std::wstring>& m_log;
};

/// A printer with a ruler for the head: text of N points is N * 0.42 mm high, each of its characters N / 4 mm wide.
class PrinterFake : public Printer {
 public:
  struct Text {
    int page;
    double x;
    double y;
    double size;
    bool bold;
    std::wstring text;
  };
  struct Rule {
    int page;
    double fromX;
    double fromY;
    double toX;
    double toY;
  };

  explicit PrinterFake(std::vector<std::wstring>& log) : m_log(log) {}

  void Reset() override {
    m_log.push_back(L"printer reset");
    if (m_open) ++discarded;
    m_open = false;
  }
  PrinterSettings Settings() override {
    Use();
    return settings;
  }
  void ChangeSettings(const PrinterSettings& changed) override {
    Use();
    m_log.push_back(L"printer settings");
    settings = changed;
    changes.push_back(changed);
  }
  void SetFontSize(double points) override {
    Use();
    m_size = points;
  }
  void SetBold(bool bold) override {
    Use();
    m_bold = bold;
  }
  double TextWidth(std::wstring_view text) override {
    Use();
    return static_cast<double>(text.size()) * m_size / 4;
  }
  double TextHeight(std::wstring_view) override {
    Use();
    return m_size * heightPerPoint;
  }
  void Print(double x, double y, std::wstring_view text) override {
    Use();
    Start();
    texts.push_back({pages, x, y, m_size, m_bold, std::wstring(text)});
  }
  void Line(double fromX, double fromY, double toX, double toY) override {
    Use();
    Start();
    rules.push_back({pages, fromX, fromY, toX, toY});
  }
  void NewPage() override {
    Use();
    ++pages;
  }
  void EndDocument() override {
    Use();
    m_log.push_back(L"printer end");
    m_open = false;
    ++documents;
  }

  bool HasOpenDocument() const { return m_open; }

  /// The texts of one page that stand at a height, from left to right as they were printed.
  std::vector<std::wstring> TextsAt(int page, double y) const {
    std::vector<std::wstring> found;
    for (const Text& text : texts) {
      if (text.page == page && text.y > y - 0.001 && text.y < y + 0.001) found.push_back(text.text);
    }
    return found;
  }

  double heightPerPoint = 0.42;
  PrinterSettings settings{2, 1, PrinterScale::Twips};  // landscape Letter
  std::vector<PrinterSettings> changes;
  std::vector<Text> texts;
  std::vector<Rule> rules;
  int pages = 0;
  int documents = 0;  // sent to the printer
  int discarded = 0;
  int uses = 0;
  std::optional<int> failsAtUse;  // and at every later use
  std::optional<int> failsOnlyAtUse;

 private:
  void Use() {
    ++uses;
    if (failsAtUse && uses >= *failsAtUse) throw std::runtime_error("printer failed");
    if (failsOnlyAtUse && uses == *failsOnlyAtUse) throw std::runtime_error("printer failed");
  }
  void Start() {
    if (!m_open) pages = 1;
    m_open = true;
  }

  std::vector<std::wstring>& m_log;
  double m_size = 0;
  bool m_bold = false;
  bool m_open = false;
};

/// All of it together.
struct OutputMachine {
  explicit OutputMachine(std::vector<std::wstring>& log)
      : pendingMessages(log), textFiles(log), folders(log), mail(log), printer(log) {}

  OutputPlatform Services() { return {clock, pendingMessages, version, textFiles, clipboard, folders, mail, printer}; }

  ClockFake clock;
  PendingMessagesFake pendingMessages;
  VersionInformationFake version;
  TextFilesFake textFiles;
  ClipboardFake clipboard;
  FolderDialogFake folders;
  MailClientFake mail;
  PrinterFake printer;
};

}  // namespace kvez::fakes
