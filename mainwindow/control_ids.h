#pragma once

namespace kvez {

/// The window identifiers of the main window's controls; a control array counts up from its first.
/// Assistive programs and the tests find the controls by them.
enum ControlId : int {
  kOptMPSC = 100,
  kTxtMPSC = 110,
  kLstMPSC = 120,
  kLblMPSCH = 130,
  kLblNPSCHT = 140,
  kLblMPSCN = 150,
  kLblPSCV = 160,
  kPicMPSCPI = 170,
  kPicZpravaI = 171,
  kLblZpravaI = 172,
  kTlHVyhledej = 200,
  kTlHObcePSC = 201,
  kTlHAktualizace = 202,
  kTlHNapoveda = 203,
  kTlHOaplikaci = 204,
  kTlHNastaveni = 205,
  kTlHKonec = 206,
  kFraMPSCO = 220,
  kTlHMeil = 221,
  kTlHWWW = 222,
  kTlHPCInfo = 223,
  kTlHStorno = 224,
  kText1 = 225,
  kLabel1 = 230,
};

}  // namespace kvez
