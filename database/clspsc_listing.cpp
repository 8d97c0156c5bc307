// The listings of everything.

#include "database/clspsc.h"
#include "database/list_filling.h"
#include "database/progress_cadence.h"

namespace kvez {
namespace {

/// `name(i)` is the name of element i, counted from 0.
template <class Name>
void FillWithAll(ListBox& list, ProgressWindow& window, std::int32_t count, std::size_t characters, Name name) {
  ProgressCadence cadence(static_cast<std::uint64_t>(count));
  ListFilling filling(list, static_cast<std::size_t>(count), characters);
  for (std::int32_t i = 1; i <= count; ++i) {
    filling.AddRow(name(static_cast<std::size_t>(i) - 1), i);
    if (cadence.Step()) window.Prubech(cadence.Fraction(static_cast<std::uint64_t>(i)));
  }
  filling.SetExtent();
}

}  // namespace

void clspsc::pscVyberVse(ListBox& list, ProgressWindow& window) {
  list.Clear();
  std::size_t characters = 0;
  for (std::size_t i = 0; i < m_municipalities.size(); ++i) characters += m_municipalities.NameLength(i);
  FillWithAll(list, window, m_municipalityCount, characters,
              [this](std::size_t i) { return m_municipalities.Name(i); });
}

void clspsc::pscoVyberVse(ListBox& list, ProgressWindow& window) {
  list.Clear();
  std::size_t characters = 0;
  for (const tclsokresy& district : m_districts) characters += district.tpscoOkres().size();
  FillWithAll(list, window, m_districtCount, characters,
              [this](std::size_t i) -> const std::wstring& { return m_districts[i].tpscoOkres(); });
}

}  // namespace kvez
