#pragma once

#include <windows.h>

#include <optional>
#include <string>

namespace kvez::test {

/// What arrived at the mail client.
struct ReceivedMail {
  ULONG_PTR window = 0;
  std::string delimiter;
  std::string files;
  std::string names;
  ULONG reserved = 0;
};

/// The tests' own mail client, registered as the system's one, the way mail clients register themselves, for as long
/// as the object lives. Programs that are started meanwhile use it.
class MailClientRegistration {
 public:
  /// `result` is its answer to everything; `record` is the file that it writes down into what it gets.
  MailClientRegistration(unsigned result, const std::wstring& record);
  MailClientRegistration(const MailClientRegistration&) = delete;
  MailClientRegistration& operator=(const MailClientRegistration&) = delete;
  ~MailClientRegistration();

  std::optional<ReceivedMail> Received() const;

 private:
  std::wstring m_record;
};

}  // namespace kvez::test
