// Helpers of the pattern tests: pattern files made from text in a scratch
// folder, read into KyPats and written back, and message boxes counted.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "support/TestSupport.h"
#include "patterns/KyPats.h"
#include "platform/mfc/AfxMessage.h"
#include "platform/mfc/CStdioFile.h"

namespace pattest {

// Reads `bytes` as a pattern file through CStdioFile.
inline void ReadPats(KyPats &pats, const std::string &bytes) {
  tolvtest::ScratchDir dir("patterns-read");
  tolvtest::WriteFileBytes(dir.path() / "in.pat", bytes);
  CStdioFile file(dir.wide("in.pat").c_str(), CFile::modeRead | CFile::typeText);
  pats << file;
  file.Close();
}

// Writes the patterns as a file (LF line ends) and gives its bytes.
inline std::string WritePats(KyPats &pats) {
  tolvtest::ScratchDir dir("patterns-write");
  {
    CStdioFile file(dir.wide("out.pat").c_str(), CFile::modeCreate | CFile::modeWrite | CFile::typeBinary);
    pats >> file;
    file.Close();
  }
  return tolvtest::ReadFileBytes(dir.path() / "out.pat");
}

// The text of one data line as written.
inline std::string LineText(const KyPatData &data) {
  std::wstring w = data.GetLine().str();
  return std::string(w.begin(), w.end());
}

inline std::string Narrow(const CString &s) {
  std::string out;
  for (wchar_t c : s.view()) out += static_cast<char>(c < 128 ? c : '?');
  return out;
}

// Collects the message boxes shown while it lives.
class MessageBoxes {
 public:
  MessageBoxes() {
    old_ = tolv::SetMessageBoxSink([this](const std::wstring &text, unsigned) {
      texts.push_back(text);
      return IDOK;
    });
  }
  ~MessageBoxes() { tolv::SetMessageBoxSink(std::move(old_)); }
  MessageBoxes(const MessageBoxes &) = delete;
  MessageBoxes &operator=(const MessageBoxes &) = delete;

  std::vector<std::wstring> texts;

 private:
  tolv::MessageBoxSink old_;
};

}  // namespace pattest
