// The listings of everything.

#include "database/clspsc.h"
#include "database/list_filling.h"
#include "database/progress_cadence.h"

namespace kvez {
namespace {

/// `name(i, text)` makes the text the name of element i, counted from 0.
template <class Name>
void FillRows(ListBox& list, ProgressWindow& window, std::size_t count, std::size_t characters, Name name) {
  std::wstring text;
  ProgressCadence cadence(count);
  ListFilling filling(list, count, characters);
  for (std::size_t i = 1; i <= count; ++i) {
    name(i - 1, text);
    filling.AddRow(text, static_cast<std::int32_t>(i));
    if (cadence.Step()) window.Prubech(cadence.Fraction(i));
  }
  filling.SetExtent();
}

/// The same; a list that cannot be filled whole stays empty.
template <class Name>
void FillWithAll(ListBox& list, ProgressWindow& window, std::size_t count, std::size_t characters, Name name) {
  try {
    FillRows(list, window, count, characters, name);
  } catch (...) {
    list.Clear();
    throw;
  }
}

}  // namespace

void clspsc::pscVyberVse(ListBox& list, ProgressWindow& window) {
  list.Clear();
  std::size_t characters = 0;
  for (std::size_t i = 0; i < m_municipalities.size(); ++i) characters += m_municipalities.NameLength(i);
  FillWithAll(list, window, m_municipalities.size(), characters,
              [this](std::size_t i, std::wstring& text) { m_municipalities.Name(i, text); });
}

void clspsc::pscoVyberVse(ListBox& list, ProgressWindow& window) {
  list.Clear();
  std::size_t characters = 0;
  for (const tclsokresy& district : m_districts) characters += district.tpscoOkres().size();
  FillWithAll(list, window, m_districts.size(), characters,
              [this](std::size_t i, std::wstring& text) { text = m_districts[i].tpscoOkres(); });
}

}  // namespace kvez
