// The process code page and the conversions between narrow and wide text.
#pragma once

#include "platform/windows/WinTypes.h"

#define CP_ACP 0u
#define CP_UTF8 65001u

// The ANSI code page of the process: 936 unless set otherwise, as on the
// add-on's home machines.
UINT GetACP();

// Code pages 936 (GBK), 65001 (UTF-8), 1252 and 28591 (Latin-1 for both),
// and CP_ACP for the process's. `length` -1 means up to and with the
// null. With `wideCount` 0 gives the characters needed; otherwise converts
// into the buffer and gives the characters written, or 0 when the buffer
// is too small or the code page is unknown.
int MultiByteToWideChar(UINT codePage, DWORD flags, const char *text, int length, wchar_t *wide,
                        int wideCount);
int WideCharToMultiByte(UINT codePage, DWORD flags, const wchar_t *wide, int length, char *text,
                        int count, const char *defaultChar, BOOL *usedDefault);

namespace tolv {
// Sets the process code page that GetACP answers; 0 restores 936.
void SetAnsiCodePage(UINT codePage);
}  // namespace tolv
