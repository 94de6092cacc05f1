/* Autorun.exe, at the top of every exported album: Windows starts it when the disc goes in, as
 * Autorun.inf says, and it opens the start page named on its command line.
 *
 * Windows reads Autorun.inf in the machine's own letters, whatever it was written in. So a name
 * that is not there is tried once more as what its bytes say in UTF-8; and if the album's name got
 * lost altogether, its start page is the one page beside the frame page. Without the C library: the
 * program is a few kilobytes, and nothing has to be installed for it. */
#ifndef UNICODE
#define UNICODE
#endif
#include <windows.h>

#include <shellapi.h>
#include <shlwapi.h>

enum { opened = 0, notOpened = 1, noPage = 2, room = 1024 };

/* The album's folder, with the "\" at its end. */
static void albumFolder(wchar_t* folder) {
  GetModuleFileNameW(NULL, folder, room);
  PathRemoveFileSpecW(folder);
  PathAddBackslashW(folder);
}

/* What stands behind the program's own name. */
static void argument(wchar_t* name) {
  lstrcpynW(name, PathGetArgsW(GetCommandLineW()), room);
  StrTrimW(name, L" \t\"");
}

static int isInAlbum(const wchar_t* folder, const wchar_t* name, wchar_t* path) {
  if (!*name || StrPBrkW(name, L"\\/:") || lstrlenW(folder) + lstrlenW(name) >= room)
    return 0;
  lstrcpyW(path, folder);
  lstrcatW(path, name);
  return PathFileExistsW(path);
}

static void readAsUtf8(wchar_t* name) {
  char bytes[room];
  wchar_t read[room];
  if (WideCharToMultiByte(CP_ACP, 0, name, -1, bytes, room, NULL, NULL) &&
      MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, bytes, -1, read, room))
    lstrcpyW(name, read);
}

static int firstPage(const wchar_t* folder, wchar_t* path) {
  WIN32_FIND_DATAW found;
  int isThere = 0;
  lstrcpyW(path, folder);
  lstrcatW(path, L"*.htm");
  HANDLE search = FindFirstFileW(path, &found);
  if (search == INVALID_HANDLE_VALUE)
    return 0;
  do {
    if (lstrcmpiW(found.cFileName, L"frameset.htm") != 0)
      isThere = isInAlbum(folder, found.cFileName, path);
  } while (!isThere && FindNextFileW(search, &found));
  FindClose(search);
  return isThere;
}

static int findPage(wchar_t* path) {
  static wchar_t folder[room];
  static wchar_t name[room];
  albumFolder(folder);
  argument(name);
  if (isInAlbum(folder, name, path))
    return 1;
  readAsUtf8(name);
  return isInAlbum(folder, name, path) || firstPage(folder, path);
}

static int openPage(void) {
  static wchar_t path[room];
  if (!findPage(path)) {
    MessageBoxW(NULL, L"The pages of the album could not be found beside this program.",
                L"Hearthbook", MB_ICONEXCLAMATION);
    return noPage;
  }
  if ((INT_PTR)ShellExecuteW(NULL, L"open", path, NULL, NULL, SW_SHOWNORMAL) > 32)
    return opened;
  MessageBoxW(NULL, path, L"Hearthbook: please open this page in a browser", MB_ICONEXCLAMATION);
  return notOpened;
}

void entry(void) { ExitProcess((UINT)openPage()); }
