#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "database/list_box.h"
#include "database/progress_window.h"
#include "platform/platform.h"
#include "platform/portable/portable_formats.h"
#include "tests/core/output_fakes.h"
#include "text/error.h"

/// What the core asks of the machine, without a machine: each fake keeps what it was asked for. Nothing here needs
/// the test framework, so that other programs can use it too.
namespace kvez::fakes {

using Bytes = std::vector<std::uint8_t>;

/// What happened, across all fakes of a machine, in order.
using Log = std::vector<std::wstring>;

class MessageDialogFake : public MessageDialog {
 public:
  struct Message {
    std::wstring text;
    MessageIcon icon;
    std::wstring caption;
    friend bool operator==(const Message&, const Message&) = default;
  };
  struct Question {
    std::wstring text;
    std::wstring caption;
    friend bool operator==(const Question&, const Question&) = default;
  };

  explicit MessageDialogFake(Log& log) : m_log(log) {}

  void Show(std::wstring_view text, MessageIcon icon, std::wstring_view caption) override {
    m_log.push_back(L"message");
    messages.push_back({std::wstring(text), icon, std::wstring(caption)});
    if (onShow) onShow();
  }

  bool Ask(std::wstring_view text, std::wstring_view caption) override {
    m_log.push_back(L"question");
    questions.push_back({std::wstring(text), std::wstring(caption)});
    if (onAsk) onAsk();
    if (answers.empty()) return false;
    const bool answer = answers.front();
    answers.pop_front();
    return answer;
  }

  std::vector<Message> messages;
  std::vector<Question> questions;
  std::deque<bool> answers;      // given one after the other; then No
  std::function<void()> onShow;  // what the world looks like while the message is shown
  std::function<void()> onAsk;   // the same while a question is open

 private:
  Log& m_log;
};

class SettingsStoreFake : public SettingsStore {
 public:
  using Place = std::tuple<std::wstring, std::wstring, std::wstring>;  // application, section, key

  std::wstring Get(std::wstring_view application, std::wstring_view section, std::wstring_view key,
                   std::wstring_view defaultValue) override {
    const auto found = values.find(Place(application, section, key));
    return found == values.end() ? std::wstring(defaultValue) : found->second;
  }

  void Save(std::wstring_view application, std::wstring_view section, std::wstring_view key,
            std::wstring_view value) override {
    if (refuses) throw Error(L"Nastavení se nepodařilo uložit.", "RegSetValueExW", 5);
    values[Place(application, section, key)] = value;
  }

  std::map<Place, std::wstring> values;
  bool refuses = false;  // to be written
};

/// The files of a machine by their full paths.
struct Disk {
  std::map<std::wstring, Bytes> files;
  std::map<std::wstring, DateTime> written;
  bool refusesNewFiles = false;
  bool refusesReading = false;  // of whole files, not through the expansion library
};

class FilesFake : public Files {
 public:
  FilesFake(Disk& disk, Log& log) : m_disk(disk), m_log(log) {}

  std::optional<Bytes> Read(const std::wstring& path) override {
    m_log.push_back(L"read " + path);
    if (onRead) onRead(path);
    const auto found = m_disk.files.find(path);
    if (found == m_disk.files.end() || m_disk.refusesReading) return std::nullopt;
    return found->second;
  }

  std::optional<DateTime> LastWriteTime(const std::wstring& path) override {
    const auto found = m_disk.written.find(path);
    if (found == m_disk.written.end()) return std::nullopt;
    return found->second;
  }

  std::function<void(const std::wstring& path)> onRead;  // what another program does just before

 private:
  Disk& m_disk;
  Log& m_log;
};

/// Copies files unchanged, as the real library does with files that are not compressed.
class LzLibraryFake : public LzLibrary {
 public:
  LzLibraryFake(Disk& disk, Log& log) : m_disk(disk), m_log(log) {}

