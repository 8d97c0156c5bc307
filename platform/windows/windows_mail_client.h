#pragma once

#include "platform/mail_client.h"

namespace kvez {

/// The mail client that the user has chosen in the system, through the system's mail library, which is loaded at the
/// first need. A system without that library answers like one without a mail client (26). That library knows 8-bit text
/// only: where a file's path is more than that, or contains the delimiter, its short path is handed over, and where it
/// has none, nothing is (2). The names are in the system's 8-bit code page where that spells them, in Windows-1250
/// where not.
class WindowsMailClient : public MailClient {
 public:
  std::uint32_t SendDocuments(std::wstring_view delimiter, std::wstring_view file,
                              std::wstring_view displayNames) override;
};

}  // namespace kvez
