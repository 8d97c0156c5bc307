#pragma once

namespace kvez {

/// The window that shows how far a long operation is. Both take a fraction from 0 to 1.
class ProgressWindow {
 public:
  virtual ~ProgressWindow() = default;

  virtual void Prubech(float fraction) = 0;       // the bar grows
  virtual void PrubechPamet(float fraction) = 0;  // the bar may shrink
};

}  // namespace kvez
