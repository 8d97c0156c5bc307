#pragma once

#include <array>
#include <cstdint>
#include <exception>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "controls/tlText.h"
#include "forms/buttons.h"
#include "forms/containers.h"
#include "forms/form.h"
#include "forms/label.h"
#include "forms/list_box.h"
#include "forms/text_box.h"
#include "forms/timer.h"
#include "mainwindow/command_services.h"
#include "mainwindow/list_box_adapter.h"
#include "mainwindow/message_timer.h"
#include "mainwindow/previous_files.h"
#include "mainwindow/search_panel_rules.h"
#include "mainwindow/statusbar.h"
#include "platform/platform.h"
#include "postal/clspsc.h"
#include "settings/frmnastaveni.h"

namespace kvez {

class frmhlavni;

/// Something that lasts, in the main window, which takes no input meanwhile: a download, a print.
class LongWork {
 public:
  explicit LongWork(frmhlavni& window);
  LongWork(const LongWork&) = delete;
  LongWork& operator=(const LongWork&) = delete;
  ~LongWork();

  /// To be asked all the time; the window is painted and moved in it. False when the work shall end: the user has
  /// pressed Escape, the window is gone, the session comes to its end.
  bool GoesOn();
  void End() { m_wasEnded = true; }
  /// Escape was pressed.
  bool WasEnded() const { return m_wasEnded; }

 private:
  frmhlavni& m_window;
  LongWork* m_around;
  std::uint64_t m_lastLook = 0;
  bool m_wasEnded = false;
};

/// What the progress report of long work throws when the work shall end.
class WorkIsEnded : public std::exception {};

/// The main window. Its parts are in files of their own: frmhlavni_layout (controls and places), frmhlavni_life
/// (loading and closing), frmhlavni_search (the search panel), frmhlavni_panel (what it offers), frmhlavni_lists
/// (selecting), frmhlavni_menu (handing the result out), frmhlavni_update (what reaches the internet),
/// frmhlavni_work (long work), frmhlavni_previous (the way back from an update), frmhlavni_settings (the yes/no
/// settings), frmhlavni_about (the About panel), frmhlavni_colors (the colours), frmhlavni_commands (the other buttons,
/// hints and keys).
class frmhlavni : public forms::Form, public ProgressWindow {
 public:
  /// Creates the hidden window with all its controls. What is given here outlives it.
  frmhlavni(clspsc& database, const Platform& platform, CommandServices services);

  /// Paints the bar of the message panel to a fraction (0 to 1) of its width.
  void Prubech(float fraction) override;
  /// The same on an emptied bar, which may so shrink.
  void PrubechPamet(float fraction) override;

  /// Loads the three data files and fills the lists of municipalities and districts.
  void NactiDatabazi();
  /// The search of the mode that is chosen, from `txtMPSC(0)`.
  void VyhledejSeznam();
  /// The search by the beginning of a PSČ, from `txtMPSC(1)`.
  void VyhledejPSC();

  /// What all buttons have under the pointer and while they are held down, and the light-blue field behind its text: as
  /// designed where that reads well with the system's colours.
  static COLORREF ButtonMoveColor();
  static COLORREF ButtonDownColor();
  static COLORREF FieldColor();

  // The controls, by their names; what lies in front comes first.
  forms::PictureBox picMPSCPI;
  forms::Label lblZpravaI;
  forms::PictureBox picZpravaI;
  forms::Frame fraMPSCO;
  std::array<forms::Label, 3> Label1to3;
  forms::TextBox Text1;
  tlText tlHMeil, tlHWWW, tlHPCInfo, tlHStorno;
  std::array<forms::TextBox, 2> txtMPSC;
  std::array<forms::ListBox, 3> lstMPSC;
  std::array<forms::OptionButton, 3> optMPSC;
  std::array<forms::Label, 3> lblMPSCH;
  std::array<forms::Label, 2> lblNPSCHT;
  forms::Label lblMPSCN;
  std::array<forms::Label, 2> lblPSCV;
  tlText tlHVyhledej, tlHObcePSC, tlHAktualizace, tlHNapoveda, tlHOaplikaci, tlHNastaveni, tlHKonec;
  forms::Timer tmrMPSC;
  /// Takes away what the status bar says for a while.
  MessageTimer messageTimer;

 protected:
  void Form_Load() override;
  void Form_QueryUnload(std::int16_t& cancel, forms::UnloadMode mode) override;
  void Form_Unload(std::int16_t& cancel) override;
  void Form_Terminate() override;
  void Form_Resize() override;
  void Form_SysColorsChanged() override;
  void Form_KeyDown(std::int16_t& KeyCode, std::int16_t Shift) override;
  forms::Control* WorkGoesOnAt(const forms::Control& leaving) override;

 private:
  friend class LongWork;

  // frmhlavni_layout
  void CreateMessagePanel();
  /// The About panel's buttons as they are designed. Their windows are made with the rest of the panel, when it is
  /// shown for the first time: a screen reader would come across hidden ones.
  void DesignAboutPanel();
  void CreateAboutPanel();
  void CreateSearchPanel();
  void CreateButtons();
  void BindEvents();

  // frmhlavni_life
  void Titul();
  void CentreMessagePanel();
  void BeginStep(std::wstring_view status, std::wstring_view message);
  void BeginStep(std::wstring_view message);
  void ShowMessage(std::wstring_view message);
  void LoadAndFillLists();
  void FillLists();
  void ShowNoData();
  std::wstring LastUpdateText() const;
  bool ConfirmsExit();

