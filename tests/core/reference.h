#pragma once

#include <cstdint>
#include <string>
#include <vector>

/// The searches and cursors in their plainest form, walking the lists as records of wide text, one position after the
/// other counted from 1. Slow; what the database does fast is compared with it.
namespace kvez::reference {

struct Municipality {
  std::int32_t code;
  std::wstring name;
  std::wstring district;
};

struct PostOffice {
  std::int32_t code;
  std::wstring name;
};

std::wstring Normalised(const std::wstring& name);

/// Whether a normalised name matches a typed text that is not refused.
bool Matches(const std::wstring& name, const std::wstring& typed);
bool IsRefused(const std::wstring& typed);

bool CodeBeginsWith(std::int32_t code, const std::wstring& beginning);

/// The cursor over municipalities with its post office.
class Cursor {
 public:
  Cursor(const std::vector<Municipality>& municipalities, const std::vector<PostOffice>& postOffices)
      : m_municipalities(municipalities), m_postOffices(postOffices) {}

  void Detail(std::int32_t n);

  std::int32_t position = 0;
  std::wstring name;
  std::wstring district;
  std::wstring postOffice;
  bool found = false;

 private:
  const std::vector<Municipality>& m_municipalities;
  const std::vector<PostOffice>& m_postOffices;
};

}  // namespace kvez::reference
