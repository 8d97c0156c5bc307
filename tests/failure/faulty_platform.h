#pragma once

#include <new>
#include <stdexcept>

#include "tests/core/fakes.h"
#include "tests/support/allocation_faults.h"

/// The machine of the fakes with calls that fail on purpose.
namespace kvez::test {

/// What becomes of the chosen call. A call that cannot fail in the way asked for runs out of memory.
enum class CallFault {
  Answer,   // it answers that it failed
  Throw,    // it throws what its interface says that it throws
  NoMemory  // it throws std::bad_alloc
};

/// Counts the calls from 1 and says which one fails.
class CallFaults {
 public:
  void Arm(std::size_t failing, CallFault fault) {
    m_failing = failing;
    m_fault = fault;
    m_counted = 0;
  }
  std::size_t Disarm() {
    m_failing = 0;
    return m_counted;
  }
  bool HasFailed() const { return m_failing != 0 && m_counted >= m_failing; }

  /// One call of the machine: what the fake allocates in it is not the core's.
  class Call {
   public:
    /// `mayAnswer` and `mayThrow`: whether the interface knows a failure of that kind. With neither, and `neverFails`,
    /// the call is only counted out.
    Call(CallFaults& faults, bool mayAnswer, bool mayThrow) {
      if (++faults.m_counted != faults.m_failing) return;
      m_fails = mayAnswer && faults.m_fault == CallFault::Answer;
      if (m_fails) return;
      if (mayThrow && faults.m_fault == CallFault::Throw) throw std::runtime_error("refused");
      throw std::bad_alloc();
    }
    bool Fails() const { return m_fails; }

   private:
    allocation::Pause m_pause;
    bool m_fails = false;
  };

 private:
  std::size_t m_failing = 0;
  std::size_t m_counted = 0;
  CallFault m_fault = CallFault::Answer;
};

constexpr bool kMayAnswer = true;
constexpr bool kMayThrow = true;
constexpr bool kNever = false;

template <class Interface>
class Faulty : public Interface {
 public:
  Faulty(Interface& real, CallFaults& faults) : m_real(real), m_faults(faults) {}

 protected:
  CallFaults::Call Begin(bool mayAnswer, bool mayThrow) { return {m_faults, mayAnswer, mayThrow}; }

