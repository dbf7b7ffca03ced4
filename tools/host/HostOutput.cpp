#include "host/HostOutput.h"

#include <cstdio>

#include "platform/acad/AcutPrintf.h"
#include "platform/mfc/AfxMessage.h"
#include "platform/windows/TextCodec.h"

namespace {

// Whether the last character written ended a line, so that the host's own
// lines never run on from the module's text, which by the host's custom
// starts with a line break instead of ending with one.
bool g_atLineStart = true;

void Write(const std::string &bytes) {
  if (bytes.empty()) return;
  std::fwrite(bytes.data(), 1, bytes.size(), stdout);
  std::fflush(stdout);
  g_atLineStart = bytes.back() == '\n';
}

void StartLine() {
  if (!g_atLineStart) Write("\n");
}

std::wstring TrimLineBreaks(std::wstring text) {
  while (!text.empty() && (text.front() == L'\n' || text.front() == L'\r')) text.erase(0, 1);
  while (!text.empty() && (text.back() == L'\n' || text.back() == L'\r')) text.pop_back();
  return text;
}

tolv::CommandLineSink g_oldCommandLine;
tolv::MessageBoxSink g_oldMessageBox;

}  // namespace

void InstallHostOutput() {
  g_oldCommandLine = tolv::SetCommandLineSink([](const std::wstring &text) { Write(tolv::ToUtf8(text)); });
  g_oldMessageBox = tolv::SetMessageBoxSink([](const std::wstring &text, unsigned type) {
    StartLine();
    Write("[message box] " + tolv::ToUtf8(TrimLineBreaks(text)) + "\n");
    // Nobody is there to press a button: a question gets its first answer.
    return (type & 0xF) == MB_YESNO ? IDYES : IDOK;
  });
}

void RemoveHostOutput() {
  tolv::SetCommandLineSink(std::move(g_oldCommandLine));
  tolv::SetMessageBoxSink(std::move(g_oldMessageBox));
}

void HostLine(const std::string &text) {
  StartLine();
  Write("host: " + text + "\n");
}

void CommandLine(const std::string &text) {
  StartLine();
  Write(text);
}
