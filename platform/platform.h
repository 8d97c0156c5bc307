#pragma once

#include "platform/clipboard.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "platform/folder_dialog.h"
#include "platform/formats.h"
#include "platform/lz_library.h"
#include "platform/mail_client.h"
#include "platform/message_dialog.h"
#include "platform/pending_messages.h"
#include "platform/printer.h"
#include "platform/settings_store.h"
#include "platform/text_files.h"
#include "platform/version_information.h"

namespace kvez {

/// What handing out a list asks of the machine.
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

/// What the portable rooms ask of the machine. The services outlive whoever holds this.
struct Platform {
  MessageDialog& messages;
  SettingsStore& settings;
  LzLibrary& lz;
  Files& files;
  Formats& formats;
  OutputPlatform output;
};

}  // namespace kvez
