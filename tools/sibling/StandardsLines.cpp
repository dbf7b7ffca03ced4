// Host script lines of the drawing standards: layers, styles, materials and
// labelled openings made in the document's drawing, as a drawing module
// of the add-on makes them.
#include <cstdlib>
#include <string>
#include <vector>

#include "SiblingRegistry.h"
#include "TolvDataBase.h"
#include "platform/acad/AcDbBlockTableRecord.h"
#include "platform/acad/AcDbDatabase.h"
#include "platform/acad/AcDbDimStyleTableRecord.h"
#include "platform/acad/AcDbLayerTableRecord.h"
#include "platform/acad/AcDbLinetypeTableRecord.h"
#include "platform/acad/AcDbTextStyleTableRecord.h"
#include "platform/acad/AcutPrintf.h"
#include "platform/dbobject/KyDbDrawUnit.h"
#include "platform/dbobject/KyDbMaterial.h"
#include "platform/windows/TextCodec.h"

namespace {

CString Wide(const std::string &utf8) { return CString(tolv::FromUtf8(utf8).c_str()); }

bool Number(const std::string &text, double &value) {
  char *end = nullptr;
  value = std::strtod(text.c_str(), &end);
  return end != text.c_str() && *end == '\0';
}

std::wstring RecordName(AcDbObjectId id) {
  AcDbSymbolTableRecord *rec = nullptr;
  if (acdbOpenObject(rec, id, AcDb::kForRead) != Acad::eOk) return L"";
  const ACHAR *name = nullptr;
  rec->getName(name);
  std::wstring out = name ? name : L"";
  rec->close();
  return out;
}

void PrintLayer(const wchar_t *what, AcDbObjectId id) {
  AcDbLayerTableRecord *layer = nullptr;
  if (acdbOpenObject(layer, id, AcDb::kForRead) != Acad::eOk) return;
  const ACHAR *name = nullptr;
  layer->getName(name);
  const std::wstring layerName = name ? name : L"";
  const int color = layer->color().colorIndex();
  const AcDbObjectId linetype = layer->linetypeObjectId();
  const int weight = static_cast<int>(layer->lineWeight());
  layer->close();
  acutPrintf(L"\n%ls: layer \"%ls\", colour %d, line type %ls, line weight %d", what, layerName.c_str(), color,
             RecordName(linetype).c_str(), weight);
}

bool LayerLine(const std::vector<std::string> &args) {
  if (args.size() != 1) {
    acutPrintf(L"\nLAYER needs one key, e.g. LAYER WALL-CONC");
    return false;
  }
  const CString key = Wide(args[0]);
  const AcDbObjectId id = KyDtInitLayer(key, tolv::sibling::WorkingDatabase());
  if (id.isNull()) {
    acutPrintf(L"\nLAYER %ls: the key does not resolve in the current standard", key.GetString());
    return false;
  }
  PrintLayer(CString(L"LAYER ") + key, id);
  return true;
}

bool LayerNameLine(const std::vector<std::string> &args) {
  if (args.size() != 1) {
    acutPrintf(L"\nLAYERNAME needs keys, e.g. LAYERNAME DOOR*-NUM,WALL");
    return false;
  }
  const CString keys = Wide(args[0]);
  acutPrintf(L"\nLAYERNAME %ls: \"%ls\"", keys.GetString(), KyDtGetLayerNameEx(keys).GetString());
  return true;
}

bool TextStyleLine(const std::vector<std::string> &args) {
  if (args.size() != 1) {
    acutPrintf(L"\nTEXTSTYLE needs one key, e.g. TEXTSTYLE DIM");
    return false;
  }
  const CString key = Wide(args[0]);
  const AcDbObjectId id = KyDtInitTextStyle(key, tolv::sibling::WorkingDatabase());
  if (id.isNull()) {
    acutPrintf(L"\nTEXTSTYLE %ls: no such text style", key.GetString());
    return false;
  }
  AcDbTextStyleTableRecord *rec = nullptr;
  if (acdbOpenObject(rec, id, AcDb::kForRead) != Acad::eOk) return false;
  const ACHAR *name = nullptr;
  const ACHAR *font = nullptr;
  const ACHAR *bigFont = nullptr;
  rec->getName(name);
  rec->fileName(font);
  rec->bigFontFileName(bigFont);
  acutPrintf(L"\nTEXTSTYLE %ls: style \"%ls\", font %ls, big font %ls, width %g, height %g",
             key.GetString(), name, font, bigFont, rec->xScale(), KyDtGetDefaultTextHeight(key));
  rec->close();
  acutPrintf(L" (colour kept in _MRV: %d)", GetTextStyleColor(id));
  return true;
}

bool PrintDimStyle(const CString &what, AcDbObjectId id) {
  AcDbDimStyleTableRecord *rec = nullptr;
  if (id.isNull() || acdbOpenObject(rec, id, AcDb::kForRead) != Acad::eOk) {
    acutPrintf(L"\n%ls: no such dimension style", what.GetString());
    return false;
  }
  const ACHAR *name = nullptr;
  rec->getName(name);
  acutPrintf(L"\n%ls: style \"%ls\", DIMLFAC %g, DIMDEC %d, DIMTAD %d, DIMPOST \"%ls\", DIMCLRT %d, arrow \"%ls\"",
             what.GetString(), name, rec->dimlfac(), rec->dimdec(), rec->dimtad(), rec->dimpost(),
             static_cast<int>(rec->dimclrt().colorIndex()), rec->dimblkName());
  rec->close();
  return true;
}

bool DimStyleLine(const std::vector<std::string> &args) {
  double scale = 0.0;
  if (args.size() != 2 || !Number(args[1], scale)) {
    acutPrintf(L"\nDIMSTYLE needs a key and a scale, e.g. DIMSTYLE LINEAR 100");
    return false;
  }
  const CString key = Wide(args[0]);
  return PrintDimStyle(CString(L"DIMSTYLE ") + key, KyDtInitDimStyle(key, scale, tolv::sibling::WorkingDatabase()));
}

bool ScaleOnly(const wchar_t *word, const std::vector<std::string> &args, double &scale) {
  if (args.size() != 1 || !Number(args[0], scale)) {
    acutPrintf(L"\n%ls needs a scale, e.g. %ls 100", word, word);
    return false;
  }
  return true;
}

bool LinearDimLine(const std::vector<std::string> &args) {
  double scale = 0.0;
  if (!ScaleOnly(L"LINEARDIM", args, scale)) return false;
  return PrintDimStyle(L"LINEARDIM", KyDtInitLinearDimStyle(scale, tolv::sibling::WorkingDatabase()));
}

bool ArcDimLine(const std::vector<std::string> &args) {
  double scale = 0.0;
  if (!ScaleOnly(L"ARCDIM", args, scale)) return false;
  return PrintDimStyle(L"ARCDIM", KyDtInitArcDimStyle(scale, tolv::sibling::WorkingDatabase()));
}

bool AngleDimLine(const std::vector<std::string> &args) {
  if (!args.empty()) {
    acutPrintf(L"\nANGLEDIM takes nothing");
    return false;
  }
  return PrintDimStyle(L"ANGLEDIM", KyDtInitAngleDimStyle(tolv::sibling::WorkingDatabase()));
}

bool DimUnitLine(const std::vector<std::string> &args) {
  if (args.size() != 1 || (args[0] != "0" && args[0] != "1")) {
    acutPrintf(L"\nDIMUNIT needs 0 (millimetres) or 1 (metres)");
    return false;
  }
  const unsigned char unit = args[0] == "1" ? 1 : 0;
  if (!KyDbSetDimUnit(unit, tolv::sibling::WorkingDatabase())) return false;
  acutPrintf(L"\nDIMUNIT: dimensions of this drawing in %ls, the drawing in %ls", unit ? L"metres" : L"millimetres",
             KyDbGetDrawUnit(tolv::sibling::WorkingDatabase()) ? L"metres" : L"millimetres");
  return true;
}

bool MaterialLine(const std::vector<std::string> &args) {
  if (args.size() != 1) {
    acutPrintf(L"\nMATERIAL needs a name, e.g. MATERIAL 砖");
    return false;
  }
  const CString name = Wide(args[0]);
  const AcDbObjectId id = KyDtInitMaterial(name, tolv::sibling::WorkingDatabase());
  KyDbMaterial *material = nullptr;
  if (id.isNull() || acdbOpenObject(material, id, AcDb::kForRead) != Acad::eOk) {
    acutPrintf(L"\nMATERIAL %ls: could not be made", name.GetString());
    return false;
  }
  acutPrintf(L"\nMATERIAL %ls: hatch %ls at scale %g, colour %d, priority %d", name.GetString(),
             material->GetPatternName(), material->GetPatternScale(), material->GetColorIndex(),
             material->GetPriority());
  material->close();
  return true;
}

// Puts a new opening into model space on its layer, labels it against the
// openings already there, and prints the label.
bool PlaceOpening(const wchar_t *word, KyDbEntity *entity) {
  AcDbDatabase *db = tolv::sibling::WorkingDatabase();
  KyAdsEntSet others;
  others.AddBlock(db->modelSpaceId());
  AcDbBlockTableRecord *ms = nullptr;
  if (acdbOpenObject(ms, db->modelSpaceId(), AcDb::kForWrite) != Acad::eOk) {
    delete entity;
    return false;
  }
  // Each new opening stands a little further along, so the drawing shows
  // them side by side.
  const AcGePoint3d at(3000.0 * others.GetLength(), 0.0, 0.0);
  if (auto *base = KyDbOpeningBase::cast(entity)) base->SetPosition(at);
  if (auto *dormer = KyDbDormer::cast(entity)) dormer->SetPosition(at);
  AcDbObjectId id;
  if (ms->appendAcDbEntity(id, entity) != Acad::eOk) {
    ms->close();
    delete entity;
    return false;
  }
  ms->close();
  const AcDbObjectId layer = KyDtInitLayer(entity->GetLayerKey(), db);
  if (!layer.isNull()) entity->setLayer(layer);
  const CString label = KyDtGetAutoLabel(entity, others);
  if (auto *base = KyDbOpeningBase::cast(entity)) base->SetLabel(label);
  if (auto *dormer = KyDbDormer::cast(entity)) dormer->SetLabel(label);
  entity->close();
  acutPrintf(L"\n%ls: label \"%ls\" (among %d entities of model space), layer %ls", word, label.GetString(),
             static_cast<int>(others.GetLength()), RecordName(layer).c_str());
  return true;
}

bool OpeningLine(const std::vector<std::string> &args) {
  double kind = 0, width = 0, height = 0;
  if (args.size() < 3 || args.size() > 4 || !Number(args[0], kind) || !Number(args[1], width) ||
      !Number(args[2], height) || width < 0 || height < 0) {
    acutPrintf(L"\nOPENING needs a kind (0 door, 1 window, 2 hole, 3 high window, 4 bay window, 5 band window,"
               L" 6 door with window), width and height, and may take a label type");
    return false;
  }
  auto *opening = new KyDbOpening(static_cast<int>(kind), width, height);
  if (args.size() == 4) opening->SetLabelType(Wide(args[3]));
  return PlaceOpening(L"OPENING", opening);
}

bool DormerLine(const std::vector<std::string> &args) {
  double width = 0, height = 0;
  if (args.size() != 2 || !Number(args[0], width) || !Number(args[1], height) || width < 0 || height < 0) {
    acutPrintf(L"\nDORMER needs the width and height of its window");
    return false;
  }
  auto *dormer = new KyDbDormer;
  KyDormerPar par;
  par.windowWidth = width;
  par.windowHeight = height;
  dormer->SetDormerPar(par);
  // A dormer has no default label type: it takes the first the rules offer.
  KyDtDictionary *kinds = g_dictCfg.FindDict(L"LABEL\\OPENING\\HALF_WIN");
  if (kinds && kinds->GetLength() > 0) dormer->SetLabelType(kinds->GetAt(0)->m_strName);
  return PlaceOpening(L"DORMER", dormer);
}

bool CornerWinLine(const std::vector<std::string> &args) {
  double height = 0;
  std::vector<double> legs;
  bool ok = args.size() == 2 && Number(args[1], height) && height >= 0;
  if (ok) {
    for (const std::string &leg : tolv::sibling::SplitList(args[0])) {
      double value = 0;
      ok = ok && Number(leg, value);
      legs.push_back(value);
    }
  }
  auto *corner = new KyDbCornerWin;
  if (!ok || legs.size() < 2 || legs.size() > 3 || !corner->SetFromLegs(legs, 240.0)) {
    delete corner;
    acutPrintf(L"\nCORNERWIN needs two or three positive legs and a height, e.g. CORNERWIN 1200,1500 1500");
    return false;
  }
  corner->SetHeight(height);
  return PlaceOpening(L"CORNERWIN", corner);
}

const tolv::sibling::HostLine kLayer("LAYER", "  LAYER KEY          the layer of a key, made in the drawing if missing\n",
                                     &LayerLine);
const tolv::sibling::HostLine kLayerName(
    "LAYERNAME", "  LAYERNAME KEYS      the layer filter of keys joined by , and * (e.g. DOOR*-NUM,WALL)\n",
    &LayerNameLine);
const tolv::sibling::HostLine kTextStyle("TEXTSTYLE", "  TEXTSTYLE KEY      the text style of a key, made if missing\n",
                                         &TextStyleLine);
const tolv::sibling::HostLine kDimStyle(
    "DIMSTYLE", "  DIMSTYLE KEY SCALE the dimension style of a key at a scale (0 plain, 1, -1, or a scale)\n",
    &DimStyleLine);
const tolv::sibling::HostLine kLinearDim("LINEARDIM", "  LINEARDIM SCALE    the linear dimension style in use\n",
                                         &LinearDimLine);
const tolv::sibling::HostLine kArcDim("ARCDIM", "  ARCDIM SCALE       the arc dimension style in use\n", &ArcDimLine);
const tolv::sibling::HostLine kAngleDim("ANGLEDIM", "  ANGLEDIM           the angular dimension style in use\n",
                                        &AngleDimLine);
const tolv::sibling::HostLine kDimUnit("DIMUNIT", "  DIMUNIT 0|1        dimensions of the drawing in millimetres or metres\n",
                                      &DimUnitLine);
const tolv::sibling::HostLine kMaterial("MATERIAL", "  MATERIAL NAME      the material of a name, made if missing\n",
                                        &MaterialLine);
const tolv::sibling::HostLine kOpening(
    "OPENING", "  OPENING KIND WIDTH HEIGHT [LABELTYPE]  a door or window in model space, with its automatic label\n",
    &OpeningLine);
const tolv::sibling::HostLine kDormer("DORMER", "  DORMER WIDTH HEIGHT  a dormer in model space, with its label\n",
                                      &DormerLine);
const tolv::sibling::HostLine kCornerWin(
    "CORNERWIN", "  CORNERWIN LEG,LEG[,LEG] HEIGHT  a corner window in model space, with its label\n",
    &CornerWinLine);

}  // namespace
