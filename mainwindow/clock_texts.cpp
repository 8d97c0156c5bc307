#include "mainwindow/clock_texts.h"

namespace kvez {

std::wstring TimePanelText(std::wstring time) {
  constexpr std::size_t width = 5;
  if (time.size() < width) time.insert(0, width - time.size(), L' ');
  return time;
}

std::wstring DatePanelText(std::wstring date) {
  constexpr std::size_t width = 21;
  if (date.size() >= width) return date;
  const std::size_t missing = width - date.size();
  const std::size_t half = missing / 2;
  // 5 gives 2 blanks, 7 gives 4: where the half of an odd number ends in .5, the even neighbour is meant.
  const bool roundUp = missing % 2 == 1 && half % 2 == 1;
  date.insert(0, half + (roundUp ? 1 : 0), L' ');
  return date;
}

}  // namespace kvez
