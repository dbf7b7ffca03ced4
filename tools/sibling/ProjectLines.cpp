// Host script lines of the project, as a sibling module uses it:
//   PROJECT FILE        reads the project file into g_curProject and checks its floors
//   FLOORPLAN [DRAWING] draws the outlines of the floors into the drawing
//   PROJECTDB FILE      reads the project database into g_curProjectDb
#include <sstream>

#include "SiblingRegistry.h"
#include "TolvDataBase.h"
#include "platform/acad/AcDbBlockTableRecord.h"
#include "platform/acad/AcDbDatabase.h"
#include "platform/acad/AcDbLine.h"
#include "platform/acad/AcDbSymbolTables.h"
#include "platform/acad/AcutPrintf.h"
#include "platform/windows/TextCodec.h"
#include "project/ProjectReport.h"

namespace {

using tolv::project_tool::SystemPathOf;

bool ProjectLine(const std::vector<std::string> &args) {
  if (args.size() != 1) {
    acutPrintf(L"\nPROJECT needs the project file");
    return false;
  }
  const std::wstring path = SystemPathOf(args[0]);
  if (!g_curProject.ReadFromXML(path.c_str())) {
    acutPrintf(L"\n%ls: not a project file that can be read", path.c_str());
    return false;
  }
  KyDList<KyDtProjectFloor *> floors;
  g_curProject.GetFloorTable(floors);
  KyDList<CString> floorFiles, setFiles;
  g_curProject.GetFloorFiles(floorFiles);
  g_curProject.GetDwgSetFiles(setFiles);
  CString name;
  g_curProject.GetProjectName(name);
  acutPrintf(L"\nProject %ls: %d floor rows, %d floor drawings, %d drawings in the set",
             static_cast<const wchar_t *>(name), static_cast<int>(floors.GetLength()),
             static_cast<int>(floorFiles.GetLength()), static_cast<int>(setFiles.GetLength()));
  // A failed check shows its message box, as the add-on's commands do.
  bool connected = g_curProject.IsConnectFloors(true);
  acutPrintf(L"\nFloor check: %ls", connected ? L"the floors connect" : L"failed");
  return true;
}

// Four lines around the extent, at the floor's base point and level.
int DrawOutline(AcDbBlockTableRecord *space, const KyDtProjectFloor &floor) {
  const KyGeExtent &x = floor.m_extent.GetXExtend();
  const KyGeExtent &y = floor.m_extent.GetYExtend();
  const double bx = floor.m_dBaseX, by = floor.m_dBaseY, z = floor.m_dBaseZ;
  const AcGePoint3d corners[4] = {{bx + x.min, by + y.min, z},
                                  {bx + x.max, by + y.min, z},
                                  {bx + x.max, by + y.max, z},
                                  {bx + x.min, by + y.max, z}};
  int drawn = 0;
  for (int i = 0; i < 4; ++i) {
    auto *line = new AcDbLine(corners[i], corners[(i + 1) % 4]);
    if (space->appendAcDbEntity(line) != Acad::eOk) {
      delete line;
      continue;
    }
    line->close();
    ++drawn;
  }
  return drawn;
}

bool FloorPlanLine(const std::vector<std::string> &args) {
  if (args.size() > 1) {
    acutPrintf(L"\nFLOORPLAN takes at most one drawing name");
    return false;
  }
  if (g_curProject.IsEmptyProject()) {
    acutPrintf(L"\nFLOORPLAN: no project is read (PROJECT FILE first)");
    return false;
  }
  const CString only = args.empty() ? CString() : CString(tolv::FromUtf8(args[0]));
  AcDbDatabase *db = tolv::sibling::WorkingDatabase();
  AcDbBlockTable *table = nullptr;
  if (db->getBlockTable(table, AcDb::kForRead) != Acad::eOk) return false;
  AcDbBlockTableRecord *space = nullptr;
  Acad::ErrorStatus status = table->getAt(L"*Model_Space", space, AcDb::kForWrite);
  table->close();
  if (status != Acad::eOk) return false;
  KyDList<KyDtProjectFloor *> floors;
  g_curProject.GetFloorTable(floors);
  int outlines = 0;
  for (KyDtProjectFloor *const *p = floors.GetFirst(); p; p = floors.GetNext(p)) {
    if (!(*p)->m_bHasExtent) continue;
    if (!only.IsEmpty() && (*p)->m_strName.CompareNoCase(only) != 0) continue;
    if (DrawOutline(space, **p) == 4) ++outlines;
  }
  space->close();
  acutPrintf(L"\nFLOORPLAN: %d floor outlines drawn", outlines);
  return outlines > 0;
}

bool ProjectDbLine(const std::vector<std::string> &args) {
  if (args.size() != 1) {
    acutPrintf(L"\nPROJECTDB needs the project database file");
    return false;
  }
  const std::wstring path = SystemPathOf(args[0]);
  if (!g_curProjectDb.ReadFromXML(path.c_str())) {
    acutPrintf(L"\n%ls: not a project database that can be read", path.c_str());
    return false;
  }
  KyPDList<KyDtProjectRegion> regions;
  g_curProjectDb.Models().GetAllRegion(regions);
  int floors = 0;
  for (std::int32_t i = 0; i < regions.GetLength(); ++i) {
    KyPDList<KyDtPrjFloor> list;
    regions.GetAt(i)->GetAllFloor(list);
    floors += list.GetLength();
  }
  KyPDList<KyDtProjectView> views;
  g_curProjectDb.Views().GetAllView(views);
  KyPDList<KyDtProjectDrawing> drawings;
  g_curProjectDb.Drawings().GetAllDrawing(drawings);
  acutPrintf(L"\nProject database: %d regions, %d floors, %d views, %d drawings",
             static_cast<int>(regions.GetLength()), floors, static_cast<int>(views.GetLength()),
             static_cast<int>(drawings.GetLength()));
  return true;
}

const tolv::sibling::HostLine kProject(
    "PROJECT",
    "  PROJECT FILE        read the project file as the current project; its floors,\n"
    "                      files and the floor check (a failure shows its message box)\n",
    &ProjectLine);
const tolv::sibling::HostLine kFloorPlan(
    "FLOORPLAN",
    "  FLOORPLAN [DWG]     draw the outline of each floor of the current project (or of\n"
    "                      the floors whose drawing is DWG) at its base point and level\n",
    &FloorPlanLine);
const tolv::sibling::HostLine kProjectDb(
    "PROJECTDB",
    "  PROJECTDB FILE      read the project database as the current one and count its parts\n",
    &ProjectDbLine);

}  // namespace
