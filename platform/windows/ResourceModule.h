// Loaded modules and their resources: LoadLibraryW reads a Windows module
// (a PE file) for its resources, and the resource functions find, load and
// enumerate them. Menus and dialogs are made from their templates, a
// dialog as a window whose children are its controls.
//
// A module that holds a resource in several languages gives, on a load by
// type and name, the one in the preferred language (tolv::SetResourceLanguage,
// Chinese 0x0804 unless set), else the neutral one, else the English one,
// else the first listed.
#pragma once

#include <string>
#include <vector>

#include "platform/windows/WinTypes.h"

// Module paths are the system's (backslashes); null when the file is
// missing or is not a PE module.
HMODULE LoadLibraryW(LPCWSTR fileName);
BOOL FreeLibrary(HMODULE module);
// The module's path as the system names it; for a module of this process
// that LoadLibraryW did not read, its shared library, named as at home
// ("…\TolvDataBase.so" for libTolvDataBase.so).
DWORD GetModuleFileNameW(HMODULE module, LPWSTR buffer, DWORD size);

using ENUMRESTYPEPROCW = BOOL (*)(HMODULE, LPWSTR, LONG_PTR);
using ENUMRESNAMEPROCW = BOOL (*)(HMODULE, LPCWSTR, LPWSTR, LONG_PTR);
using ENUMRESLANGPROCW = BOOL (*)(HMODULE, LPCWSTR, LPCWSTR, WORD, LONG_PTR);
// Each distinct type, name of a type, language of a name, in the order of
// the module's directory. The text passed for a named type or name lives
// until the callback returns.
BOOL EnumResourceTypesW(HMODULE module, ENUMRESTYPEPROCW proc, LONG_PTR param);
BOOL EnumResourceNamesW(HMODULE module, LPCWSTR type, ENUMRESNAMEPROCW proc, LONG_PTR param);
BOOL EnumResourceLanguagesW(HMODULE module, LPCWSTR type, LPCWSTR name, ENUMRESLANGPROCW proc,
                            LONG_PTR param);

HRSRC FindResourceW(HMODULE module, LPCWSTR name, LPCWSTR type);
HRSRC FindResourceExW(HMODULE module, LPCWSTR type, LPCWSTR name, WORD language);
HGLOBAL LoadResource(HMODULE module, HRSRC resource);
void *LockResource(HGLOBAL data);
DWORD SizeofResource(HMODULE module, HRSRC resource);

// The string `id` of the module's string table, as LoadStringW does: at
// most count - 1 characters; 0 when there is none.
int LoadStringW(HMODULE module, UINT id, LPWSTR buffer, int count);
HMENU LoadMenuW(HMODULE module, LPCWSTR name);

// Makes the dialog of the template `name` as a window with its controls as
// children. The procedure is not called: nothing here sends messages.
using DLGPROC = INT_PTR (*)(HWND, UINT, WPARAM, LPARAM);
HWND CreateDialogParamW(HMODULE module, LPCWSTR name, HWND parent, DLGPROC proc, LPARAM param);

namespace tolv {

struct DialogTemplate;
class PeImage;

// The language a load by type and name prefers; 0 restores Chinese.
void SetResourceLanguage(LANGID language);
LANGID GetResourceLanguage();

// A module built in memory from raw resources, for modules that are not
// files. Freed with FreeLibrary.
struct RawResource {
  LPCWSTR type;  // a number (MAKEINTRESOURCEW) or a text
  LPCWSTR name;
  WORD language;
  std::string bytes;
};
HMODULE CreateResourceModule(const std::wstring &fileName, const std::vector<RawResource> &resources);

// The image behind a module LoadLibraryW read, or null.
const PeImage *ModuleImage(HMODULE module);

// Makes a dialog window from a parsed template.
HWND CreateDialogFromTemplate(const DialogTemplate &dialog, HWND parent);

}  // namespace tolv
