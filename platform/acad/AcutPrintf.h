// The host's command-line output. The text goes to a replaceable sink: the
// host program prints it on standard output; tests capture it.
#pragma once

#include <functional>
#include <string>

// printf-style with the home platform's wide rules; gives the characters written.
int acutPrintf(const wchar_t *format, ...);

namespace tolv {

using CommandLineSink = std::function<void(const std::wstring &text)>;

// Replaces the sink; an empty function restores standard output. Gives the old one.
CommandLineSink SetCommandLineSink(CommandLineSink sink);

}  // namespace tolv
