#include "mainwindow/search_panel_rules.h"

#include <array>

namespace kvez {
namespace {

constexpr std::array<std::wstring_view, 3> kHints = {
    L"Vyhledá obce se společným PSČ.", L"Vyhledá obce odpovídající zadanému textu.", L"Vyhledá obce v zadaném okrese."};

constexpr std::array<std::wstring_view, 3> kLightBlueField = {
    L"Vypíše obce, jejichž PSČ začíná zadanými číslicemi. Klávesou Shift přejdete do druhého pole.",
    L"Vybere v seznamu první obec, která začíná zadaným textem. Klávesou Shift přejdete do druhého pole.",
    L"Vybere v seznamu první okres, který začíná zadaným textem."};
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
