#pragma once

#include <algorithm>
#include <cstdint>
#include <string>

#include "database/list_box.h"

namespace kvez {

/// Fills a list box row by row and then lets its widest row be scrolled into view.
class ListFilling {
 public:
  ListFilling(ListBox& list, std::size_t rows, std::size_t characters) : m_list(list) {
    m_list.BeginFill(rows, characters);
  }
  ~ListFilling() { m_list.EndFill(); }
  ListFilling(const ListFilling&) = delete;
  ListFilling& operator=(const ListFilling&) = delete;

  void AddRow(const std::wstring& text, std::int32_t data) {
    // Two spaces keep the widest row from touching the edge.
    m_measured.assign(text).append(L"  ");
    m_width = std::max(m_width, m_list.TextWidth(m_measured));
    m_list.AddRow(text, data);
  }

  void SetExtent() { m_list.SetHorizontalExtent(m_width); }

 private:
  ListBox& m_list;
  std::wstring m_measured;
  int m_width = 0;
};

}  // namespace kvez
