#pragma once

#include "platform/files.h"
#include "platform/formats.h"
#include "platform/lz_library.h"
#include "platform/message_dialog.h"
#include "platform/settings_store.h"

namespace kvez {

/// What the lists and the searches ask of the machine. The services outlive whoever holds this.
struct DatabasePlatform {
  MessageDialog& messages;
  SettingsStore& settings;
  LzLibrary& lz;
  Files& files;
  Formats& formats;
};

}  // namespace kvez
