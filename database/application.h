#pragma once

#include <string_view>

namespace kvez {

/// The title of message boxes and of the main window.
inline constexpr std::wstring_view kApplicationTitle = L"Kvez";

/// Where the per-user settings are kept.
inline constexpr std::wstring_view kSettingsApplication = L"VD";
inline constexpr std::wstring_view kSettingsSection = L"VDKVEZ";

}  // namespace kvez
