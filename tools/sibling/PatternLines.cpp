// PATTERN FILE NAME [X,Y] [SIZE]: draws a hatch pattern over a square into
// the document's drawing, as lines (and small circles for its dots), so the
// pattern can be looked at in the saved drawing.
#include <cstdlib>
#include <string>
#include <vector>

#include "SiblingRegistry.h"
#include "TolvDataBase.h"
#include "patterns/PatternDrawing.h"
#include "platform/acad/AcDbBlockTableRecord.h"
#include "platform/acad/AcDbCircle.h"
#include "platform/acad/AcDbDatabase.h"
#include "platform/acad/AcDbLine.h"
#include "platform/acad/AcutPrintf.h"
#include "platform/mfc/CFileException.h"
#include "platform/utility/SupportFiles.h"
#include "platform/windows/TextCodec.h"

using namespace tolv::sibling::patterns;

namespace {

// The most pieces one line may add to a drawing.
constexpr std::size_t kMostPieces = 20000;

bool ParseDouble(const std::string &text, double &value) {
  char *end = nullptr;
  value = std::strtod(text.c_str(), &end);
  return !text.empty() && *end == '\0';
}

bool Append(AcDbBlockTableRecord *space, AcDbEntity *entity, Adesk::UInt16 color) {
  entity->setColorIndex(color);
  if (space->appendAcDbEntity(entity) != Acad::eOk) {
    delete entity;
    return false;
  }
  entity->close();
  return true;
}

bool PatternLine(const std::vector<std::string> &args) {
  if (args.size() < 2 || args.size() > 4) {
    acutPrintf(L"\nPATTERN needs a pattern file and a pattern name, e.g. PATTERN tolv.pat TOLV_BRICK 0,0 1300");
    return false;
  }
  const std::wstring fileName = tolv::FromUtf8(args[0]), name = tolv::FromUtf8(args[1]);
  double x = 0, y = 0, size = 0;
  if (args.size() >= 3) {
    std::vector<std::string> at = tolv::sibling::SplitList(args[2]);
    if (at.size() != 2 || !ParseDouble(at[0], x) || !ParseDouble(at[1], y)) {
      acutPrintf(L"\nPATTERN: the corner is X,Y, not %ls", tolv::FromUtf8(args[2]).c_str());
      return false;
    }
  }
  if (args.size() == 4 && (!ParseDouble(args[3], size) || !(size > 0))) {
    acutPrintf(L"\nPATTERN: the size must be a positive number, not %ls", tolv::FromUtf8(args[3]).c_str());
    return false;
  }
  CString path;
  if (!FindFile(fileName.c_str(), path)) {
    acutPrintf(L"\nPATTERN: %ls not found in the support folders", fileName.c_str());
    return false;
  }
  KyPats pats;
  CStdioFile file;
  if (!file.Open(path, CFile::modeRead | CFile::typeText)) {
    acutPrintf(L"\nPATTERN: %ls cannot be read", static_cast<const wchar_t *>(path));
    return false;
  }
  try {
    pats << file;
  } catch (const CFileException &) {
    acutPrintf(L"\nPATTERN: %ls cannot be read", static_cast<const wchar_t *>(path));
    return false;
  }
  std::int32_t at = pats.Find(CString(name));
  if (at < 0) {
    acutPrintf(L"\nPATTERN: %ls has no pattern %ls", static_cast<const wchar_t *>(path), name.c_str());
    return false;
  }
  std::vector<Family> families = ReadFamilies(pats.GetPData(at));
  if (size <= 0) size = NaturalExtent(families);
  Drawing drawing = Draw(families, size, kMostPieces);

  AcDbDatabase *db = tolv::sibling::WorkingDatabase();
  AcDbBlockTableRecord *space = nullptr;
  if (!db || acdbOpenObject(space, db->modelSpaceId(), AcDb::kForWrite) != Acad::eOk) {
    acutPrintf(L"\nPATTERN: the drawing's model space cannot be opened");
    return false;
  }
  const AcGePoint3d corners[4] = {{x, y, 0}, {x + size, y, 0}, {x + size, y + size, 0}, {x, y + size, 0}};
  for (int k = 0; k < 4; ++k) Append(space, new AcDbLine(corners[k], corners[(k + 1) % 4]), 8);
  std::size_t drawn = 0;
  for (const Segment &s : drawing.segments)
    drawn += Append(space, new AcDbLine(AcGePoint3d(x + s.x1, y + s.y1, 0), AcGePoint3d(x + s.x2, y + s.y2, 0)), 256);
  for (const Dot &d : drawing.dots)
    drawn += Append(space, new AcDbCircle(AcGePoint3d(x + d.x, y + d.y, 0), size / 400), 256);
  space->close();
  acutPrintf(L"\n%ls: %d line families, %d pieces drawn over a square of %g at %g,%g%ls", name.c_str(),
             static_cast<int>(families.size()), static_cast<int>(drawn), size, x, y,
             drawing.truncated ? L" (spacing too fine: stopped early)" : L"");
  return true;
}

const tolv::sibling::HostLine kPattern(
    "PATTERN",
    "  PATTERN FILE NAME [X,Y] [SIZE]\n"
    "                 draw the hatch pattern NAME of FILE (found in the support\n"
    "                 folders) over a square of side SIZE at X,Y in the drawing\n",
    &PatternLine);

}  // namespace
