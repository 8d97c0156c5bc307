#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "database/data_files.h"
#include "database/field_reader.h"
#include "database/list_box.h"
#include "database/municipality_list.h"
#include "database/post_office_index.h"
#include "database/progress_window.h"
#include "database/records.h"
#include "platform/platform.h"

namespace kvez {

/// What a search that ran out of memory says it has searched for.
inline constexpr std::wstring_view kOutOfMemory = L"Nedostatek paměti.";

/// The one database object: municipalities, delivery post offices, districts, the current result and its cursors.
///
/// Lists are 1-based; index 0 means no element, and an index out of range selects no element.
class clspsc {
 public:
  /// `programFolder` is the folder of the data files; only the root of a drive ends in a separator.
  clspsc(Platform platform, std::wstring programFolder);

  clspsc(const clspsc&) = delete;
  clspsc& operator=(const clspsc&) = delete;

  // Loading and release. A file is read aside and becomes the list when it was read whole. A loading that fails,
  // whatever the reason, shows its message and leaves the list (pscNacti: every list) empty. A release never fails.
  void pscNacti(ProgressWindow& window);
  void pscpNacti(ProgressWindow& window);
  void pscoNacti(ProgressWindow& window);
  void pscUvolni();
  void pscUvolniPamet(ProgressWindow& window);

  std::int32_t pscCelkem() const;
  std::int32_t pscoCelkem() const;
  std::int32_t pCelkem() const;  // the result count

  /// The last-write time of the compressed municipality file; all zero when it is missing.
  DateTime pscDatabazeZeDne() const;

  /// A sentence about files that do not belong together: how many municipalities have a code that no post office
  /// serves, or lie in a district that the list of districts has not. Empty when all of them fit; a list that is empty
  /// is not asked, it has had its own message.
  std::wstring pscNesoulad() const;

  // Yes/no settings 0, 1, 2: 0 or 1. Get throws ConversionError when the stored text is not a 16-bit number.
  std::int16_t vGetNastaveniRegistr(std::int16_t number) const;
  void vSetNastaveniRegistr(std::int16_t number, std::int16_t value);

  // Searches. Each replaces the result list, fills `list` and returns its one-line description in `description`. One
  // that runs out of memory finds nothing, and its description says so; any other exception goes on to the caller and
  // leaves the result and the box empty, too.
  void pscNajdiPSC(bool exact, const std::wstring& text, ListBox& list, std::wstring& description);
  void pscVyberPostu(const std::wstring& text, ListBox& list, std::wstring& description);
  void pscoVyberPostu(ListBox& list, std::wstring& description);
  /// The exact search for the code of the current municipality: for the number itself, because not every number comes
  /// back out of its formatted text. Without a current municipality nothing is searched for.
  void pscObceKPSC(ListBox& list, std::wstring& description);

  // Full listings; they leave the result alone. An exception leaves the box empty.
  void pscVyberVse(ListBox& list, ProgressWindow& window);
  void pscoVyberVse(ListBox& list, ProgressWindow& window);

  // The lists as they were read, in file order.
  const MunicipalityList& Municipalities() const { return m_municipalities; }
  const std::vector<tclsdodavaci>& PostOffices() const { return m_postOffices; }
  const std::vector<tclsokresy>& Districts() const { return m_districts; }

  // Cursors. One that cannot be moved, because memory ran out, selects nothing.
  void pscDetail(std::int32_t n);
  void pscDetailPlus();
  void pscDetailMinus();
  void pscoDetail(std::int32_t n);
  void pDetail(std::int32_t n);

  std::int32_t pscPozice() const;
  bool pscNalezen() const;
  std::wstring pscPSC() const;
  std::wstring pscObec() const;
  std::wstring pscOkres() const;
  std::wstring pscDodavaci() const;
  std::wstring pscPSCObec() const;
  std::wstring pscVybran() const;
  std::wstring pscoVybran() const;
  std::wstring pVybran() const;

  // Handing out the result under a heading. Each leaves the municipality cursor on the last row of the result.
  /// Writes "vdkvez.txt" into a folder that the user picks. An empty result does nothing at all.
  void pExport(std::wstring peh);
  /// Puts the list text on the clipboard.
  void pClipboard(const std::wstring& pch);
  /// Writes "meil.txt" into the program's folder and attaches it to a new e-mail, shown there under the heading.
  void pMail(std::wstring pmt);
  /// Prints the result on the default printer; the result cursor stays on the last printed row. A printer that
  /// refuses prints nothing, silently.
  void pTisk(std::wstring ptt, ProgressWindow& window);

 private:
  bool ReadDataFile(const DataFile& file, ProgressWindow& window,
                    const std::function<void(FieldReader&)>& appendRecord);
  std::optional<std::vector<std::uint8_t>> ExpandedBytes(const DataFile& file, const std::wstring& expandedPath);
  std::int32_t Expand(const DataFile& file, const std::wstring& expandedPath);
  void ShowDamaged(const DataFile& file);

  // Without a window no progress is shown.
  void ReleaseMunicipalities(ProgressWindow* window);
  void ReleasePostOffices(ProgressWindow* window);
  void ReleaseDistricts(ProgressWindow* window);
  void ReleaseResult();

  template <class Search>
  void RunSearch(ListBox& list, std::wstring& description, Search search);
  void EndWithoutResult(ListBox& list);
  void SearchExactly(std::int32_t code, ListBox& list, std::wstring& description);
  void AddMatch(std::size_t municipality);
  void FillResultList(ListBox& list);
  void StandOnLastOfResult();

  std::wstring pSeznam();
  std::wstring TextUnderHeading(const std::wstring& heading);
  std::wstring AskForExportFolder();
  void PrintResult(const std::wstring& heading, ProgressWindow& window);

  void SelectMunicipality(std::size_t index);
  void SelectNoMunicipality();
  const std::wstring& FormattedCode(std::int32_t code) const;

  Platform m_platform;
  std::wstring m_programFolder;

  // The counts are copies of the lists' sizes, refreshed after each change; whoever asks in the middle of a loading
  // or a release still gets the count from before it.
  std::int32_t m_position = 0;  // municipality cursor
  bool m_found = false;
  MunicipalityList m_municipalities;
  std::int32_t m_municipalityCount = 0;
  std::int32_t m_resultCursor = 0;  // also the running index of every walk over the result
  std::vector<tpclspsc> m_result;
  std::int32_t m_resultCount = 0;
  std::vector<tclsdodavaci> m_postOffices;
  std::int32_t m_postOfficeCount = 0;
  std::vector<tclsokresy> m_districts;
  std::int32_t m_districtCount = 0;

  PostOfficeIndex m_postOfficeIndex;

  // Made ahead: there may be no memory left for it when it is needed.
  std::wstring m_outOfMemory{kOutOfMemory};

  // The current municipality. They keep their values when the lists are released.
  std::int32_t m_currentCode = 0;
  std::wstring m_currentName;
  std::wstring m_currentDistrictName;
  std::wstring m_currentPostOffice;
  bool m_hasCurrent = false;

  // The current district.
  std::int32_t m_districtCursor = 0;
  std::int32_t m_currentDistrictCode = 0;
  std::wstring m_currentDistrict;

  // The platform's formatter is slow and many municipalities share a code, so each code is formatted once.
  mutable std::unordered_map<std::int32_t, std::wstring> m_formattedCodes;
};

}  // namespace kvez
