#include "output/hand_out.h"

#include <exception>

#include "database/application.h"
#include "output/list_text.h"

namespace kvez {
namespace {

constexpr std::wstring_view kExportFile = L"vdkvez.txt";
constexpr std::wstring_view kMailFile = L"\\meil.txt";

// What the mail system answers to a file that it cannot attach.
constexpr std::uint32_t kMailFailure = 2;

}  // namespace

std::wstring HandOut::Text(const std::wstring& heading) {
  return ListText(heading, m_rows, m_formats, m_output.clock, m_output.version);
}

/// False when the file could not be written, whatever the reason.
bool HandOut::Write(const std::wstring& path, const std::wstring& heading) {
  try {
    m_output.textFiles.Write(path, Text(heading));
    return true;
  } catch (const std::exception&) {
    return false;
  }
}

void HandOut::Export(const std::wstring& heading) {
  if (m_rows.Count() == 0) return;
  std::wstring path = AskForExportFolder();
  // The session may end over the dialog, or among the messages below, and the list with it.
  if (path.empty() || m_rows.Count() == 0) return;
  if (path.back() != L'\\') path += L'\\';
  path += kExportFile;

  Write(path, heading);
  m_output.pendingMessages.Process();
  if (m_rows.Count() == 0) return;
  // Said whether or not the file could be written.
  m_messages.Show(L"Export do souboru \"vdkvez.txt\" je dokončen.", MessageIcon::Information, kApplicationTitle);
}

std::wstring HandOut::AskForExportFolder() {
  FolderDialog& folders = m_output.folders;
  std::wstring path;
  for (;;) {
    const auto buffer = folders.Browse(L"Zadejte cestu kam si přejete soubor uložit.");
    // The path of the pass before stays on purpose: cancelling a repeated dialog does not cancel the export.
    if (!buffer) return path;
    const std::size_t end = buffer->find(L'\0');
    path = buffer->substr(0, end);
    // A buffer without an end is taken whole and not looked at further.
    if (end == std::wstring::npos || folders.IsDirectory(path)) return path;
    m_messages.Show(L"Vložte prosím disketu.", MessageIcon::Exclamation, kApplicationTitle);
  }
}

void HandOut::Copy(const std::wstring& heading) { m_output.clipboard.Replace(Text(heading)); }

void HandOut::Mail(const std::wstring& heading, const std::wstring& folder) {
  // At the root of a drive the folder ends in a backslash already; the doubled one names the same file.
  const std::wstring path = folder + std::wstring(kMailFile);
  // The file stays there after the message has gone; the next message overwrites it.
  const std::int32_t rows = m_rows.Count();
  // Without it nothing is sent: the file that is there may be an older list. The heading is what the recipient sees as
  // the attachment's name; the mail system splits it at semicolons.
  const std::uint32_t result = Write(path, heading) ? m_output.mail.SendDocuments(L";", path, heading) : kMailFailure;
  // The session may have ended over the client's window, and the list with it.
  if (result == 0 || m_rows.Count() != rows) return;
  m_messages.Show(L"Nastala chyba při pokusu o odeslání souboru e-mailem.", MessageIcon::Exclamation,
                  std::to_wstring(result));
}

}  // namespace kvez
