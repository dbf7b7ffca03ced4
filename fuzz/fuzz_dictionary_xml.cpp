// Feeds arbitrary bytes to the dictionary's XML reader through a file, as
// the module reads its settings. Any input gives true or false; nothing may
// crash, hang or leak.
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>

#include "FuzzSeeds.h"
#include "dictionary/KyDtDict.h"
#include "platform/acad/AcutPrintf.h"
#include "platform/windows/AtomicFile.h"
#include "platform/windows/TextCodec.h"

std::vector<std::string> FuzzTargetSeeds() { return XmlSeeds(); }

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
  static const std::string path = "/tmp/tolv-fuzz-xml-" + std::to_string(::getpid()) + ".xml";
  static const std::wstring wide = tolv::FromUtf8(path);
  // Unresolved references print a line each; keep the output quiet.
  static const bool quiet = [] {
    tolv::SetCommandLineSink([](const std::wstring &) {});
    return true;
  }();
  (void)quiet;
  if (!tolv::WriteFileAtomically(path, std::string_view(reinterpret_cast<const char *>(data), size)))
    return 0;
  KyDtDictionary dict;
  dict.ReadFromXML(wide.c_str());
  ::unlink(path.c_str());
  return 0;
}
