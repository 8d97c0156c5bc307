#include "mainwindow/addresses.h"

namespace kvez {

// Each stands once in the program file, and in a file of its own so that no compiler takes it apart: the tests put the
// address of their own server into a copy of the program.
const wchar_t kDownloadBase[] = KVEZ_DOWNLOAD_BASE;
const wchar_t kMailAddress[] = KVEZ_MAIL;
const wchar_t kWebPage[] = KVEZ_WEB;

const bool kIsTrial = KVEZ_TRIAL != 0;

}  // namespace kvez