  std::int32_t OpenFile(const std::wstring& path, LzMode mode) override {
    m_log.push_back(Verb(mode) + path);
    if (mode == LzMode::Delete) return m_disk.files.erase(path) > 0 ? 0 : -1;
    if (mode == LzMode::Read && m_disk.files.count(path) == 0) return -1;
    if (mode == LzMode::Create) {
      if (m_disk.refusesNewFiles) return -1;
      m_disk.files[path] = {};
    }
    m_open.emplace(++m_lastHandle, path);
    return m_lastHandle;
  }

  std::int32_t Copy(std::int32_t source, std::int32_t target) override {
    m_log.push_back(L"copy");
    const auto from = m_open.find(source);
    const auto to = m_open.find(target);
    if (from == m_open.end() || to == m_open.end()) return -1;
    if (copyResult) return *copyResult;
    m_disk.files[to->second] = m_disk.files[from->second];
    return static_cast<std::int32_t>(m_disk.files[to->second].size());
  }

  void Close(std::int32_t handle) override {
    m_log.push_back(L"close");
    m_open.erase(handle);
  }

  std::size_t OpenHandles() const { return m_open.size(); }

  std::optional<std::int32_t> copyResult;  // nothing is copied, and this is the answer

 private:
  static std::wstring Verb(LzMode mode) {
    switch (mode) {
      case LzMode::Read:
        return L"open ";
      case LzMode::Create:
        return L"create ";
      case LzMode::Delete:
        break;
    }
    return L"delete ";
  }

  Disk& m_disk;
  Log& m_log;
  std::map<std::int32_t, std::wstring> m_open;
  std::int32_t m_lastHandle = 0;
};

/// Czech formats that count how often they were asked.
class FormatsFake : public PortableFormats {
 public:
  std::wstring Number(std::int32_t value, std::wstring_view picture) override {
    ++numbers;
    if (onNumber) onNumber();
    return PortableFormats::Number(value, picture);
  }

  std::size_t numbers = 0;
  std::function<void()> onNumber;
};

/// A list box in whose font every character is 10 pixels wide.
class ListBoxFake : public ListBox {
 public:
  struct Row {
    std::wstring text;
    std::int32_t data;
    friend bool operator==(const Row&, const Row&) = default;
  };

  void Clear() override { rows.clear(); }
  void BeginFill(std::size_t count, std::size_t characters) override {
    ++openFillings;
    announcedRows = count;
    announcedCharacters = characters;
  }
  void EndFill() override { --openFillings; }
  void AddRow(std::wstring_view text, std::int32_t data) override { rows.push_back({std::wstring(text), data}); }
  int TextWidth(std::wstring_view text) override { return 10 * static_cast<int>(text.size()); }
  void SetHorizontalExtent(int pixels) override { extent = pixels; }

  /// The texts of all rows.
  std::vector<std::wstring> Texts() const {
    std::vector<std::wstring> texts;
    for (const Row& row : rows) texts.push_back(row.text);
    return texts;
  }

  std::vector<Row> rows;
  int extent = -1;  // never set
  int openFillings = 0;
  std::size_t announcedRows = 0;
  std::size_t announcedCharacters = 0;
};

class ProgressWindowFake : public ProgressWindow {
 public:
  void Prubech(float fraction) override {
    growing.push_back(fraction);
    if (onProgress) onProgress();
  }
  void PrubechPamet(float fraction) override {
    shrinking.push_back(fraction);
    if (onProgress) onProgress();
  }

  std::vector<float> growing;
  std::vector<float> shrinking;
  std::function<void()> onProgress;
};

/// All of it together.
struct Machine {
  Log log;
  Disk disk;
  MessageDialogFake messages{log};
  SettingsStoreFake settings;
  LzLibraryFake lz{disk, log};
  FilesFake files{disk, log};
  FormatsFake formats;
  OutputMachine output{log};

  kvez::Platform Platform() { return {{messages, settings, lz, files, formats}, output.Services()}; }
};

}  // namespace kvez::fakes
