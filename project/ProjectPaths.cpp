#include "project/ProjectPaths.h"

namespace tolv::project {

bool FileNameOf(const CString &path, CString &name) {
  int slash = path.ReverseFind(L'\\');
  if (slash < 0) return false;
  name = path.Mid(slash + 1);
  return true;
}

bool FolderOf(const CString &path, CString &folder) {
  int slash = path.ReverseFind(L'\\');
  if (slash < 0) return false;
  folder = path.Left(slash + 1);
  return true;
}

CString RelativeDrawingName(const CString &folder, CString name) {
  if (name.IsEmpty()) return name;
  CString lowerName = name;
  lowerName.MakeLower();
  CString lowerFolder = folder;
  lowerFolder.MakeLower();
  if (lowerName.Left(lowerFolder.GetLength()) == lowerFolder) name = name.Mid(lowerFolder.GetLength());
  // Whatever the last four characters are, they go.
  int keep = name.GetLength() - 4;
  return name.Left(keep > 0 ? keep : 0);
}

CString FullDrawingName(const CString &folder, const CString &name) {
  if (name.IsEmpty()) return CString();
  if (name.Find(L':') >= 0) return name + L".dwg";
  return folder + name + L".dwg";
}

}  // namespace tolv::project
