// Windows as the add-on's dialogs use them: a window has a class name, a
// text, styles, a control id, a parent and its children in creation order.
// Combo boxes and list boxes (class names "ComboBox" and "ListBox", in any
// case) keep their entries and a selection and answer their messages.
// Nothing is drawn and there is no message loop: a message is handled when
// it is sent.
#pragma once

#include "platform/windows/WinTypes.h"

// Styles and class names the system looks at.
#define WS_CHILD 0x40000000u
#define WS_VISIBLE 0x10000000u
#define WS_POPUP 0x80000000u
#define CBS_SORT 0x0100u
#define LBS_SORT 0x0002u

// The messages of text, combo boxes and list boxes.
#define WM_SETTEXT 0x000C
#define WM_GETTEXT 0x000D
#define WM_GETTEXTLENGTH 0x000E
#define CB_ADDSTRING 0x0143
#define CB_DELETESTRING 0x0144
#define CB_GETCOUNT 0x0146
#define CB_GETCURSEL 0x0147
#define CB_GETLBTEXT 0x0148
#define CB_GETLBTEXTLEN 0x0149
#define CB_INSERTSTRING 0x014A
#define CB_RESETCONTENT 0x014B
#define CB_SETCURSEL 0x014E
#define LB_ADDSTRING 0x0180
#define LB_INSERTSTRING 0x0181
#define LB_DELETESTRING 0x0182
#define LB_RESETCONTENT 0x0184
#define LB_SETCURSEL 0x0186
#define LB_GETCURSEL 0x0188
#define LB_GETTEXT 0x0189
#define LB_GETTEXTLEN 0x018A
#define LB_GETCOUNT 0x018B
#define CB_ERR (-1)
#define LB_ERR (-1)

#define GWL_STYLE (-16)
#define GWL_EXSTYLE (-20)
#define GWL_ID (-12)

// `menuOrId` is the control id of a child window. Gives null for a null or
// empty class name or a parent that is not a window.
HWND CreateWindowExW(DWORD exStyle, LPCWSTR className, LPCWSTR text, DWORD style, int x, int y,
                     int width, int height, HWND parent, HMENU menuOrId, HINSTANCE instance,
                     void *param);
// Destroys the window and its children, children first.
BOOL DestroyWindow(HWND window);
BOOL IsWindow(HWND window);

// Copies at most count - 1 characters and a null; gives the number copied.
int GetWindowTextW(HWND window, LPWSTR buffer, int count);
int GetWindowTextLengthW(HWND window);
BOOL SetWindowTextW(HWND window, LPCWSTR text);
int GetClassNameW(HWND window, LPWSTR buffer, int count);
LONG GetWindowLongW(HWND window, int index);

HWND GetParent(HWND window);
HWND GetDlgItem(HWND dialog, int id);
int GetDlgCtrlID(HWND window);

// Calls `proc` for every child window and their children, depth first in
// creation order, until it answers FALSE. Gives FALSE when there was no
// child at all or the walk was stopped, as the home platform does.
using WNDENUMPROC = BOOL (*)(HWND, LPARAM);
BOOL EnumChildWindows(HWND parent, WNDENUMPROC proc, LPARAM param);

// The text messages and the combo-box and list-box messages listed above.
// Anything else, or a window that is gone, answers 0.
LRESULT SendMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

namespace tolv {
// How many windows stand now: lets tests see that nothing is left behind.
int LiveWindowCount();
}  // namespace tolv
