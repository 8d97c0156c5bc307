#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace kvez {

/// The three search modes, indexes of `optMPSC`.
enum SearchMode : std::size_t { kModePostal = 0, kModeName = 1, kModeDistrict = 2 };

/// The three lists, indexes of `lstMPSC`.
enum List : std::size_t { kListAll = 0, kListResult = 1, kListDistricts = 2 };

/// The two fields in which one types, indexes of `txtMPSC`: what is searched for, and the light-blue one with a
/// beginning.
inline constexpr std::size_t kFieldText = 0;
inline constexpr std::size_t kFieldBeginning = 1;

/// The counts under the lists, indexes of `lblPSCV`.
inline constexpr std::size_t kCountAll = 0;
inline constexpr std::size_t kCountResult = 1;

/// What is known of the current municipality, indexes of `lblNPSCHT`.
inline constexpr std::size_t kDetailMunicipality = 0;
inline constexpr std::size_t kDetailDistrict = 1;

/// The third heading, index of `lblMPSCH`; the two before it belong to the details.
inline constexpr std::size_t kHeadingSearch = 2;

/// What the user has chosen in the search panel.
struct PanelChoice {
  std::optional<SearchMode> mode = {};
  std::optional<List> row = {};   // the list whose selected row was chosen last; none when that row is gone
  bool samePostalCode = false;    // the result holds the municipalities of one PSČ
  bool aboutIsOpen = false;       // it lies over the panel
  bool searchingResumed = false;  // after the row was chosen, the user came back from the About panel to search
};

/// What the search panel offers then.
struct PanelOffer {
  std::optional<SearchMode> mode = {};  // a municipality that is on show ends the modes in which one types
  bool search = false;                  // Vyhledej can be pressed
  bool commonPostalCode = false;        // "Obce k PSČ" is there
  std::wstring_view hint;               // what the status bar says about the mode; empty without one
  std::wstring_view lightBlueField;     // its tooltip: what it does depends on the mode
};

/// A function that needs no window: the same choice always has the same offer.
PanelOffer OfferOf(const PanelChoice& choice);

}  // namespace kvez
