#include "mainwindow/search_panel_rules.h"

#include <gtest/gtest.h>

#include <string>

namespace kvez {
namespace {

// "search", "codes" and "about" for what is offered, and the mode's number; one short line for each choice.
std::string Offered(const PanelChoice& choice) {
  const PanelOffer offer = OfferOf(choice);
  std::string text = offer.mode ? "mode " + std::to_string(*offer.mode) : "no mode";
  if (offer.search) text += ", search";
  if (offer.commonPostalCode) text += ", codes";
  if (offer.hint.empty() == offer.mode.has_value()) text += ", wrong hint";
  return text;
}

TEST(SearchPanelRules, AModeSearches) {
  EXPECT_EQ(Offered({.mode = kModePostal}), "mode 0, search");
  EXPECT_EQ(Offered({.mode = kModeName}), "mode 1, search");
  EXPECT_EQ(Offered({.mode = kModeDistrict}), "mode 2, search");
  EXPECT_EQ(Offered({}), "no mode");
}

TEST(SearchPanelRules, AChosenMunicipalityEndsTheTypingModes) {
  for (const SearchMode mode : {kModePostal, kModeName}) {
    EXPECT_EQ(Offered({.mode = mode, .row = kListAll}), "no mode");
    EXPECT_EQ(Offered({.mode = mode, .row = kListResult}), "no mode, codes");
  }
}

TEST(SearchPanelRules, TheDistrictModeOutlastsAChosenMunicipality) {
  EXPECT_EQ(Offered({.mode = kModeDistrict, .row = kListResult}), "mode 2, codes");
  EXPECT_EQ(Offered({.mode = kModeDistrict, .row = kListDistricts}), "mode 2, search");
}

TEST(SearchPanelRules, AListOfOnePostalCodeOffersNoOther) {
  EXPECT_EQ(Offered({.row = kListResult, .samePostalCode = true}), "no mode");
}

TEST(SearchPanelRules, AboutTakesTheSearchAwayAndBringsItBack) {
  EXPECT_EQ(Offered({.mode = kModeName, .aboutIsOpen = true}), "mode 1");
  EXPECT_EQ(Offered({.row = kListAll, .aboutIsOpen = true, .searchingResumed = true}), "no mode");
  EXPECT_EQ(Offered({.row = kListResult, .searchingResumed = true}), "no mode, search, codes");
}

TEST(SearchPanelRules, LightBlueFieldTellsWhatItDoesInTheMode) {
  EXPECT_EQ(
      OfferOf({.mode = kModePostal}).lightBlueField,
      L"Zadejte začátek PSČ a stiskněte Enter: vypíší se obce, jejichž PSČ tak začíná. Klávesou Shift přejdete do "
      L"druhého pole.");
  EXPECT_EQ(OfferOf({.mode = kModeName}).lightBlueField,
            L"Zadejte začátek názvu a stiskněte Enter: v seznamu se vybere první obec, která jím začíná. Klávesou "
            L"Shift přejdete do druhého pole.");
  EXPECT_EQ(OfferOf({.mode = kModeDistrict}).lightBlueField,
            L"Zadejte začátek názvu a stiskněte Enter: v seznamu se vybere první okres, který jím začíná.");
  EXPECT_EQ(OfferOf({.mode = kModeName, .row = kListAll}).lightBlueField, L"Nejdříve zvolte PSČ, Obec nebo Okres.");
}

}  // namespace
}  // namespace kvez
