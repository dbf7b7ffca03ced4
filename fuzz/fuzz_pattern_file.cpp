// Feeds arbitrary bytes to the hatch pattern reader through a file, then
// scales, lists and writes what it read, as the pattern tool does. Nothing
// may crash, hang or leak.
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <fstream>
#include <string>
#include <vector>

#include "FuzzSeeds.h"
#include "patterns/KyPats.h"
#include "platform/mfc/AfxMessage.h"
#include "platform/mfc/CListCtrl.h"
#include "platform/mfc/CStdioFile.h"
#include "platform/windows/TextCodec.h"

std::vector<std::string> FuzzTargetSeeds() {
  return {
      ";; office patterns\n*NET, square grid\n0, 0,0, 0,.125\n90, 0,0, 0,.125\n"
      "*DASH, dashed lines\n0, 0,0, .125,.125, .125,-.125\n",
      "*BRICK,Brick or masonry-type surface\r\n0,0,0,0,.25\r\n90,0,0,.25,.25,.25,-.25\r\n; note\r\n",
      "*X\n45,0,0,0,1e308,nan,-0,inf\n*Y,trailing head without data",
      "*LONG,x\n0,0,0,0,1111111111,2222222222,3333333333,4444444444,5555555555,6666666666,7777777777\n",
  };
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
  static const std::string in = "/tmp/tolv-fuzz-pat-" + std::to_string(::getpid()) + ".pat";
  static const std::string out = in + ".out";
  static const std::wstring wideIn = tolv::FromUtf8(in), wideOut = tolv::FromUtf8(out);
  // Over-long lines raise a message box each; keep the output quiet.
  static const bool quiet = [] {
    tolv::SetMessageBoxSink([](const std::wstring &, unsigned) { return IDOK; });
    return true;
  }();
  (void)quiet;
  {
    // A plain write: the input needs no safe save, and its sync would be
    // most of the run's time.
    std::ofstream f(in, std::ios::binary | std::ios::trunc);
    f.write(reinterpret_cast<const char *>(data), static_cast<std::streamsize>(size));
    if (!f) return 0;
  }
  KyPats pats;
  {
    CStdioFile file;
    if (!file.Open(wideIn.c_str(), CFile::modeRead | CFile::typeText)) return 0;
    pats << file;
  }
  CListCtrl list;
  for (int c = 0; c < 7; ++c) list.InsertColumn(c, L"");
  for (std::int32_t i = 0; i < pats.GetLength(); ++i) {
    KyPat &pat = pats.GetPData(i);
    pat.Scale(size % 2 ? 25.4 : 0.5);
    pat.Update(list);
    pats.Find(pat.FirstName());
  }
  {
    CStdioFile file;
    if (file.Open(wideOut.c_str(), CFile::modeCreate | CFile::modeWrite | CFile::typeBinary)) {
      pats >> file;
      file.Close();
    }
  }
  ::unlink(in.c_str());
  ::unlink(out.c_str());
  return 0;
}
