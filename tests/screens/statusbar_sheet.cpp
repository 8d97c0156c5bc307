// kvez_statusbar_sheet FILE.bmp: the status bar with each of its icons at 100, 150 and 200 %, for people to look at.

#include <windows.h>

#include "mainwindow/statusbar.h"
#include "platform/portable/portable_formats.h"
#include "tests/core/output_fakes.h"
#include "tests/screens/bitmap_sheet.h"

namespace kvez::test {
namespace {

struct Row {
  StatusIcon icon;
  const wchar_t* text;
  std::int32_t flags;
};

constexpr Row kRows[] = {
    {StatusIcon::Program, L"Vyhledá obce odpovídající zadanému textu.", 0},
    {StatusIcon::Search, L"Najde v databázi požadované informace.", 0},
    {StatusIcon::Help, L"Nápověda na ovládání programu.", 0},
    {StatusIcon::Mail, L"Vaše přání nebo připomínky.", 0},
    {StatusIcon::Computer, L"Systémové informace Vašeho počítače.", 0},
    {StatusIcon::Internet, L"Stránky programu.", 0},
    {StatusIcon::Settings, L"Uživatelské nastavení.", 0},
    {StatusIcon::Loading, L"Načítání databáze obcí ze souboru.", 0},
    {StatusIcon::List, L"Vytváření uživatelského seznamu.", 0},
    {StatusIcon::Download, L"Bylo zahájeno stažení souboru nápovědy.", 512},
    {StatusIcon::Memory, L"Strpení prosím, uvolňuji paměť.", 512},
    {StatusIcon::None, L"", 256},
};

bool DrawSheet(const wchar_t* path) {
  constexpr int barWidth = 420;
  constexpr int rowHeight = 56;
  BitmapSheet sheet(barWidth * 9 / 2, rowHeight * static_cast<int>(std::size(kRows)));
  const HWND parent =
      CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, barWidth, 100, nullptr, nullptr, nullptr, nullptr);
  // A bar that is not shown draws nothing.
  ShowWindow(parent, SW_SHOWNOACTIVATE);
  PortableFormats formats;
  fakes::ClockFake clock;
  StatusBar bar(formats, clock);
  bar.Create(parent, false);
  int left = 0;
  for (const int dpi : {96, 144, 192}) {
    const int width = MulDiv(barWidth, dpi, 96);
    SetWindowPos(parent, nullptr, 0, 0, width, 100, SWP_NOZORDER | SWP_NOACTIVATE);
    bar.DpiChanged(static_cast<unsigned>(dpi));
    int top = 0;
    for (const Row& row : kRows) {
      bar.SetIcon(kMessagePanel, -1, row.icon);
      bar.SetText(row.text, kMessagePanel, row.flags);
      sheet.Draw(bar.Handle(), left, top);
      top += rowHeight;
    }
    left += width;
  }
  bar.Destroy();
  DestroyWindow(parent);
  return sheet.Save(path);
}

}  // namespace
}  // namespace kvez::test

int wmain(int count, wchar_t** arguments) {
  if (count != 2) return 2;
  return kvez::test::DrawSheet(arguments[1]) ? 0 : 1;
}
