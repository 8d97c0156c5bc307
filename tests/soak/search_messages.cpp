#include "tests/soak/search_messages.h"

#include "mainwindow/control_ids.h"

namespace kvez::soak {

void TypeSearch(const test::Program& program, const std::wstring& text) {
  SendMessageW(program.Control(kTxtMPSC), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
}

void PostEnter(const test::Program& program) { PostMessageW(program.Control(kTxtMPSC), WM_KEYDOWN, VK_RETURN, 1); }

void SearchFor(const test::Program& program, const std::wstring& text) {
  TypeSearch(program, text);
  SendMessageW(program.Control(kTxtMPSC), WM_KEYDOWN, VK_RETURN, 1);
}

}  // namespace kvez::soak
