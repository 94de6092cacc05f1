/* Stands in the browser's place under Wine: writes down what it was called with. */
#ifndef UNICODE
#define UNICODE
#endif
#include <windows.h>

void entry(void) {
  static char bytes[4096];
  DWORD written = 0;
  const int length = WideCharToMultiByte(CP_UTF8, 0, GetCommandLineW(), -1, bytes, sizeof bytes, NULL, NULL);
  const HANDLE file = CreateFileW(L"C:\\witness.txt", GENERIC_WRITE, 0, NULL, CREATE_ALWAYS, 0, NULL);
  WriteFile(file, bytes, (DWORD)(length - 1), &written, NULL);
  CloseHandle(file);
  ExitProcess(0);
}
