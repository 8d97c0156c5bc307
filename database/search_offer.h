#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "database/municipality_list.h"
#include "database/records.h"
#include "platform/formats.h"

namespace kvez {

/// A search that has come to its end.
struct EndedSearch {
  enum class By : std::uint8_t { PostalCode, Name } by = By::Name;
  std::wstring_view text;  // what was searched for, without blanks around it
  std::int32_t found = 0;  // how many municipalities
};

/// What the user may try next, a sentence or two; empty when there is nothing better. It looks and changes nothing:
/// what a search finds stays what it is.
///
/// A postal code of fewer than five digits is told that it has five. A name without a wildcard that nobody has is
/// answered with the first of these that finds something: the part behind its last hyphen, its beginning as names are
/// compared, the same letters with other diacritics, a post office of that name. One that is found is answered with
/// its beginning, where that finds much more.
std::wstring OfferAfter(const EndedSearch& search, const MunicipalityList& municipalities,
                        std::span<const tclsdodavaci> postOffices, Formats& formats);

}  // namespace kvez
