#include "settings/clszastupce.h"

#include <utility>

#include "database/application.h"
#include "settings/boolean_text.h"

namespace kvez {
namespace {

constexpr std::wstring_view kWishKey = L"zástupce";
constexpr std::int32_t kDesktop = 0;
constexpr std::intptr_t kNothingFound = -1;
constexpr std::int32_t kMove = 1;
constexpr std::int32_t kDelete = 3;
// What the shortcuts of this program have always said, as a 16-bit number.
constexpr std::int16_t kShowWithoutActivating = 4;
constexpr std::uint16_t kSilent = 0x0004;
constexpr std::uint16_t kNoConfirmation = 0x0010;
constexpr std::uint16_t kNoConfirmationOfFolders = 0x0200;

std::uint16_t OperationFlags(std::int32_t operation) {
  switch (operation) {
    case kMove:
      return kSilent | kNoConfirmation | kNoConfirmationOfFolders;
    case kDelete:
      return kSilent | kNoConfirmation;
    default:
      return 0;
  }
}

}  // namespace

clszastupce::clszastupce(ShortcutPlatform platform) : m_platform(std::move(platform)) {}

void clszastupce::zStop() {
  if (!zZastupceRegistr()) return;
  if (zZastupcePlocha()) return;
  MakeShortcut(true);
}

bool clszastupce::zZastupceRegistr() const {
  const std::wstring text =
      m_platform.settings.Get(kSettingsApplication, kSettingsSection, kWishKey, BooleanText(false));
  return !text.empty() && BooleanFromText(text);
}

void clszastupce::zZastupceRegistr(bool wanted) {
  m_platform.settings.Save(kSettingsApplication, kSettingsSection, kWishKey, BooleanText(wanted));
}

bool clszastupce::zZastupcePlocha() const { return FileExists(LinkPath()) != kNothingFound; }

void clszastupce::zZastupcePlocha(bool wanted) { MakeShortcut(wanted); }

// Without a desktop this is a file in the root of the current drive, which then simply does not exist.
std::wstring clszastupce::LinkPath() const {
  return DesktopFolder(kDesktop).append(L"\\").append(kApplicationTitle).append(L".lnk");
}

std::wstring clszastupce::DesktopFolder(std::int32_t folder) const { return m_platform.shell.SpecialFolder(folder); }

void clszastupce::MakeShortcut(bool create) {
  if (create) {
    SaveShortcut();
  } else {
    FileOp(kDelete, LinkPath(), std::wstring());
  }
  // Recorded even when no shortcut came of it: the next end of the program tries again.
  zZastupceRegistr(create);
}

// What one step refuses does not stop the next: a shortcut without its icon is better than none.
void clszastupce::SaveShortcut() {
  const ShellLink link{LinkPath(), m_platform.programFolder + L"\\" + m_platform.executableName + L".exe",
                       m_platform.programFolder, kShowWithoutActivating};
  // Inside, the scripting host is 8-bit: it would lose the letters, or refuse the path.
  if (m_platform.shell.IsSpelt(link.path) && m_platform.shell.IsSpelt(link.target)) {
    SaveThroughScriptingHost(link);
  } else {
    m_platform.shell.SaveLink(link);
  }
}

void clszastupce::SaveThroughScriptingHost(const ShellLink& link) {
  const auto host = m_platform.automation.Create(L"WScript.Shell");
  if (!host) return;
  const auto shortcut = host->CallForObject(L"CreateShortcut", link.path);
  if (!shortcut) return;
  shortcut->SetText(L"TargetPath", link.target);
  shortcut->SetText(L"WorkingDirectory", link.folder);
  shortcut->SetInteger(L"WindowStyle", link.windowState);
  shortcut->SetText(L"IconLocation", link.target);
  shortcut->Call(L"Save");
}

std::int32_t clszastupce::FileOp(std::int32_t operation, const std::wstring& from, const std::wstring& to) const {
  if (FileExists(from) == kNothingFound) return -1;
  return m_platform.shell.FileOperation(operation, from, to, OperationFlags(operation));
}

// The search handle is the answer and stays open: the few of one run go with the process.
std::intptr_t clszastupce::FileExists(const std::wstring& path) const { return m_platform.shell.FindFile(path); }

}  // namespace kvez
