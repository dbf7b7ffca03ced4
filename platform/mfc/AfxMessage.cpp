#include "platform/mfc/AfxMessage.h"

#include <cstdio>

#include "platform/windows/TextCodec.h"

namespace {

int DefaultSink(const std::wstring &text, unsigned type) {
  std::string line = "[message box] " + tolv::ToUtf8(text) + "\n";
  std::fputs(line.c_str(), stderr);
  std::fflush(stderr);
  // Nobody is there to press a button: the box is answered with its first.
  switch (type & 0xF) {
    case MB_ABORTRETRYIGNORE:
      return IDABORT;
    case MB_YESNOCANCEL:
    case MB_YESNO:
      return IDYES;
    case MB_RETRYCANCEL:
      return IDRETRY;
    default:
      return IDOK;
  }
}

tolv::MessageBoxSink &Sink() {
  static tolv::MessageBoxSink sink;
  return sink;
}

}  // namespace

int AfxMessageBox(const wchar_t *text, unsigned type, unsigned helpId) {
  (void)helpId;
  std::wstring t = text ? text : L"";
  return Sink() ? Sink()(t, type) : DefaultSink(t, type);
}

namespace tolv {

MessageBoxSink SetMessageBoxSink(MessageBoxSink sink) {
  MessageBoxSink old = std::move(Sink());
  Sink() = std::move(sink);
  return old;
}

}  // namespace tolv
