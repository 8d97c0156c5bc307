#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "forms/control.h"
#include "forms/text_ruler.h"

namespace kvez::forms {

/// A list of rows, each with a text and a number. Its height is exactly the designed one; a last row that does not fit
/// whole is shown in part, because whole rows would make the box of every font and scaling another size.
class ListBox : public EventControl {
 public:
  void Create(Container& container, int id, const Place& place);

  int ListCount() const;
  /// The selected row, counted from 0; -1 for none.
  int ListIndex() const;
  /// Selects a row; an index out of range selects none. Raises Click when that changes the selection, as the user's
  /// selecting does.
  void SetListIndex(int index);

  std::wstring List(int index) const;
  std::int32_t ItemData(int index) const;  // 0 out of range

  /// Removes all rows, without an event. The horizontal extent stays.
  void Clear();
  void AddRow(std::wstring_view text, std::int32_t data);

  /// Announces `rows` rows with `characters` characters in all: reserves the storage and stops the drawing until
  /// EndFill. Pairs may be nested.
  void BeginFill(std::size_t rows, std::size_t characters);
  void EndFill();

  /// The width of a text in pixels, in the box's font: what GetTextExtentPoint32W gives, from a table of the widths of
  /// single characters.
  int TextWidth(std::wstring_view text);
  int HorizontalExtent() const;
  void SetHorizontalExtent(int pixels);

  /// The row at a point in pixels of the box; -1 when there is none.
  int ItemFromPoint(int x, int y) const;
  /// Where a row is, in pixels of the box, also outside of what is seen of it.
  RECT RowRectangle(int row) const;
  /// In MouseMove, with its place in twips: the row that the user's hand has brought the pointer to. Only a row that is
  /// seen whole, for selecting it would scroll another one under the pointer, and only while the box can be reached and
  /// its form is the one in front; else -1.
  int RowThatThePointerCameTo(float xTwips, float yTwips) const;
  /// Where a menu that the keyboard asks for opens, in pixels of the screen: under the selected row, or at the upper
  /// edge when none is selected or it is scrolled out of sight.
  POINT MenuPlace() const;
  /// The first row that begins with `text`, whatever its case, from the whole list; -1 for none.
  int FindString(std::wstring_view text) const;

  PlainEvent Click;
  /// The keyboard's way to a context menu (the menu key, Shift and F10).
  PlainEvent ContextMenuKey;

  bool HasAccessKey(wchar_t) const override { return false; }
  AccessibleDescription Describe() const override;
  void OnCommand(UINT notification) override;

 protected:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  void OnFontChanged() override;
  COLORREF DefaultBackColor() const override;
  COLORREF DefaultForeColor() const override;

 private:
  TextRuler m_ruler;
  std::wstring m_row;                // keeps its storage from row to row
  std::vector<std::int32_t> m_data;  // Quick start: telling the system takes half a filling
  void DrawNow();

  /// The width of a sample text when the extent was set: how wide the font was.
  int m_extentSample = 0;
  int m_fillDepth = 0;
  bool m_drawsLater = false;  // emptied, with the drawing off until the next filling or message
};

}  // namespace kvez::forms
