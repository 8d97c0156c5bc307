#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace kvez {

/// The list box that searches and listings fill.
class ListBox {
 public:
  virtual ~ListBox() = default;

  /// Removes all rows. The horizontal extent stays until it is set again.
  virtual void Clear() = 0;

  /// Announces a filling of `rows` rows with `characters` characters in all, so that the box can reserve its
  /// storage and leave the drawing for the end. Every BeginFill is followed by its EndFill.
  virtual void BeginFill(std::size_t rows, std::size_t characters) = 0;
  virtual void EndFill() = 0;

  /// Appends a row and sets its row data.
  virtual void AddRow(std::wstring_view text, std::int32_t data) = 0;

  /// The width of `text` in pixels, in the font of the box's parent window.
  virtual int TextWidth(std::wstring_view text) = 0;

  /// How far the rows can be scrolled sideways, in pixels.
  virtual void SetHorizontalExtent(int pixels) = 0;
};

}  // namespace kvez
