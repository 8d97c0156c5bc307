#pragma once

#include <string>

#include "database/postal_database.h"
#include "output/hand_out.h"
#include "platform/platform.h"

namespace kvez {

/// The one database object: the lists, the searches, the cursors, and the ways out for the current result. The headings
/// are copies: while messages are worked off, what the caller named may change.
class clspsc : public PostalDatabase {
 public:
  /// `programFolder` is the folder of the data files; only the root of a drive ends in a separator.
  clspsc(const Platform& platform, std::wstring programFolder);

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
  Formats& m_formats;
  OutputPlatform m_output;
  HandOut m_handOut;
};

}  // namespace kvez
