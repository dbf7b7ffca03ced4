// The handle and integer types of the home platform's window, menu and
// resource API, as the stand-ins in this folder use them.
#pragma once

#include <cstdint>

using BOOL = int;
using BYTE = std::uint8_t;
using WORD = std::uint16_t;
using DWORD = std::uint32_t;
using UINT = unsigned int;
using LONG = std::int32_t;
using LANGID = std::uint16_t;
using WPARAM = std::uintptr_t;
using LPARAM = std::intptr_t;
using LRESULT = std::intptr_t;
using UINT_PTR = std::uintptr_t;
using INT_PTR = std::intptr_t;
using LONG_PTR = std::intptr_t;
using LPCWSTR = const wchar_t *;
using LPWSTR = wchar_t *;

#ifndef TRUE
#define TRUE 1
#define FALSE 0
#endif

// Handles are pointers to types that are never defined outside the
// stand-ins, so that different kinds of handle don't mix.
struct HINSTANCE__;
using HINSTANCE = HINSTANCE__ *;
using HMODULE = HINSTANCE;
struct HWND__;
using HWND = HWND__ *;
struct HMENU__;
using HMENU = HMENU__ *;
struct HRSRC__;
using HRSRC = HRSRC__ *;
using HGLOBAL = void *;

// A resource name or type is either a text or a number below 0x10000
// passed in the pointer.
inline bool IS_INTRESOURCE(LPCWSTR name) { return (reinterpret_cast<std::uintptr_t>(name) >> 16) == 0; }
inline LPCWSTR MAKEINTRESOURCEW(std::uintptr_t id) { return reinterpret_cast<LPCWSTR>(id & 0xFFFF); }
inline WORD RESOURCE_ID(LPCWSTR name) { return static_cast<WORD>(reinterpret_cast<std::uintptr_t>(name)); }

// The resource types the system reads.
#define RT_MENU MAKEINTRESOURCEW(4)
#define RT_DIALOG MAKEINTRESOURCEW(5)
#define RT_STRING MAKEINTRESOURCEW(6)
#define RT_TOOLBAR MAKEINTRESOURCEW(241)

inline constexpr LANGID MAKELANGID(unsigned primary, unsigned sub) {
  return static_cast<LANGID>((sub << 10) | primary);
}
