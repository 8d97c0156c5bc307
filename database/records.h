#pragma once

#include <cstdint>
#include <string>
#include <utility>

namespace kvez {

// One entry of each list. The records only hold values: nothing is checked and nothing is computed.

/// A municipality.
class tclspsc {
 public:
  std::int32_t tpscPSC() const { return m_psc; }
  void tpscPSC(std::int32_t value) { m_psc = value; }

  const std::wstring& tpscObec() const { return m_obec; }
  void tpscObec(std::wstring value) { m_obec = std::move(value); }

  const std::wstring& tpscOkres() const { return m_okres; }
  void tpscOkres(std::wstring value) { m_okres = std::move(value); }

 private:
  std::int32_t m_psc = 0;
  std::wstring m_obec;
  std::wstring m_okres;
};

/// A delivery post office and the postal code that it serves.
class tclsdodavaci {
 public:
  std::int32_t tpPSC() const { return m_psc; }
  void tpPSC(std::int32_t value) { m_psc = value; }

  const std::wstring& tpDodavaci() const { return m_dodavaci; }
  void tpDodavaci(std::wstring value) { m_dodavaci = std::move(value); }

 private:
  std::int32_t m_psc = 0;
  std::wstring m_dodavaci;
};

/// A district.
class tclsokresy {
 public:
  std::int32_t tpscoKod() const { return m_kod; }
  void tpscoKod(std::int32_t value) { m_kod = value; }

  const std::wstring& tpscoOkres() const { return m_okres; }
  void tpscoOkres(std::wstring value) { m_okres = std::move(value); }

 private:
  std::int32_t m_kod = 0;
  std::wstring m_okres;
};

/// The 1-based position of a municipality in the municipality list.
class tpclspsc {
 public:
  std::int32_t tpPozice() const { return m_pozice; }
  void tpPozice(std::int32_t value) { m_pozice = value; }

 private:
  std::int32_t m_pozice = 0;
};

}  // namespace kvez
