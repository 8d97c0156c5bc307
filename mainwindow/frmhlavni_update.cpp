// What reaches the internet: the update of the database, and the help when it is missing.

#include <windows.h>

#include <commctrl.h>

#include <algorithm>

#include "database/application.h"
#include "database/data_files.h"
#include "forms/input_gate.h"
#include "mainwindow/addresses.h"
#include "mainwindow/frmhlavni.h"
#include "mainwindow/help_file.h"
#include "mainwindow/scopes.h"

namespace kvez {
namespace {

struct UpdateFile {
  const DataFile& data;
  const wchar_t* status;
};

// The municipalities come last: their download decides what becomes of the update.
constexpr std::array<UpdateFile, 3> kUpdateFiles = {{
    {kDistrictFile, L"Bylo zahájeno stažení aktuálního datového souboru okresy."},
    {kPostOfficeFile, L"Bylo zahájeno stažení aktuálního datového souboru dodací pošty."},
    {kMunicipalityFile, L"Bylo zahájeno stažení aktuálního datového souboru PSČ."},
}};

constexpr const wchar_t* kHelpFile = L"kvez.chm";

}  // namespace

void frmhlavni::tlHAktualizace_Click() {
  // The system handles messages of its own while it downloads; none of them may start a command in this one.
  if (!forms::TakesInput(*this)) return;
  const forms::InputPause pause(*this);
  // What a failure just before has left to be cleared is over; it must not clear what this one says.
  messageTimer.Stop();
  ShowIcon(StatusIcon::Download);
  // What was never loaded is no database to come back to. Where no copies can be made nothing can be downloaded, too.
  if (m_database.pscCelkem() > 0 && !m_previous.Keep()) return KeepTheDatabase();
  picMPSCPI.SetVisible(true);
  std::int32_t result = 0;
  bool wasEnded = false;
  for (const UpdateFile& file : kUpdateFiles) {
    LongWork work(*this);
    // Only the last result is looked at, on purpose: what the other two files hold is for their loading to judge.
    const std::wstring path = m_services.ProgramFolder() + std::wstring(file.data.compressed);
    result = DownloadWithStatus(std::wstring(file.data.Name()), path, file.status, work);
    // The session ends: there is nobody left to download for, and nothing to say.
    if (!IsOpen()) return;
    wasEnded = work.WasEnded();
    if (SessionEnds() || wasEnded) break;
  }
  if (result == 0 && !wasEnded && !SessionEnds()) return TakeOverDownloadedFiles();
  picMPSCPI.SetVisible(false);
  picZpravaI.Cls();
  if (SessionEnds()) return ClearMessage();
  // Whoever ends an update wants what was there before it, all of it.
  if (wasEnded) m_previous.PutBack();
  KeepTheDatabase();
}

std::int32_t frmhlavni::DownloadWithStatus(const std::wstring& name, const std::wstring& path, std::wstring_view status,
                                           LongWork& work) {
  m_statusBar.SetText(status, kMessagePanel, SBT_POPOUT);
  m_statusBar.Refresh();
  BeginStep(L"Strpení prosím, stahuji. Ukončí to klávesa Esc.");
  return m_services.downloader.Download(kDownloadBase + name, path, [&](std::uint64_t bytes, std::uint64_t total) {
    ShowDownloaded(bytes, total);
    return work.GoesOn();
  });
}

void frmhlavni::ShowDownloaded(std::uint64_t bytes, std::uint64_t total) {
  // Nobody may know how much will come; then the bar grows slower and slower, and never to its end.
  constexpr std::uint64_t kUsualBytes = 256U << 10;
  const std::uint64_t whole = std::max(bytes, total > 0 ? total : bytes + kUsualBytes);
  const float fraction = static_cast<float>(bytes) / static_cast<float>(whole);
  picZpravaI.FillRectangle(0, 0, picZpravaI.ScaleWidth() * fraction, picZpravaI.ScaleHeight());
}

void frmhlavni::TakeOverDownloadedFiles() {
  m_statusBar.SetText(L"Stažení aktuálního datového souboru bylo úspěšné.", kMessagePanel, SBT_POPOUT);
  m_resultList.Clear();
  m_resultList.SetHorizontalExtent(0);
  lblMPSCN.SetCaption(L"");
  picMPSCPI.SetVisible(true);
  {
    const HourglassScope hourglass;
    ShowIcon(StatusIcon::Memory);
    ShowMessage(L"Strpení prosím, uvolňuji paměť.");
    m_database.pscUvolniPamet(*this);
  }
  NactiDatabazi();
  if (!IsOpen()) return;
  RestartSearching();
  TellOfLooseEnds();
  OfferPreviousDatabase();
}

// What the search panel still showed belonged to records that are gone: it ends as after a fresh start. Only the status
// bar keeps what the loading has said.
void frmhlavni::RestartSearching() {
  lblPSCV[kCountResult].SetCaption(L"");
  m_samePostalCode = false;
  if (optMPSC[kModeName].Value()) {
    optMPSC_Click(kModeName);
  } else {
    optMPSC[kModeName].SetValue(true);
  }
  m_statusBar.SetText(LastUpdateText(), kMessagePanel, 0);
}

void frmhlavni::KeepTheDatabase() {
  m_platform.messages.Show(L"Aktualizace databáze nebyla úspěšná.", MessageIcon::Exclamation, kApplicationTitle);
  if (m_database.pscCelkem() <= 0) {
    m_statusBar.SetText(L"", kMessagePanel, SBT_NOBORDERS);
    return;
  }
  SayThatDatabaseIsKept();
}

void frmhlavni::tlHNapoveda_Click() {
  if (!forms::TakesInput(*this)) return;
  const forms::InputPause pause(*this);
  const std::wstring path = CestaNapovedy();
  if (!m_services.help.Takes(path)) {
    m_platform.messages.Show(L"Nápovědu nelze otevřít: cesta ke složce programu je příliš dlouhá.",
                             MessageIcon::Exclamation, kApplicationTitle);
    return;
  }
  // Hidden files and such of the system's do not count, on purpose.
  if (m_services.files.IsNormalFile(path) && IsHelp(path)) {
    ShowHelp(path);
  } else {
    if (!m_platform.messages.Ask(L"Přejete si z internetu stáhnout nápovědu ?", kApplicationTitle)) return;
    ShowIcon(StatusIcon::Download);
    const bool isNew = !m_services.files.Exists(path);
    std::int32_t result = 0;
    {
      const VisibleScope panel(picMPSCPI);
      LongWork work(*this);
      result = DownloadWithStatus(kHelpFile, path, L"Bylo zahájeno stažení souboru nápovědy.", work);
      picZpravaI.Cls();
    }
    if (!IsOpen()) return;
    if (result == 0 && IsHelp(path)) {
      ShowHelp(path);
    } else {
      // A page that says something else instead of the help, or a part of it: nobody needs that.
      if (isNew || result == 0) m_services.files.Remove(path);
      m_platform.messages.Show(L"Stažení souboru nápovědy nebylo úspěšné.", MessageIcon::Exclamation,
                               kApplicationTitle);
    }
  }
  m_statusBar.SetText(L"", kMessagePanel, SBT_NOBORDERS);
}

bool frmhlavni::IsHelp(const std::wstring& path) {
  const auto content = m_platform.files.Read(path);
  return content && IsWholeHelp(*content);
}

void frmhlavni::ShowHelp(const std::wstring& path) {
  if (m_services.help.Show(path)) return;
  m_platform.messages.Show(L"Nápovědu se nepodařilo otevřít.", MessageIcon::Exclamation, kApplicationTitle);
}

std::wstring frmhlavni::CestaNapovedy() const { return m_services.ProgramFolder() + L"\\" + kHelpFile; }

}  // namespace kvez
