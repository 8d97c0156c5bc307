#pragma once

#include "database/list_box.h"
#include "forms/list_box.h"
#include "text/assertion.h"

namespace kvez {

/// A list box of a form as the database sees it.
class ListBoxAdapter : public ListBox {
 public:
  explicit ListBoxAdapter(forms::ListBox& box) : m_box(box) {}

  void Clear() override { m_box.Clear(); }
  void BeginFill(std::size_t rows, std::size_t characters) override { m_box.BeginFill(rows, characters); }
  void EndFill() override { m_box.EndFill(); }
  void AddRow(std::wstring_view text, std::int32_t data) override {
    Assert(data > 0, "a row's number is a position, which counts from 1");
    m_box.AddRow(text, data);
  }
  int TextWidth(std::wstring_view text) override { return m_box.TextWidth(text); }
  void SetHorizontalExtent(int pixels) override { m_box.SetHorizontalExtent(pixels); }

 private:
  forms::ListBox& m_box;
};

}  // namespace kvez
