#pragma once

namespace kvez {

/// An icon of the status bar, by the name of its resource. There are these and no others: a name that is wrong is wrong
/// here or does not compile.
class StatusIcon {
 public:
  static const StatusIcon None;
  static const StatusIcon Program;
  static const StatusIcon Internet;
  static const StatusIcon Mail;
  static const StatusIcon Loading;
  static const StatusIcon Search;
  static const StatusIcon Help;
  static const StatusIcon Settings;
  static const StatusIcon Memory;
  static const StatusIcon Computer;
  static const StatusIcon List;
  static const StatusIcon Download;

  /// Empty for none.
  constexpr const wchar_t* Name() const { return m_name; }

  friend constexpr bool operator==(StatusIcon, StatusIcon) = default;

 private:
  constexpr explicit StatusIcon(const wchar_t* name) : m_name(name) {}

  const wchar_t* m_name;
};

inline constexpr StatusIcon StatusIcon::None(L"");
inline constexpr StatusIcon StatusIcon::Program(L"APLIKACE");
inline constexpr StatusIcon StatusIcon::Internet(L"INTERNET");
inline constexpr StatusIcon StatusIcon::Mail(L"MEIL");
inline constexpr StatusIcon StatusIcon::Loading(L"NACITANI");
inline constexpr StatusIcon StatusIcon::Search(L"NAJDI");
inline constexpr StatusIcon StatusIcon::Help(L"NAPOVEDA");
inline constexpr StatusIcon StatusIcon::Settings(L"NASTAVENI");
inline constexpr StatusIcon StatusIcon::Memory(L"PAMET");
inline constexpr StatusIcon StatusIcon::Computer(L"POCITAC");
inline constexpr StatusIcon StatusIcon::List(L"SEZNAM");
inline constexpr StatusIcon StatusIcon::Download(L"STAZENI");

}  // namespace kvez
