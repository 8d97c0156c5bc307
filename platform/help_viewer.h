#pragma once

#include <string>

namespace kvez {

/// The system's viewer of compiled help files.
class HelpViewer {
 public:
  virtual ~HelpViewer() = default;

  /// Whether the viewer can be given a file of that path.
  virtual bool Takes(const std::wstring& path) = 0;

  /// Opens a help file at its default topic. False when no help window came of it.
  virtual bool Show(const std::wstring& path) = 0;

  /// Closes every help window that this program has opened.
  virtual void CloseAll() = 0;
};

}  // namespace kvez
