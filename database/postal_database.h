#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "database/data_files.h"
#include "database/list_box.h"
#include "database/list_files.h"
#include "database/progress_window.h"
#include "database/result_rows.h"
#include "platform/database_platform.h"

namespace kvez {

/// What a search that ran out of memory says it has searched for.
inline constexpr std::wstring_view kOutOfMemory = L"Nedostatek paměti.";

/// Municipalities, delivery post offices, districts, the current result and its cursors.
///
/// Lists are 1-based; index 0 means no element, and an index out of range selects no element.
class PostalDatabase : private ResultRows {
 public:
  /// `programFolder` is the folder of the data files; only the root of a drive ends in a separator.
  PostalDatabase(const DatabasePlatform& platform, std::wstring programFolder);

  PostalDatabase(const PostalDatabase&) = delete;
  PostalDatabase& operator=(const PostalDatabase&) = delete;

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
  const std::vector<tclsdodavaci>& PostOffices() const { return m_postOffices.offices; }
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

 protected:
  /// The current result; it changes with the searches.
  ResultRows& Result() { return *this; }
  const std::wstring& ProgramFolder() const { return m_programFolder; }

 private:
  // The result as whoever hands it out sees it.
  std::int32_t Count() const override { return m_resultCount; }
  std::wstring CountSentence() const override { return pVybran(); }
  ResultRow Row(std::int32_t position) override;
  void StandOn(std::int32_t position) override { m_resultCursor = position; }

  DataFolder Folder();
  void ShowDamaged(const DataFile& file);

  // Without a window no progress is shown.
  void ReleaseMunicipalities(ProgressWindow* window);
  void ReleasePostOffices(ProgressWindow* window);
  void ReleaseDistricts(ProgressWindow* window);
  void ReleaseResult();

  template <class Search>
  void RunSearch(ListBox& list, std::wstring& description, std::wstring_view otherwise, Search search);
  void EndWithoutResult(ListBox& list);
  void FillResultList(ListBox& list);
  void StandOnLastOfResult();

  void SelectMunicipality(std::size_t index);
  void SelectNoMunicipality();
  const std::wstring& FormattedCode(std::int32_t code) const;

  DatabasePlatform m_platform;
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
  PostOfficeList m_postOffices;
  std::int32_t m_postOfficeCount = 0;
  DistrictList m_districts;
  std::int32_t m_districtCount = 0;

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
