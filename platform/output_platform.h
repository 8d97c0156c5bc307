#pragma once

#include "platform/clipboard.h"
#include "platform/clock.h"
#include "platform/folder_dialog.h"
#include "platform/mail_client.h"
#include "platform/pending_messages.h"
#include "platform/printer.h"
#include "platform/text_files.h"
#include "platform/version_information.h"

namespace kvez {

/// What handing out a list asks of the machine. The services outlive whoever holds this.
struct OutputPlatform {
  Clock& clock;
  PendingMessages& pendingMessages;
  VersionInformation& version;
  TextFiles& textFiles;
  Clipboard& clipboard;
  FolderDialog& folders;
  MailClient& mail;
  Printer& printer;
};

}  // namespace kvez
