#pragma once

namespace kvez {

/// Where the program looks for its maker. Set when it is built: the CMake variables KVEZ_DOWNLOAD_BASE, KVEZ_MAIL,
/// KVEZ_WEB and KVEZ_TRIAL.

/// The folder of the data files and of the help, with its closing slash.
extern const wchar_t kDownloadBase[];

/// A mail address, and a web page without "http://".
extern const wchar_t kMailAddress[];
extern const wchar_t kWebPage[];

/// Whether this is given to somebody although the addresses are nobody's. KVEZ_TRIAL.
extern const bool kIsTrial;

}  // namespace kvez
