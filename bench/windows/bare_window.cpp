// The bare window that the program's start is measured against: it fills one list box with the names of a table of
// municipalities (psc;obec;okres, UTF-8) and does nothing else. Its caption says "hotovo" when it is done.

#include <windows.h>

#include <string>
#include <string_view>
#include <vector>

namespace {

std::string ReadWhole(const wchar_t* path) {
  const HANDLE file = CreateFileW(path, GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
  if (file == INVALID_HANDLE_VALUE) return {};
  std::string bytes(GetFileSize(file, nullptr), '\0');
  DWORD read = 0;
  if (!ReadFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &read, nullptr)) bytes.clear();
  CloseHandle(file);
  return bytes;
}

void Fill(HWND list, std::string_view table) {
  SendMessageW(list, WM_SETREDRAW, FALSE, 0);
  SendMessageW(list, LB_INITSTORAGE, 20000, 20000 * 40);
  std::size_t line = table.find('\n') + 1;
  while (line < table.size()) {
    const std::size_t start = table.find(';', line) + 1;
    const std::size_t end = table.find(';', start);
    wchar_t name[256] = {};
    MultiByteToWideChar(CP_UTF8, 0, table.data() + start, static_cast<int>(end - start), name, 255);
    SendMessageW(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(name));
    line = table.find('\n', end) + 1;
  }
  SendMessageW(list, WM_SETREDRAW, TRUE, 0);
}

LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_DESTROY) PostQuitMessage(0);
  return DefWindowProcW(window, message, wParam, lParam);
}

}  // namespace

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, wchar_t* path, int) {
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
  Fill(list, ReadWhole(path));
  UpdateWindow(list);
  SetWindowTextW(window, L"hotovo");
  MSG message{};
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  return 0;
}
