#include "tests/support/mail_client.h"

#include <filesystem>
#include <fstream>

namespace kvez::test {
namespace {

constexpr const wchar_t* kClients = L"Software\\Clients\\Mail";
constexpr const wchar_t* kName = L"Kvez-test";

// The build names folders as the machine that builds does; its root is drive Z here.
std::wstring ProviderPath() {
  const std::string built = KVEZ_MAIL_PROVIDER;
  std::filesystem::path path = std::filesystem::path((built[0] == '/' ? "Z:" : "") + built);
  return path.make_preferred().wstring();
}

void Register(const std::wstring& key, const wchar_t* name, const std::wstring& value) {
  RegSetKeyValueW(HKEY_LOCAL_MACHINE, key.c_str(), name, REG_SZ, value.c_str(),
                  static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t)));
}

}  // namespace

MailClientRegistration::MailClientRegistration(unsigned result, const std::wstring& record) : m_record(record) {
  DeleteFileW(m_record.c_str());
  Register(kClients, nullptr, kName);
  Register(std::wstring(kClients) + L"\\" + kName, nullptr, kName);
  Register(std::wstring(kClients) + L"\\" + kName, L"DLLPath", ProviderPath());
  SetEnvironmentVariableW(L"KVEZ_MAIL_RECORD", m_record.c_str());
  SetEnvironmentVariableW(L"KVEZ_MAIL_RESULT", std::to_wstring(result).c_str());
}

MailClientRegistration::~MailClientRegistration() {
  RegDeleteTreeW(HKEY_LOCAL_MACHINE, (std::wstring(kClients) + L"\\" + kName).c_str());
  RegDeleteKeyValueW(HKEY_LOCAL_MACHINE, kClients, nullptr);
}

std::optional<ReceivedMail> MailClientRegistration::Received() const {
  std::ifstream stream{std::filesystem::path(m_record), std::ios::binary};
  std::string lines[5];
  for (std::string& line : lines) {
    if (!std::getline(stream, line)) return std::nullopt;
  }
  return ReceivedMail{static_cast<ULONG_PTR>(std::stoull(lines[0])), lines[1], lines[2], lines[3],
                      static_cast<ULONG>(std::stoul(lines[4]))};
}

}  // namespace kvez::test
