#include <windows.h>

#include "mainwindow/module1.h"

int WINAPI wWinMain(HINSTANCE, HINSTANCE, wchar_t*, int) { return kvez::Main(); }
