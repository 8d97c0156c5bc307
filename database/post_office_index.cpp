#include "database/post_office_index.h"

#include <algorithm>

namespace kvez {

void PostOfficeIndex::Build(std::span<const tclsdodavaci> offices) {
  m_entries.clear();
  m_entries.reserve(offices.size());
  for (std::size_t i = 0; i < offices.size(); ++i) {
    m_entries.push_back({offices[i].tpPSC(), static_cast<std::uint32_t>(i)});
  }
  // Of equal codes the one that stands first in the list comes first, and stays.
  std::sort(m_entries.begin(), m_entries.end(),
            [](const Entry& a, const Entry& b) { return a.code != b.code ? a.code < b.code : a.index < b.index; });
  const auto sameCode = [](const Entry& a, const Entry& b) { return a.code == b.code; };
  m_entries.erase(std::unique(m_entries.begin(), m_entries.end(), sameCode), m_entries.end());
}

void PostOfficeIndex::Clear() { m_entries = {}; }

std::optional<std::size_t> PostOfficeIndex::First(std::int32_t code) const {
  const auto found = std::lower_bound(m_entries.begin(), m_entries.end(), code,
                                      [](const Entry& entry, std::int32_t value) { return entry.code < value; });
  if (found == m_entries.end() || found->code != code) return std::nullopt;
  return found->index;
}

}  // namespace kvez
