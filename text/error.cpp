#include "text/error.h"

#include <cstring>

namespace kvez {

std::wstring Error::TextWithCode() const {
  const std::wstring call(what(), what() + std::strlen(what()));
  if (call.empty()) return m_text;
  return m_text + L" (" + call + (m_code == 0 ? L"" : L" " + std::to_wstring(m_code)) + L")";
}

}  // namespace kvez
