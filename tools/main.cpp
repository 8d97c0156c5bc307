// kvezdata: the official postal list into the project's tables, the tables into the program's data files, and back.

#include "tools/program.h"

#ifdef _WIN32
// The wide arguments: the narrow ones lose what the system's code page lacks.
int wmain(int count, wchar_t** values) { return kvez::RunProgram(count, values); }
#else
int main(int count, char** values) { return kvez::RunProgram(count, values); }
#endif
