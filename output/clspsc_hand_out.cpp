// The three ways out for the list text: a file, the clipboard, an e-mail.

#include <exception>

#include "database/application.h"
#include "database/clspsc.h"

namespace kvez {
namespace {

constexpr std::wstring_view kExportFile = L"vdkvez.txt";
constexpr std::wstring_view kMailFile = L"\\meil.txt";

// What the mail system answers to a file that it cannot attach.
constexpr std::uint32_t kMailFailure = 2;

/// False when the file could not be written, whatever the reason.
template <typename MakeText>
bool Write(TextFiles& files, const std::wstring& path, const MakeText& makeText) {
  try {
    files.Write(path, makeText());
    return true;
  } catch (const std::exception&) {
    return false;
  }
}

}  // namespace

void clspsc::pExport(std::wstring peh) {
  if (m_resultCount == 0) return;
  std::wstring path = AskForExportFolder();
  // The session may end over the dialog, or among the messages below, and the list with it.
  if (path.empty() || m_resultCount == 0) return;
  if (path.back() != L'\\') path += L'\\';
  path += kExportFile;

  Write(m_platform.output.textFiles, path, [&] { return TextUnderHeading(peh); });
  m_platform.output.pendingMessages.Process();
  if (m_resultCount == 0) return;
  // Said whether or not the file could be written.
  m_platform.messages.Show(L"Export do souboru \"vdkvez.txt\" je dokončen.", MessageIcon::Information,
                           kApplicationTitle);
}

std::wstring clspsc::AskForExportFolder() {
  FolderDialog& folders = m_platform.output.folders;
  std::wstring path;
  for (;;) {
    const auto buffer = folders.Browse(L"Zadejte cestu kam si přejete soubor uložit.");
    // The path of the pass before stays on purpose: cancelling a repeated dialog does not cancel the export.
    if (!buffer) return path;
    const std::size_t end = buffer->find(L'\0');
    path = buffer->substr(0, end);
    // A buffer without an end is taken whole and not looked at further.
    if (end == std::wstring::npos || folders.IsDirectory(path)) return path;
    m_platform.messages.Show(L"Vložte prosím disketu.", MessageIcon::Exclamation, kApplicationTitle);
  }
}

void clspsc::pClipboard(const std::wstring& pch) { m_platform.output.clipboard.Replace(TextUnderHeading(pch)); }

void clspsc::pMail(std::wstring pmt) {
  // At the root of a drive the folder ends in a backslash already; the doubled one names the same file.
  const std::wstring path = m_programFolder + std::wstring(kMailFile);
  // The file stays there after the message has gone; the next message overwrites it.
  const std::int32_t rows = m_resultCount;
  const bool written = Write(m_platform.output.textFiles, path, [&] { return TextUnderHeading(pmt); });
  // Without it nothing is sent: the file that is there may be an older list. The heading is what the recipient sees as
  // the attachment's name; the mail system splits it at semicolons.
  const std::uint32_t result = written ? m_platform.output.mail.SendDocuments(L";", path, pmt) : kMailFailure;
  // The session may have ended over the client's window, and the list with it.
  if (result == 0 || m_resultCount != rows) return;
  m_platform.messages.Show(L"Nastala chyba při pokusu o odeslání souboru e-mailem.", MessageIcon::Exclamation,
                           std::to_wstring(result));
}

}  // namespace kvez
