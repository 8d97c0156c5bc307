#pragma once

#include <cstdint>
#include <string_view>

namespace kvez {

/// The system's mail client.
class MailClient {
 public:
  virtual ~MailClient() = default;

  /// Opens a new message with a file attached, over the foreground window, and returns when the client's window is done
  /// with. `displayNames` is a list separated by `delimiter`; `file` is one path, whatever it contains. The result is 0
  /// for a message on its way, and the mail system's code for everything else, the user's own cancelling included. The
  /// working directory is afterwards what it was before.
  virtual std::uint32_t SendDocuments(std::wstring_view delimiter, std::wstring_view file,
                                      std::wstring_view displayNames) = 0;
};

}  // namespace kvez
