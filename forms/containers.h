#pragma once

#include <string_view>
#include <vector>

#include "forms/control.h"

namespace kvez::forms {

/// A group box: an etched border around its controls, with a caption or without. It covers what lies behind it.
class Frame : public Control, public Container {
 public:
  void Create(Container& container, int id, const Place& place, std::wstring_view caption = {});

  Form& OwnerForm() override { return Control::OwnerForm(); }
  HWND ContainerHandle() const override { return Handle(); }

  AccessibleDescription Describe() const override;

 protected:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
};

enum class PictureBorder { None, Single, Sunken };

/// A panel for controls, or a bar that rectangles are drawn into. What was drawn stays until Cls.
class PictureBox : public EventControl, public Container {
 public:
  void Create(Container& container, int id, const Place& place, PictureBorder border = PictureBorder::None);

  /// The inside of the border, in twips.
  float ScaleWidth() const;
  float ScaleHeight() const;

  /// Fills a rectangle (twips) with the foreground colour, at once. What is outdated below it is painted by Refresh.
  void FillRectangle(float left, float top, float right, float bottom);
  /// Empties the box.
  void Cls();

  /// Makes the box a progress bar for screen readers, whose value is how much of the width is filled.
  void SetIsProgressBar(bool progressBar) { m_isProgressBar = progressBar; }

  Form& OwnerForm() override { return Control::OwnerForm(); }
  HWND ContainerHandle() const override { return Handle(); }

  AccessibleDescription Describe() const override;

 protected:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  COLORREF DefaultForeColor() const override;

 private:
  struct Filled {
    float left, top, right, bottom;  // twips
    COLORREF color;
  };
  RECT ToPixels(const Filled& filled) const;
  void OnPaint();
  void DrawInto(HDC context) const;

  std::vector<Filled> m_filled;
  PictureBorder m_border = PictureBorder::None;
  bool m_isProgressBar = false;
};

}  // namespace kvez::forms
