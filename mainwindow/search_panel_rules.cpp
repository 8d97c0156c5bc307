#include "mainwindow/search_panel_rules.h"

#include <array>

namespace kvez {
namespace {

constexpr std::array<std::wstring_view, 3> kHints = {
    L"Vyhledá obce se společným PSČ.", L"Vyhledá obce odpovídající zadanému textu.", L"Vyhledá obce v zadaném okrese."};

// Enter is true with the search by itself, too, which waits for the release of its key.
constexpr std::array<std::wstring_view, 3> kLightBlueField = {
    L"Zadejte začátek PSČ a stiskněte Enter: vypíší se obce, jejichž PSČ tak začíná. Klávesou Shift přejdete do "
    L"druhého pole.",
    L"Zadejte začátek názvu a stiskněte Enter: v seznamu se vybere první obec, která jím začíná. Klávesou Shift "
    L"přejdete do druhého pole.",
    L"Zadejte začátek názvu a stiskněte Enter: v seznamu se vybere první okres, který jím začíná."};
constexpr std::wstring_view kLightBlueFieldWithoutMode = L"Nejdříve zvolte PSČ, Obec nebo Okres.";

}  // namespace

PanelOffer OfferOf(const PanelChoice& choice) {
  const bool showsMunicipality = choice.row == kListAll || choice.row == kListResult;
  PanelOffer offer;
  // The district stays chosen in its own list, which the results do not touch.
  if (choice.mode == kModeDistrict || !showsMunicipality) offer.mode = choice.mode;
  // With the search button the text would go as what is searched for, and it is the address of the shown municipality.
  offer.search = !choice.aboutIsOpen && (choice.searchingResumed || (offer.mode && !showsMunicipality));
  offer.commonPostalCode = choice.row == kListResult && !choice.samePostalCode;
  if (offer.mode) offer.hint = kHints[*offer.mode];
  offer.lightBlueField = offer.mode ? kLightBlueField[*offer.mode] : kLightBlueFieldWithoutMode;
  return offer;
}

}  // namespace kvez
