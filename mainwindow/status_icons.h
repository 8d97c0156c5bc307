#pragma once

namespace kvez {

/// An icon of the status bar, by the name of its resource.
struct StatusIcon {
  const wchar_t* name;
};

inline constexpr StatusIcon kIconProgram{L"APLIKACE"};
inline constexpr StatusIcon kIconInternet{L"INTERNET"};
inline constexpr StatusIcon kIconMail{L"MEIL"};
inline constexpr StatusIcon kIconLoading{L"NACITANI"};
inline constexpr StatusIcon kIconSearch{L"NAJDI"};
inline constexpr StatusIcon kIconHelp{L"NAPOVEDA"};
inline constexpr StatusIcon kIconSettings{L"NASTAVENI"};
inline constexpr StatusIcon kIconMemory{L"PAMET"};
inline constexpr StatusIcon kIconComputer{L"POCITAC"};
inline constexpr StatusIcon kIconList{L"SEZNAM"};
inline constexpr StatusIcon kIconDownload{L"STAZENI"};

}  // namespace kvez
