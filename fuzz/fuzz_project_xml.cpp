// Feeds arbitrary bytes to the project file reader through a file, then
// asks the read project what the add-on's commands ask: its floor and
// drawing-set files, the floor check, a comparison with itself and a save.
// Any input gives true or false; nothing may crash, hang or leak.
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <string>

#include "FuzzSeeds.h"
#include "module/TolvDataBase.h"
#include "platform/mfc/AfxMessage.h"
#include "platform/windows/AtomicFile.h"
#include "platform/windows/TextCodec.h"

std::vector<std::string> FuzzTargetSeeds() {
  const std::string head = "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n";
  return {
      head + "<TolvProject name=\"P\" localname=\"项目\"><Directory name=\"FLOOR_TABLE\">"
             "<Floor name=\"B1.dwg\" number=\"-1\" height=\"3600\" ptbase=\"0,0,-3600\" extent=\"-6,-6,48,24\"/>"
             "<Floor name=\"1F.dwg\" number=\"1\" height=\"4500\" ptbase=\"0,0,0\"/>"
             "<Floor name=\"STD.dwg\" number=\"2 - 5\" height=\"3000\" ptbase=\"1,2\" extent=\"1,2,3\"/>"
             "<Floor name=\"std.DWG\" number=\"6~9\"/><Floor name=\"RF.dwg\" number=\"10-12\"/></Directory>"
             "<Directory name=\"DWG_SET\"><File name=\"Site.dwg\"/><Directory name=\"E\">"
             "<File name=\"E\\North.dwg\"/><Directory name=\"D\"><Floor name=\"x\"/></Directory></Directory>"
             "<Unknown name=\"u.dwg\" a=\"b\"><Child/></Unknown></Directory>"
             "<TolvDictionary name=\"S\"><Int name=\"N\">4</Int><String name=\"C\">c</String></TolvDictionary>"
             "<TolvProject name=\"inner\"><File name=\"D:\\abs\\a.dwg\"/></TolvProject></TolvProject>\n",
      head + "<TolvProject><Directory name=\"FLOOR_TABLE\"><Floor number=\"12,13\"/><Floor number=\"-2--1\"/>"
             "<Floor number=\"a\"/><Floor number=\"1e999\" height=\"nan\" ptbase=\",,,,,,\" extent=\",,,\"/>"
             "</Directory></TolvProject>\n",
      head + "<TolvProject><Directory name=\"DWG_SET\"><Directory><Directory><Directory><File name=\"f.dwg\"/>"
             "</Directory></Directory></Directory></Directory></TolvProject>\n",
  };
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
  static const std::string path = "/tmp/tolv-fuzz-project-" + std::to_string(::getpid()) + ".xml";
  static const std::wstring wide = tolv::FromUtf8(path);
  static const bool quiet = [] {
    tolv::SetMessageBoxSink([](const std::wstring &, unsigned) { return IDOK; });
    return true;
  }();
  (void)quiet;
  if (!tolv::WriteFileAtomically(path, std::string_view(reinterpret_cast<const char *>(data), size))) return 0;
  KyDtProject project;
  if (project.ReadFromXML(wide.c_str())) {
    KyDList<CString> floorFiles, setFiles;
    project.GetFloorFiles(floorFiles);
    project.GetDwgSetFiles(setFiles);
    project.IsConnectFloors(true);
    project.IsSameWith(&project);
    project.FindDict(L"S");
    if (project.SaveToXML(wide.c_str())) {
      KyDtProject again;
      again.ReadFromXML(wide.c_str());
      again.IsSameWith(&project);
    }
  }
  ::unlink(path.c_str());
  return 0;
}