  // frmhlavni_search
  void optMPSC_Click(std::size_t index);
  void txtMPSC_GotFocus(std::size_t index);
  void txtMPSC_LostFocus(std::size_t index);
  void txtMPSC_Change(std::size_t index);
  std::wstring txtMPSC_Paste(const std::wstring& text) const;
  void txtMPSC_KeyDown(std::size_t index, std::int16_t& keyCode, std::int16_t shift);
  void txtMPSC_KeyPress(std::size_t index, std::int16_t& keyAscii);
  void txtMPSC_KeyUp(std::size_t index, std::int16_t& keyCode, std::int16_t shift);
  void tmrMPSC_Timer();
  void SelectBeginning(std::size_t list);
  void EndDeferredSearch();
  void SayThatNoModeIsChosen();
  void SayThatAModeIsNeeded(std::wstring_view text);
  void tlHVyhledej_Click();
  void tlHObcePSC_Click();
  void ShowSearchResult(const std::wstring& description);

  // frmhlavni_panel
  bool IsMode(SearchMode mode) const { return m_mode == mode; }
  void ShowIcon(StatusIcon icon) { m_statusBar.SetIcon(kMessagePanel, -1, icon); }
  /// To be called at the end of every command: what the panel offers follows from what is chosen in it.
  void UpdatePanel();
  void ShowModeHint(std::wstring_view hint);
  /// What may be tried next after a search for `text`, on the status bar. The next command takes it away.
  void ShowSearchOffer(const std::wstring& text);
  void TakeSearchOfferAway();
  void LeaveTypingModes();
  /// A row was chosen, or the one that was chosen is gone.
  void ChooseRow(std::size_t list);
  void ForgetRow(std::size_t list);
  /// The mode that is chosen already was chosen again.
  void ResumeSearching();
  /// Puts the database's cursor back on the row that the result list shows as selected: whatever walks over the result
  /// takes the cursor along.
  void StandOnSelectedResult();

  // frmhlavni_lists
  void lstMPSC_Click(std::size_t index);
  void lstMPSC_MouseMove(std::size_t index, float xTwips, float yTwips);
  void ShowMunicipality();
  void ShowResult();
  void ShowDistrict();
  void lstMPSC_KeyDown(std::size_t index, std::int16_t keyCode, std::int16_t shift);
  void CopyAddress(std::size_t index);

  // frmhlavni_menu
  void VytvorNabidku();
  void lstMPSC_MouseUp(std::size_t index, std::int16_t button, std::int16_t shift, float xTwips, float yTwips);
  void lstMPSC_ContextMenuKey();
  bool SaysThatListIsEmpty();
  void ShowListMenu(POINT screen);
  void RunListCommand(unsigned command, const std::wstring& heading);
  void PrintList(const std::wstring& heading);

  // frmhlavni_update
  void tlHAktualizace_Click();
  void tlHNapoveda_Click();
  std::wstring CestaNapovedy() const;
  bool IsHelp(const std::wstring& path);
  void ShowHelp(const std::wstring& path);
  std::int32_t DownloadWithStatus(const std::wstring& name, const std::wstring& path, std::wstring_view status,
                                  LongWork& work);
  void ShowDownloaded(std::uint64_t bytes, std::uint64_t total);
  void TakeOverDownloadedFiles();
  void RestartSearching();
  void KeepTheDatabase();

  // frmhlavni_previous
  void OfferPreviousDatabase();
  void SayThatDatabaseIsKept();
  /// A text of the status bar that goes by itself after five seconds.
  void SayForAWhile(std::wstring_view text);
  void TellOfLooseEnds();

  // frmhlavni_settings
  /// A yes/no setting. One that cannot be read is told of once, and counts as not set until it can.
  bool IsSet(std::int16_t setting);
  void TellOfSetting(std::int16_t setting, const std::wstring& reason);

  // frmhlavni_about
  void tlHOaplikaci_Click();
  void tlHStorno_Click();

  // frmhlavni_commands
  void BindCommands();
  void tlH_MouseMoveEnabled(const tlText& button, StatusIcon icon, bool mme);
  void ClearMessage();
  /// What the status bar says when nothing goes on.
  void ShowRestingMessage();
  void tlHKonec_Click();
  void tlHNastaveni_Click();
  void tlHMeil_Click();
  void tlHWWW_Click();
  void tlHPCInfo_Click();
  void SelectMode(SearchMode mode);
  forms::TextBox& FieldToTypeIn();

  clspsc& m_database;
  Platform m_platform;
  CommandServices m_services;
  StatusBar m_statusBar;
  OwnedMenu m_listMenu;
  PreviousFiles m_previous;
  std::unique_ptr<frmnastaveni> m_settingsWindow;
  ListBoxAdapter m_allList{lstMPSC[kListAll]};
  ListBoxAdapter m_resultList{lstMPSC[kListResult]};
  ListBoxAdapter m_districtList{lstMPSC[kListDistricts]};

  // Busy: from the start to the end of Form_Load, while a search runs, and from the confirmed exit on. The selection
  // does not follow the pointer then.
  bool m_busy = true;
  std::array<bool, 3> m_settingTold{};  // it cannot be read, and the user knows
  std::optional<SearchMode> m_mode;
  bool m_samePostalCode = false;  // the result list already holds the municipalities of one PSČ
  std::optional<List> m_chosenRow;
  bool m_aboutIsOpen = false;
  LongWork* m_work = nullptr;  // that goes on; null when none does
  bool m_searchingResumed = false;
  std::wstring_view m_modeHint;        // what the status bar has been told about the mode
  std::wstring m_searchOffer;          // what it has been told to offer after a search
  bool m_deferredSearchIsDue = false;  // the light-blue field has a text that was typed and not yet searched for

  // The row that was shown last, -1 for none, and its list, in which the work goes on.
  struct Shown {
    std::size_t list = kListAll;
    int row = -1;

    friend bool operator==(const Shown&, const Shown&) = default;
  };
  Shown m_shown;
};

}  // namespace kvez
