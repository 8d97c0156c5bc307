#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "database/list_box.h"
#include "database/progress_window.h"
#include "database/records.h"
#include "platform/platform.h"

namespace kvez {

/// The one database object: municipalities, delivery post offices, districts, the current result and its cursors.
///
/// Lists are 1-based; index 0 means no element, and an index out of range selects no element.
class clspsc {
 public:
  /// `programFolder` is the folder of the data files, without a trailing separator.
  clspsc(Platform platform, std::wstring programFolder);

  clspsc(const clspsc&) = delete;
  clspsc& operator=(const clspsc&) = delete;

  // Loading and release. A failed loading shows its message and leaves the list (pscNacti: every list) empty.
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

  // Yes/no settings 0, 1, 2: 0 or 1. Get throws ConversionError when the stored text is not a 16-bit number.
  std::int16_t vGetNastaveniRegistr(std::int16_t number) const;
  void vSetNastaveniRegistr(std::int16_t number, std::int16_t value);

  // Searches. Each replaces the result list, fills `list` and returns its one-line description in `description`.
  void pscNajdiPSC(bool exact, const std::wstring& text, ListBox& list, std::wstring& description);
  void pscVyberPostu(const std::wstring& text, ListBox& list, std::wstring& description);
  void pscoVyberPostu(ListBox& list, std::wstring& description);

  // Full listings; they leave the result alone.
  void pscVyberVse(ListBox& list, ProgressWindow& window);
  void pscoVyberVse(ListBox& list, ProgressWindow& window);

  // Cursors.
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
};

}  // namespace kvez
