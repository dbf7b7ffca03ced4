// MFC's message box. There is no window here: the text goes to a replaceable
// sink. The host program shows it as a marked line on standard error; tests
// capture it.
#pragma once

#include <functional>
#include <string>

constexpr unsigned MB_OK = 0x0;
constexpr unsigned MB_OKCANCEL = 0x1;
constexpr unsigned MB_ABORTRETRYIGNORE = 0x2;
constexpr unsigned MB_YESNOCANCEL = 0x3;
constexpr unsigned MB_YESNO = 0x4;
constexpr unsigned MB_RETRYCANCEL = 0x5;
constexpr unsigned MB_ICONERROR = 0x10;
constexpr unsigned MB_ICONQUESTION = 0x20;
constexpr unsigned MB_ICONWARNING = 0x30;
constexpr unsigned MB_ICONINFORMATION = 0x40;
constexpr int IDOK = 1;
constexpr int IDCANCEL = 2;
constexpr int IDABORT = 3;
constexpr int IDRETRY = 4;
constexpr int IDIGNORE = 5;
constexpr int IDYES = 6;
constexpr int IDNO = 7;

// Shows the text and gives the answer of the sink (IDOK by default).
int AfxMessageBox(const wchar_t *text, unsigned type = MB_OK, unsigned helpId = 0);

namespace tolv {

// Receives the text and type of a message box and gives the button pressed.
using MessageBoxSink = std::function<int(const std::wstring &text, unsigned type)>;

// Replaces the sink; an empty function restores the default. Gives the old one.
MessageBoxSink SetMessageBoxSink(MessageBoxSink sink);

}  // namespace tolv
