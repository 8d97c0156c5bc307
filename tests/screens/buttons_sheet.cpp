// kvez_buttons_sheet DPI FILE.bmp: the hover button in all its states at one scaling (96 dots per inch are 100 %), for
// people to look at.

#include <windows.h>

#include <functional>
#include <memory>

#include "controls/tlText.h"
#include "tests/screens/bitmap_sheet.h"
#include "tests/support/window_test.h"

namespace kvez::test {
namespace {

constexpr int kLeftTwips = 1800;
constexpr int kTopTwips = 600;
constexpr int kColumnTwips = 1500;
constexpr int kRowTwips = 480;

struct Kind {
  const wchar_t* name;
  MemoryPropertyBag bag;
};

struct State {
  const wchar_t* name;
  bool focus;
  bool pointer;
  bool down;
  bool disabled;
  bool inAction;
};

std::vector<Kind> Kinds() {
  const auto text = [](const wchar_t* value) { return MemoryPropertyBag::Value(std::wstring(value)); };
  return {
      {L"DEBorder 0, FocusDraw 0", {{L"C", text(L"&Vyhledej")}}},
      {L"DEBorder 0, FocusDraw 1", {{L"C", text(L"&Aktualizace")}, {L"FoD", 1}}},
      {L"DEBorder 1, FocusDraw 0", {{L"C", text(L"&Nápověda")}, {L"DEB", 1}}},
      {L"DEBorder 1, FocusDraw 1", {{L"C", text(L"&O aplikaci")}, {L"DEB", 1}, {L"FoD", 1}}},
      {L"DEBorder 2, FocusDraw 0", {{L"C", text(L"Na&staveni")}, {L"DEB", 2}}},
      {L"DEBorder 2, FocusDraw 1", {{L"C", text(L"O&bce k PSČ")}, {L"DEB", 2}, {L"FoD", 1}}},
      {L"DEBorder 3", {{L"C", text(L"&Konec")}, {L"DEB", 3}}},
      {L"DEMove", {{L"C", text(L"&Storno")}, {L"DEM", Boolean(true)}}},
      {L"own colours",
       {{L"C", text(L"Žluťoučký")}, {L"BC", 0x602010}, {L"FC", 0xFFFFFF}, {L"MC", 0x00FFFF}, {L"DC", 0xFF80FF}}},
      {L"long caption", {{L"C", text(L"Příliš žluťoučký kůň")}, {L"FoD", 1}}},
  };
}

constexpr State kStates[] = {
    {L"normal", false, false, false, false, false},      {L"hover", false, true, false, false, false},
    {L"down", false, true, true, false, false},          {L"down, pointer gone", false, false, true, false, false},
    {L"during action", false, true, false, false, true}, {L"focus", true, false, false, false, false},
    {L"focus, hover", true, true, false, false, false},  {L"focus, down", true, true, true, false, false},
    {L"disabled", false, false, false, true, false},
};

/// Brings a button into a state by what would bring it there, and has it drawn.
void DrawState(forms::Form& form, const Kind& kind, const State& state, const std::function<void(HWND)>& draw) {
  tlText button;
  button.Create(form, 1, {150, 150, 1215, 345}, L"tlHZkouska");
  button.SetVisible(false);
  button.SetVisible(true);
  button.ReadProperties(kind.bag);
  const POINT pointer = state.pointer ? test::CenterOf(button.Handle()) : test::FarAway();
  SetCursorPos(pointer.x, pointer.y);
  if (state.focus) SendMessageW(button.Handle(), WM_SETFOCUS, 0, 0);
  if (state.pointer) SendMessageW(button.Handle(), WM_MOUSEMOVE, 0, MAKELPARAM(5, 5));
  // The mouse would bring the focus along; but without the pointer, the space bar would bring the hover look.
  if (state.down && state.pointer) SendMessageW(button.Handle(), WM_KEYDOWN, VK_SPACE, 0);
  if (state.down && !state.pointer) SendMessageW(button.Handle(), WM_LBUTTONDOWN, 0, MAKELPARAM(5, 5));
  if (state.disabled) button.SetEnabled(false);
  if (state.inAction) {
    button.Click = [&] { draw(button.Handle()); };
    SendMessageW(button.Handle(), WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
  } else {
    draw(button.Handle());
  }
}

bool DrawSheet(unsigned dpi, const wchar_t* path) {
  test::TestForm form;
  form.ChangeDpi(dpi);
  if (!test::ShowActive(form)) return false;
  const std::vector<Kind> kinds = Kinds();
  const int columns = static_cast<int>(std::size(kStates));
  BitmapSheet sheet(form.ToPixels(kLeftTwips + columns * kColumnTwips),
                    form.ToPixels(kTopTwips + static_cast<int>(kinds.size()) * kRowTwips));
  const auto place = [&form](int left, int top, int width) {
    return RECT{form.ToPixels(left), form.ToPixels(top), form.ToPixels(left + width), form.ToPixels(top + kRowTwips)};
  };
  for (int column = 0; column < columns; ++column) {
    sheet.Write(kStates[column].name, form.Font(), place(kLeftTwips + column * kColumnTwips, 60, kColumnTwips - 60));
  }
  int top = kTopTwips;
  for (const Kind& kind : kinds) {
    sheet.Write(kind.name, form.Font(), place(60, top, kLeftTwips - 120));
    for (int column = 0; column < columns; ++column) {
      DrawState(form, kind, kStates[column], [&](HWND button) {
        sheet.Draw(button, form.ToPixels(kLeftTwips + column * kColumnTwips), form.ToPixels(top));
      });
    }
    top += kRowTwips;
  }
  return sheet.Save(path);
}

}  // namespace
}  // namespace kvez::test

int wmain(int count, wchar_t** arguments) {
  if (count != 3) return 2;
  const int dpi = _wtoi(arguments[1]);
  if (dpi < 96 || dpi > 480) return 2;
  return kvez::test::DrawSheet(static_cast<unsigned>(dpi), arguments[2]) ? 0 : 1;
}
