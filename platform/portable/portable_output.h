#pragma once

#include "platform/platform.h"

namespace kvez {

/// The present moment by the standard library.
class PortableClock : public Clock {
 public:
  DateTime Now() override;
};

/// Text files in Windows-1250, whatever the machine's own code page is.
class PortableTextFiles : public TextFiles {
 public:
  void Write(const std::wstring& path, std::wstring_view text) override;
};

/// The services for handing out a list on a machine without windows: text files and the clock work, the clipboard
/// takes nothing, the folder dialog is always cancelled, there is no mail client (result 26) and no printer.
class PortableOutput {
 public:
  OutputPlatform Services();

 private:
  class NoPendingMessages : public PendingMessages {
   public:
    void Process() override {}
  };

  class NoVersionInformation : public VersionInformation {
   public:
    std::wstring LegalNotice() override { return {}; }
    std::wstring ProductName() override { return {}; }
    std::wstring ProductVersion() override { return {}; }
  };

  class NoClipboard : public Clipboard {
   public:
    void Replace(std::wstring_view) override {}
  };

  class NoFolderDialog : public FolderDialog {
   public:
    std::optional<std::wstring> Browse(std::wstring_view) override { return std::nullopt; }
    bool IsDirectory(const std::wstring&) override { return false; }
  };

  class NoMailClient : public MailClient {
   public:
    std::uint32_t SendDocuments(std::wstring_view, std::wstring_view, std::wstring_view) override;
  };

  class NoPrinter : public Printer {
   public:
    void Reset() override {}
    PrinterSettings Settings() override;
    void ChangeSettings(const PrinterSettings&) override;
    void SetFontSize(double) override;
    void SetBold(bool) override;
    double TextWidth(std::wstring_view) override;
    double TextHeight(std::wstring_view) override;
    void Print(double, double, std::wstring_view) override;
    void Line(double, double, double, double) override;
    void NewPage() override;
    void EndDocument() override;
  };

  PortableClock m_clock;
  NoPendingMessages m_pendingMessages;
  NoVersionInformation m_version;
  PortableTextFiles m_textFiles;
  NoClipboard m_clipboard;
  NoFolderDialog m_folders;
  NoMailClient m_mail;
  NoPrinter m_printer;
};

}  // namespace kvez
