#pragma once

#include "platform/files.h"
#include "platform/formats.h"
#include "platform/lz_library.h"
#include "platform/message_dialog.h"
#include "platform/settings_store.h"

namespace kvez {

/// What the portable rooms ask of the machine. The services outlive whoever holds this.
struct Platform {
  MessageDialog& messages;
  SettingsStore& settings;
  LzLibrary& lz;
  Files& files;
  Formats& formats;
};

}  // namespace kvez
