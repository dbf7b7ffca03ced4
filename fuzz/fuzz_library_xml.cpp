// Feeds arbitrary bytes to the library readers through a file, read as a
// library (".DML") and as a library group (".DMLS"), then searched, copied,
// saved back and read again, and every name and data file parsed as a block
// name and a block path. Nothing may crash, hang or leak.
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <string>

#include "FuzzSeeds.h"
#include "library/KyDtLibrary.h"
#include "platform/windows/AtomicFile.h"
#include "platform/windows/TextCodec.h"

std::vector<std::string> FuzzTargetSeeds() {
  return {
      "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
      "<TolvDwgLib name=\"\xe9\x97\xa8\" nextfile=\"13\" readonly=\"FALSE\" mulitiview=\"TRUE\" note=\"x\">\n"
      "  <Directory name=\"Single\" name_en=\"Single swing\">\n"
      "    <Item name=\"M0921\" file=\"M0921.DWG\" width=\"900\" type=\"single swing\"/>\n"
      "    <Directory name=\"Nested\"><Item name=\"A$B$C\" file=\"X\\Y\\Z.DWG\"/></Directory>\n"
      "  </Directory>\n"
      "  <Item name=\"SM1521\" file=\"SM1521.DWG\" width=\"1500\"/>\n"
      "  <Other name=\"odd\"/>\n"
      "</TolvDwgLib>\n",
      "<TolvDwgLibGroup name=\"ARCH\" note=\"n\">\n"
      "  <TolvDwgLib>DOOR.DML</TolvDwgLib>\n"
      "  <Whatever>E:\\Other\\WINDOW.DML</Whatever>\n"
      "  <TolvDwgLib></TolvDwgLib>\n"
      "  <TolvDwgLib>\\</TolvDwgLib>\n"
      "</TolvDwgLibGroup>\n",
      "<TolvDwgLib><Directory><Directory><Directory><Item/></Directory></Directory></Directory></TolvDwgLib>",
  };
}

namespace {

void Exercise(KyDtLib &lib) {
  KyDynArray<KyDtLibItemBase *> found;
  lib.Find(L"name", L"*", found);
  lib.FindItem(L"width", L"900");
  lib.FindDirectory(L"name", L"*");
  KyDtAttributeList pairs;
  pairs.Add(L"type", L"*");
  pairs.Add(L"width", L"1500");
  lib.Find(pairs, found);
  lib.Find(L"M0921");
  for (std::int32_t i = 0; i < found.GetLength() && i < 64; ++i) {
    KyDtLibBlockDef def;
    def.SetFromBlockName(found.GetAt(i)->GetName());
    def.GetBlockName();
    if (auto *item = dynamic_cast<KyDtLibItem *>(found.GetAt(i))) {
      KyDtLibBlockDef path;
      path.SetFromDwgFile(item->GetDataFile());
      path.GetDwgFile();
    }
  }
  KyDtLibDirectory copy, shape;
  copy.CopyFrom(&lib);
  shape.CopyDirectoryFrom(lib);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
  // In memory where there is such a folder: every input is written and
  // saved several times, and each save waits for the disk.
  static const std::string path = std::string(::access("/dev/shm", W_OK) == 0 ? "/dev/shm" : "/tmp") +
                                  "/tolv-fuzz-lib-" + std::to_string(::getpid()) + ".xml";
  static const std::wstring wide = tolv::FromUtf8(path);
  const std::string_view bytes(reinterpret_cast<const char *>(data), size);
  if (!tolv::WriteFileAtomically(path, bytes)) return 0;
  {
    KyDtDwgLib lib;
    lib.SetFileName(wide.c_str());
    if (lib.ReadFromXML()) {
      Exercise(lib);
      if (lib.SaveToXML()) {
        KyDtDwgLib back;
        back.SetFileName(wide.c_str());
        back.ReadFromXML();
      }
    }
  }
  if (!tolv::WriteFileAtomically(path, bytes)) return 0;
  {
    KyDtDwgLibGroup group;
    group.SetFileName(wide.c_str());
    if (group.ReadFromXML()) {
      // The libraries it lists are not read: their names come from the input.
      group.SaveToXML();
      KyDtDwgLibGroup back;
      back.SetFileName(wide.c_str());
      back.ReadFromXML();
    }
  }
  ::unlink(path.c_str());
  return 0;
}
