// The fixed-width integer names of the home platform's API, as the MFC
// stand-ins use them. LONG is 32 bits there, so it is here too.
#pragma once

#include <cstdint>

using BYTE = std::uint8_t;
using WORD = std::uint16_t;
using DWORD = std::uint32_t;
using UINT = unsigned int;
using LONG = std::int32_t;
using LONGLONG = long long;
using ULONGLONG = unsigned long long;
// The parameters and result of a window message.
using WPARAM = std::uintptr_t;
using LPARAM = std::intptr_t;
using LRESULT = std::intptr_t;
