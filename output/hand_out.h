#pragma once

#include <string>

#include "database/result_rows.h"
#include "platform/formats.h"
#include "platform/message_dialog.h"
#include "platform/output_platform.h"

namespace kvez {

/// The three ways out for the list text: a file, the clipboard, an e-mail. Each leaves the municipality cursor on the
/// last row.
class HandOut {
 public:
  HandOut(ResultRows& rows, MessageDialog& messages, Formats& formats, const OutputPlatform& output)
      : m_rows(rows), m_messages(messages), m_formats(formats), m_output(output) {}

  /// Writes "vdkvez.txt" into a folder that the user picks. An empty result does nothing at all.
  void Export(const std::wstring& heading);
  void Copy(const std::wstring& heading);
  /// Writes "meil.txt" into `folder` and attaches it to a new e-mail, shown there under the heading.
  void Mail(const std::wstring& heading, const std::wstring& folder);

 private:
  std::wstring Text(const std::wstring& heading);
  bool Write(const std::wstring& path, const std::wstring& heading);
  std::wstring AskForExportFolder();

  ResultRows& m_rows;
  MessageDialog& m_messages;
  Formats& m_formats;
  OutputPlatform m_output;
};

}  // namespace kvez
