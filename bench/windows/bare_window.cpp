// The bare window that the program's start is measured against: it reads the municipalities from the data files of a
// folder, as the program does, fills one list box with them and does nothing else. Its caption says "hotovo" when it is
// done.

#include <windows.h>

#include <string>

#include "bench/windows/windows_machine.h"
#include "postal/clspsc.h"

namespace {

class PlainListBox : public kvez::ListBox {
 public:
  explicit PlainListBox(HWND list) : m_list(list) {}

  void Clear() override { SendMessageW(m_list, LB_RESETCONTENT, 0, 0); }
  void BeginFill(std::size_t rows, std::size_t characters) override {
    SendMessageW(m_list, WM_SETREDRAW, FALSE, 0);
    SendMessageW(m_list, LB_INITSTORAGE, rows, static_cast<LPARAM>((characters + rows) * sizeof(wchar_t)));
  }
  void EndFill() override { SendMessageW(m_list, WM_SETREDRAW, TRUE, 0); }
  void AddRow(std::wstring_view text, std::int32_t) override {
    m_row.assign(text);
    SendMessageW(m_list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(m_row.c_str()));
  }
  int TextWidth(std::wstring_view) override { return 0; }
  void SetHorizontalExtent(int) override {}

 private:
  HWND m_list;
  std::wstring m_row;
};

void Fill(HWND list, const std::wstring& folder) {
  kvez::WindowsMachine machine;
  kvez::clspsc database(machine.Platform(), folder);
  kvez::NoProgress progress;
  database.pscNacti(progress);
  PlainListBox box(list);
  database.pscVyberVse(box, progress);
}

LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_DESTROY) PostQuitMessage(0);
  return DefWindowProcW(window, message, wParam, lParam);
}

}  // namespace

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, wchar_t* folder, int) {
  WNDCLASSW windowClass{};
  windowClass.lpfnWndProc = &Procedure;
  windowClass.hInstance = instance;
  windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  windowClass.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
  windowClass.lpszClassName = L"KvezBareWindow";
  RegisterClassW(&windowClass);
  const HWND window = CreateWindowExW(0, windowClass.lpszClassName, L"", WS_OVERLAPPEDWINDOW, CW_USEDEFAULT,
                                      CW_USEDEFAULT, 560, 340, nullptr, nullptr, instance, nullptr);
  const HWND list = CreateWindowExW(WS_EX_CLIENTEDGE, L"LISTBOX", L"", WS_CHILD | WS_VISIBLE | WS_VSCROLL | WS_HSCROLL,
                                    2, 22, 207, 186, window, nullptr, instance, nullptr);
  ShowWindow(window, SW_SHOWNORMAL);
  UpdateWindow(window);
  // The folder comes in quotation marks.
  std::wstring name(folder);
  std::erase(name, L'"');
  Fill(list, name);
  UpdateWindow(list);
  SetWindowTextW(window, L"hotovo");
  MSG message{};
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  return 0;
}
