// Feeds arbitrary bytes to the project database reader through a file, then
// walks what was read as the add-on's commands do: every region's floors and
// sub-floors, every view with its direction and every drawing's sub-views,
// and saves it. Any input gives true or false; nothing may crash, hang or leak.
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <string>

#include "FuzzSeeds.h"
#include "module/TolvDataBase.h"
#include "platform/acad/AcutPrintf.h"
#include "platform/windows/AtomicFile.h"
#include "platform/windows/TextCodec.h"

std::vector<std::string> FuzzTargetSeeds() {
  const std::string head = "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n";
  return {
      head + "<TolvDictionary><Directory name=\"MODELS\"><Reference name=\"CS_FILE\">FILES\\S</Reference>"
             "<Region name=\"0\"><Point name=\"BASE\"><Double name=\"X\">1</Double></Point>"
             "<String name=\"REGION_OUTLINE_ENT\">2A</String><Directory name=\"FLOORS\"><Floor name=\"1F\">"
             "<Double name=\"FLOOR_HEIGHT\">3300</Double><Directory name=\"FLOOR_MODEL\">"
             "<Reference name=\"FLOOR_VIEW\">VIEWS\\P</Reference></Directory><Directory name=\"SUB_FLOORS\">"
             "<SubFloor name=\"M\"/></Directory></Floor></Directory></Region></Directory>"
             "<Directory name=\"VIEWS\"><Directory name=\"GROUP\"/><View name=\"P\">"
             "<Reference name=\"DRAWING\">DRAWINGS\\A</Reference><Double name=\"PRINT_SCALE\">50</Double>"
             "<Directory name=\"VIEW_DIRECTION\"><Vector name=\"VIEW_VECTOR\"><Double name=\"Z\">-1</Double>"
             "</Vector></Directory></View></Directory><Directory name=\"DRAWINGS\"><Drawing name=\"A\">"
             "<Directory name=\"SUB_VIEWS\"><Reference name=\"\">VIEWS\\P</Reference><Int>3</Int></Directory>"
             "</Drawing></Directory><Directory name=\"FILES\"><File name=\"S\"/></Directory>"
             "<Directory name=\"SETTINGS\"/></TolvDictionary>\n",
      head + "<TolvDictionary><Int name=\"MODELS\">1</Int></TolvDictionary>\n",
  };
}

namespace {

void WalkFloor(KyDtPrjFloor &floor, int depth) {
  floor.GetHeight();
  if (depth > 64) return;
  KyPDList<KyDtPrjFloor> subFloors;
  floor.GetAllSubFloor(subFloors);
  for (std::int32_t i = 0; i < subFloors.GetLength(); ++i) WalkFloor(*subFloors.GetAt(i), depth + 1);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
  static const std::string path = "/tmp/tolv-fuzz-projectdb-" + std::to_string(::getpid()) + ".orpx";
  static const std::wstring wide = tolv::FromUtf8(path);
  static const bool quiet = [] {
    tolv::SetCommandLineSink([](const std::wstring &) {});
    return true;
  }();
  (void)quiet;
  if (!tolv::WriteFileAtomically(path, std::string_view(reinterpret_cast<const char *>(data), size))) return 0;
  KyDtProjectDb db;
  if (db.ReadFromXML(wide.c_str())) {
    KyPDList<KyDtProjectRegion> regions;
    db.Models().GetAllRegion(regions);
    for (std::int32_t i = 0; i < regions.GetLength(); ++i) {
      regions.GetAt(i)->GetBasePoint();
      regions.GetAt(i)->GetRegionOutlineHandle();
      KyPDList<KyDtPrjFloor> floors;
      regions.GetAt(i)->GetAllFloor(floors);
      for (std::int32_t j = 0; j < floors.GetLength(); ++j) WalkFloor(*floors.GetAt(j), 0);
    }
    KyPDList<KyDtProjectView> views;
    db.Views().GetAllView(views);
    for (std::int32_t i = 0; i < views.GetLength(); ++i) {
      AcGeVector3d view, up;
      views.GetAt(i)->GetViewDirection(view, up);
      views.GetAt(i)->GetPrintScale();
      views.GetAt(i)->GetBasePoint();
    }
    KyPDList<KyDtProjectDrawing> drawings;
    db.Drawings().GetAllDrawing(drawings);
    for (std::int32_t i = 0; i < drawings.GetLength(); ++i) {
      KyDList<KyDtDictReferenceItem *> subViews;
      drawings.GetAt(i)->GetAllSubViewRef(subViews);
      if (drawings.GetAt(i)->Dict()->FindDict(L"SUB_VIEWS")) {
        std::int32_t count = drawings.GetAt(i)->GetSubViewRefNum();
        if (count > 0) drawings.GetAt(i)->GetViewRef(count - 1);
      }
    }
    db.Save();
  }
  ::unlink(path.c_str());
  return 0;
}
