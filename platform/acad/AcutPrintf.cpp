#include "platform/acad/AcutPrintf.h"

#include <cstdarg>
#include <cstdio>

#include "platform/windows/TextCodec.h"
#include "platform/windows/WideFormat.h"

namespace {

tolv::CommandLineSink &Sink() {
  static tolv::CommandLineSink sink;
  return sink;
}

}  // namespace

int acutPrintf(const wchar_t *format, ...) {
  va_list args;
  va_start(args, format);
  std::wstring text = tolv::FormatWideV(format, args);
  va_end(args);
  if (Sink()) {
    Sink()(text);
  } else {
    std::string bytes = tolv::ToUtf8(text);
    std::fwrite(bytes.data(), 1, bytes.size(), stdout);
    std::fflush(stdout);
  }
  return static_cast<int>(text.size());
}

namespace tolv {

CommandLineSink SetCommandLineSink(CommandLineSink sink) {
  CommandLineSink old = std::move(Sink());
  Sink() = std::move(sink);
  return old;
}

}  // namespace tolv