  Interface& m_real;
  CallFaults& m_faults;
};

class FaultyLz : public Faulty<LzLibrary> {
 public:
  using Faulty::Faulty;
  std::int32_t OpenFile(const std::wstring& path, LzMode mode) override {
    const auto call = Begin(kMayAnswer, kNever);
    return call.Fails() ? -1 : m_real.OpenFile(path, mode);
  }
  std::int32_t Copy(std::int32_t source, std::int32_t target) override {
    const auto call = Begin(kMayAnswer, kNever);
    return call.Fails() ? -4 : m_real.Copy(source, target);
  }
  void Close(std::int32_t handle) override {
    // A close can only be silent about its failure.
    const allocation::Pause pause;
    m_real.Close(handle);
  }
};

class FaultyFiles : public Faulty<Files> {
 public:
  using Faulty::Faulty;
  std::optional<std::vector<std::uint8_t>> Read(const std::wstring& path) override {
    const auto call = Begin(kMayAnswer, kNever);
    if (call.Fails()) return std::nullopt;
    return m_real.Read(path);
  }
  std::optional<DateTime> LastWriteTime(const std::wstring& path) override {
    const auto call = Begin(kMayAnswer, kNever);
    if (call.Fails()) return std::nullopt;
    return m_real.LastWriteTime(path);
  }
};

class FaultySettings : public Faulty<SettingsStore> {
 public:
  using Faulty::Faulty;
  std::wstring Get(std::wstring_view application, std::wstring_view section, std::wstring_view key,
                   std::wstring_view defaultValue) override {
    const auto call = Begin(kMayAnswer, kNever);
    return call.Fails() ? std::wstring(defaultValue) : m_real.Get(application, section, key, defaultValue);
  }
  void Save(std::wstring_view application, std::wstring_view section, std::wstring_view key,
            std::wstring_view value) override {
    const auto call = Begin(kNever, kMayThrow);
    m_real.Save(application, section, key, value);
  }
};

class FaultyFormats : public Faulty<Formats> {
 public:
  using Faulty::Faulty;
  std::wstring Number(std::int32_t value, std::wstring_view picture) override {
    const auto call = Begin(kNever, kNever);
    return m_real.Number(value, picture);
  }
  std::wstring Date(const DateTime& value, std::wstring_view picture) override {
    const auto call = Begin(kNever, kNever);
    return m_real.Date(value, picture);
  }
};

class FaultyTextFiles : public Faulty<TextFiles> {
 public:
  using Faulty::Faulty;
  void Write(const std::wstring& path, std::wstring_view text) override {
    const auto call = Begin(kNever, kMayThrow);
    m_real.Write(path, text);
  }
};

class FaultyClipboard : public Faulty<Clipboard> {
 public:
  using Faulty::Faulty;
  void Replace(std::wstring_view text) override {
    const auto call = Begin(kMayAnswer, kNever);
    if (!call.Fails()) m_real.Replace(text);
  }
};

class FaultyFolders : public Faulty<FolderDialog> {
 public:
  using Faulty::Faulty;
  std::optional<std::wstring> Browse(std::wstring_view prompt) override {
    const auto call = Begin(kMayAnswer, kNever);
    if (call.Fails()) return std::nullopt;
    return m_real.Browse(prompt);
  }
  bool IsDirectory(const std::wstring& path) override {
    const auto call = Begin(kMayAnswer, kNever);
    return !call.Fails() && m_real.IsDirectory(path);
  }
};

class FaultyMail : public Faulty<MailClient> {
 public:
  using Faulty::Faulty;
  std::uint32_t SendDocuments(std::wstring_view delimiter, std::wstring_view files,
                              std::wstring_view displayNames) override {
    const auto call = Begin(kMayAnswer, kNever);
    return call.Fails() ? 2 : m_real.SendDocuments(delimiter, files, displayNames);
  }
};

class FaultyPrinter : public Faulty<Printer> {
 public:
  using Faulty::Faulty;
  void Reset() override {
    // The one call of the printer that always succeeds.
    const allocation::Pause pause;
    m_real.Reset();
  }
  PrinterSettings Settings() override {
    const auto call = Begin(kNever, kMayThrow);
    return m_real.Settings();
  }
  void ChangeSettings(const PrinterSettings& settings) override {
    const auto call = Begin(kNever, kMayThrow);
    m_real.ChangeSettings(settings);
  }
  void SetFontSize(double points) override {
    const auto call = Begin(kNever, kMayThrow);
    m_real.SetFontSize(points);
  }
  void SetBold(bool bold) override {
    const auto call = Begin(kNever, kMayThrow);
    m_real.SetBold(bold);
  }
  double TextWidth(std::wstring_view text) override {
    const auto call = Begin(kNever, kMayThrow);
    return m_real.TextWidth(text);
  }
  double TextHeight(std::wstring_view text) override {
    const auto call = Begin(kNever, kMayThrow);
    return m_real.TextHeight(text);
  }
  void Print(double x, double y, std::wstring_view text) override {
    const auto call = Begin(kNever, kMayThrow);
    m_real.Print(x, y, text);
  }
  void Line(double fromX, double fromY, double toX, double toY) override {
    const auto call = Begin(kNever, kMayThrow);
    m_real.Line(fromX, fromY, toX, toY);
  }
  void NewPage() override {
    const auto call = Begin(kNever, kMayThrow);
    m_real.NewPage();
  }
  void EndDocument() override {
    const auto call = Begin(kNever, kMayThrow);
    m_real.EndDocument();
  }
};

class FaultyListBox : public Faulty<ListBox> {
 public:
  using Faulty::Faulty;
  void Clear() override {
    // A box can always be emptied.
    const allocation::Pause pause;
    m_real.Clear();
  }
  void BeginFill(std::size_t rows, std::size_t characters) override {
    const auto call = Begin(kNever, kNever);
    m_real.BeginFill(rows, characters);
  }
  void EndFill() override {
    const allocation::Pause pause;
    m_real.EndFill();
  }
  void AddRow(std::wstring_view text, std::int32_t data) override {
    const auto call = Begin(kNever, kNever);
    m_real.AddRow(text, data);
  }
  int TextWidth(std::wstring_view text) override {
    const auto call = Begin(kNever, kNever);
    return m_real.TextWidth(text);
  }
  void SetHorizontalExtent(int pixels) override {
    const auto call = Begin(kNever, kNever);
    m_real.SetHorizontalExtent(pixels);
  }
};

class FaultyWindow : public Faulty<ProgressWindow> {
 public:
  using Faulty::Faulty;
  void Prubech(float fraction) override {
    const auto call = Begin(kNever, kNever);
    m_real.Prubech(fraction);
  }
  void PrubechPamet(float fraction) override {
    const auto call = Begin(kNever, kNever);
    m_real.PrubechPamet(fraction);
  }
};

/// The rest of the services: their calls cannot fail, but what they allocate is not the core's.
class QuietMessages : public Faulty<MessageDialog> {
 public:
  using Faulty::Faulty;
  void Show(std::wstring_view text, MessageIcon icon, std::wstring_view caption) override {
    const allocation::Pause pause;
    m_real.Show(text, icon, caption);
  }
  bool Ask(std::wstring_view text, std::wstring_view caption) override {
    const allocation::Pause pause;
    return m_real.Ask(text, caption);
  }
};

class FaultyVersion : public Faulty<VersionInformation> {
 public:
  using Faulty::Faulty;
  std::wstring LegalNotice() override {
    const auto call = Begin(kNever, kNever);
    return m_real.LegalNotice();
  }
  std::wstring ProductName() override { return m_real.ProductName(); }
  std::wstring ProductVersion() override { return m_real.ProductVersion(); }
};

class QuietPendingMessages : public Faulty<PendingMessages> {
 public:
  using Faulty::Faulty;
  void Process() override {
    const allocation::Pause pause;
    m_real.Process();
  }
};

/// The machine of the fakes behind all of them.
struct FaultyMachine {
  fakes::Machine real;
  fakes::ListBoxFake realList;
  fakes::ProgressWindowFake realWindow;
  CallFaults faults;

  QuietMessages messages{real.messages, faults};
  FaultySettings settings{real.settings, faults};
  FaultyLz lz{real.lz, faults};
  FaultyFiles files{real.files, faults};
  FaultyFormats formats{real.formats, faults};
  QuietPendingMessages pendingMessages{real.output.pendingMessages, faults};
  FaultyVersion version{real.output.version, faults};
  FaultyTextFiles textFiles{real.output.textFiles, faults};
  FaultyClipboard clipboard{real.output.clipboard, faults};
  FaultyFolders folders{real.output.folders, faults};
  FaultyMail mail{real.output.mail, faults};
  FaultyPrinter printer{real.output.printer, faults};
  FaultyListBox list{realList, faults};
  FaultyWindow window{realWindow, faults};

  kvez::Platform Platform() {
    return {{messages, settings, lz, files, formats},
            {real.output.clock, pendingMessages, version, textFiles, clipboard, folders, mail, printer}};
  }
};

}  // namespace kvez::test
