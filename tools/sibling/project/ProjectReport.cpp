#include "project/ProjectReport.h"

#include <filesystem>
#include <sstream>

#include "TolvDataBase.h"
#include "platform/mfc/AfxMessage.h"
#include "platform/utility/KyUtXMLDOMFile.h"
#include "platform/windows/PathMap.h"
#include "platform/windows/TextCodec.h"

namespace tolv::project_tool {

namespace {

std::string U8(const CString &text) { return ToUtf8(text.view()); }

std::string Number(double value) {
  CString text;
  text.Format(L"%lg", value);
  return U8(text);
}

// A drawing is there when its file is, or (as the host reads drawings) the
// DXF file of the same name.
bool DrawingExists(const CString &systemPath) {
  std::error_code error;
  std::filesystem::path path(MapPath(systemPath.view()));
  if (std::filesystem::exists(path, error)) return true;
  std::filesystem::path dxf = path;
  dxf.replace_extension(".dxf");
  return std::filesystem::exists(dxf, error);
}

int ListFiles(KyDList<CString> &files, std::ostream &out) {
  int missing = 0;
  for (const CString *p = files.GetFirst(); p; p = files.GetNext(p)) {
    bool there = DrawingExists(*p);
    if (!there) ++missing;
    out << "  " << MapPath(p->view()) << (there ? "" : "   [missing]") << "\n";
  }
  return missing;
}

std::string Label(const KyDtDictItem *item) {
  std::string text = U8(item->m_strName);
  if (!item->m_strLocalName.IsEmpty()) text += " (" + U8(item->m_strLocalName) + ")";
  return text;
}

// Where a reference leads: the name of the item it found when the database
// was read, or its path marked as dangling.
std::string Target(const KyDtDictItem *item, int &dangling) {
  if (!item) return "(none)";
  if (item->GetType() != KyDtDictItem::DT_REFERENCE) return "(not a reference)";
  auto *reference = static_cast<const KyDtDictReferenceItem *>(item);
  if (reference->m_value.IsEmpty()) return "(unset)";
  if (KyDtDictItem *target = reference->GetItemRef()) {
    if (target == item) {
      ++dangling;
      return U8(reference->m_value) + "  [points at itself]";
    }
    return U8(target->m_strName);
  }
  ++dangling;
  return U8(reference->m_value) + "  [dangling]";
}

std::string Xyz(double x, double y, double z) { return Number(x) + "," + Number(y) + "," + Number(z); }

void ReportFloor(KyDtPrjFloor &floor, int depth, std::ostream &out, int &dangling) {
  std::string indent(static_cast<std::size_t>(depth) * 2, ' ');
  out << indent << (floor->IsClassOf(L"SubFloor") ? "sub-floor " : "floor ") << Label(floor.Dict())
      << "  height " << Number(floor.GetHeight())
      << "  view -> " << Target(floor->FindItem(L"FLOOR_MODEL\\FLOOR_VIEW"), dangling) << "\n";
  KyPDList<KyDtPrjFloor> subFloors;
  floor.GetAllSubFloor(subFloors);
  for (std::int32_t i = 0; i < subFloors.GetLength(); ++i) ReportFloor(*subFloors.GetAt(i), depth + 1, out, dangling);
}

}  // namespace

std::wstring SystemPathOf(const std::string &typed) {
  std::error_code error;
  std::filesystem::path absolute = std::filesystem::absolute(typed, error);
  return ToSystemPath(error ? typed : absolute.lexically_normal().string());
}

std::string WhyUnreadable(const std::string &posixPath, const wchar_t *root) {
  std::error_code error;
  if (!std::filesystem::is_regular_file(posixPath, error)) return "no such file";
  KyUtXMLDOMFile document;
  std::wstring path = SystemPathOf(posixPath);
  if (!document.Open(path.c_str())) return "not a well-formed XML document";
  _auto_ptr<KyUtXMLDOMNode> element = document.GetRoot();
  std::string name = element ? ToUtf8(element->GetNodeName()) : std::string();
  if (name != ToUtf8(root)) return "the root element is <" + name + ">, not <" + ToUtf8(root) + ">";
  return "can't be read";
}

bool ReportProject(KyDtProject &project, std::ostream &out, std::wstring &checkMessage) {
  out << "Project " << U8(project.m_strName);
  if (!project.m_strLocalName.IsEmpty()) out << " (" << U8(project.m_strLocalName) << ")";
  out << "\n  file " << MapPath(project.GetFileFullName().view()) << "\n\n";

  KyDList<KyDtProjectFloor *> floors;
  project.GetFloorTable(floors);
  if (!project.GetFloorTable()) {
    out << "No floor table (FLOOR_TABLE).\n";
  } else {
    out << "Floor table, " << floors.GetLength() << " rows from the lowest floor up:\n";
    out << "  number    height    base point            extent (x, y to x, y)        drawing\n";
    for (KyDtProjectFloor *const *p = floors.GetFirst(); p; p = floors.GetNext(p)) {
      const KyDtProjectFloor &f = **p;
      std::ostringstream row;
      std::string number = f.m_strNumber.IsEmpty() ? "-" : U8(f.m_strNumber);
      std::string extent = f.m_bHasExtent ? Number(f.m_extent.GetXExtend().min) + "," +
                                                Number(f.m_extent.GetYExtend().min) + " to " +
                                                Number(f.m_extent.GetXExtend().max) + "," +
                                                Number(f.m_extent.GetYExtend().max)
                                          : "(none)";
      auto pad = [](std::string text, std::size_t width) {
        if (text.size() < width) text.append(width - text.size(), ' ');
        return text + " ";
      };
      out << "  " << pad(number, 9) << pad(Number(f.m_dHeight), 9) << pad(Xyz(f.m_dBaseX, f.m_dBaseY, f.m_dBaseZ), 21)
          << pad(extent, 28) << U8(f.m_strName);
      if (!f.m_strLocalName.IsEmpty()) out << " (" << U8(f.m_strLocalName) << ")";
      out << "\n";
    }
  }

  KyDList<CString> floorFiles;
  if (project.GetFloorFiles(floorFiles)) {
    out << "\nFloor files, " << floorFiles.GetLength() << ", each once:\n";
    int missing = ListFiles(floorFiles, out);
    if (missing) out << "  " << missing << " missing on disk\n";
  }
  KyDList<CString> setFiles;
  if (project.GetDwgSetFiles(setFiles)) {
    out << "\nDrawing-set files (DWG_SET), " << setFiles.GetLength() << ":\n";
    int missing = ListFiles(setFiles, out);
    if (missing) out << "  " << missing << " missing on disk\n";
  } else {
    out << "\nNo drawing set (DWG_SET).\n";
  }

  checkMessage.clear();
  MessageBoxSink old = SetMessageBoxSink([&checkMessage](const std::wstring &text, unsigned) {
    checkMessage = text;
    return IDOK;
  });
  bool connected = project.IsConnectFloors(true);
  SetMessageBoxSink(old);
  out << "\nFloor check: " << (connected ? "the floors connect" : "\"" + ToUtf8(checkMessage) + "\"") << "\n";
  return connected;
}

int ReportProjectDb(KyDtProjectDb &db, std::ostream &out) {
  int dangling = 0;
  out << "Project database " << MapPath(db.GetProjectFile().view()) << "\n";
  out << "  coordinate file -> " << Target(db.Models()->FindItem(L"CS_FILE"), dangling) << "\n";

  KyPDList<KyDtProjectRegion> regions;
  db.Models().GetAllRegion(regions);
  out << "\nRegions, " << regions.GetLength() << ":\n";
  for (std::int32_t i = 0; i < regions.GetLength(); ++i) {
    KyDtProjectRegion &region = *regions.GetAt(i);
    AcGePoint3d base = region.GetBasePoint();
    out << "  region " << Label(region.Dict()) << "  base " << Xyz(base.x, base.y, base.z);
    CString outline = region.GetRegionOutlineHandle();
    if (!outline.IsEmpty()) out << "  outline " << U8(outline);
    out << "\n";
    KyPDList<KyDtPrjFloor> floors;
    region.GetAllFloor(floors);
    for (std::int32_t j = 0; j < floors.GetLength(); ++j) ReportFloor(*floors.GetAt(j), 2, out, dangling);
  }

  KyPDList<KyDtProjectView> views;
  db.Views().GetAllView(views);
  out << "\nViews, " << views.GetLength() << ":\n";
  for (std::int32_t i = 0; i < views.GetLength(); ++i) {
    KyDtProjectView &view = *views.GetAt(i);
    AcGeVector3d direction, up;
    view.GetViewDirection(direction, up);
    CString type = view.GetViewType();
    out << "  view " << Label(view.Dict()) << "  scale 1:" << Number(view.GetPrintScale()) << "  type "
        << (type.IsEmpty() ? "-" : U8(type)) << "  direction " << Xyz(direction.x, direction.y, direction.z)
        << "  up " << Xyz(up.x, up.y, up.z) << "\n"
        << "      file -> " << Target(view->FindItem(L"FILE"), dangling)
        << "  drawing -> " << Target(view->FindItem(L"DRAWING"), dangling) << "\n";
  }

  KyPDList<KyDtProjectDrawing> drawings;
  db.Drawings().GetAllDrawing(drawings);
  out << "\nDrawings, " << drawings.GetLength() << ":\n";
  for (std::int32_t i = 0; i < drawings.GetLength(); ++i) {
    KyDtProjectDrawing &drawing = *drawings.GetAt(i);
    out << "  drawing " << Label(drawing.Dict()) << "  file -> " << Target(drawing->FindItem(L"FILE"), dangling);
    CString frame = drawing.GetDrawingFrameHandle();
    if (!frame.IsEmpty()) out << "  frame " << U8(frame);
    out << "\n";
    KyDList<KyDtDictReferenceItem *> subViews;
    drawing.GetAllSubViewRef(subViews);
    int index = 0;
    for (KyDtDictReferenceItem *const *p = subViews.GetFirst(); p; p = subViews.GetNext(p)) {
      out << "      sub-view " << index++ << " -> " << Target(*p, dangling) << "\n";
    }
  }

  KyPDList<KyDtPrjFile> files;
  db.Files().GetAllFile(files);
  out << "\nFiles, " << files.GetLength() << ":";
  for (std::int32_t i = 0; i < files.GetLength(); ++i) out << (i ? ", " : " ") << U8(files.GetAt(i)->Dict()->m_strName);
  out << "\nSettings, " << db.Settings()->GetLength() << " items\n";
  out << "\nReferences pointing nowhere: " << dangling << "\n";
  return dangling;
}

}  // namespace tolv::project_tool
