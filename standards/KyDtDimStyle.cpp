#include "standards/KyDtDimStyle.h"

#include <cmath>

#include "dictionary/KyDtDictStringItem.h"
#include "dictionary/KyDtDictionary.h"
#include "module/ModuleGlobals.h"
#include "platform/acad/AcDbDatabase.h"
#include "platform/acad/AcDbDimStyleTableRecord.h"
#include "platform/acad/AcDbHostApplicationServices.h"
#include "platform/dbobject/DbObjectSettings.h"
#include "platform/dbobject/KyDbDrawUnit.h"
#include "platform/dbobject/KyDbStyleMakers.h"
#include "platform/geometry/GeTolerance.h"
#include "platform/windows/WinCrt.h"
#include "standards/KyDtTextStyle.h"

namespace tolv::standards {

DimStyleName ComposeDimStyleName(const KyDtDimStyleDef &def, double scale, unsigned drawUnit, unsigned dimUnit) {
  DimStyleName out;
  if (std::fabs(scale) <= g_fZero) {
    drawUnit = dimUnit = 0;
  } else if (std::fabs(scale - 1.0) <= g_distZero) {
    scale = 0.0;
    drawUnit = dimUnit;
  } else if (std::fabs(scale + 1.0) <= g_distZero) {
    scale = 0.0;
    dimUnit = drawUnit;
  }
  // "ANGEL2" is the word the check has always had: the second angular
  // style ("ANGLE2") is made as a linear one.
  out.isAngle = def.key.Compare(L"ANGLE") == 0 || def.key.Compare(L"ANGEL2") == 0;
  out.isArc = def.key.Compare(L"ARC") == 0 || def.key.Compare(L"ARC2") == 0;
  out.name = def.styleName;
  if (!out.isAngle) {
    if (scale > g_fZero) {
      CString suffix;
      suffix.Format(dimUnit == 1 ? L"(%g-M)" : L"(%g)", scale);
      out.name += suffix;
    } else if (drawUnit == 0 && dimUnit == 1) {
      out.name += L"(mm-M)";
    } else if (drawUnit == 1 && dimUnit == 1) {
      out.name += L"(M-M)";
    } else if (drawUnit == 1 && dimUnit == 0) {
      out.name += L"(M-mm)";
    }
  }
  out.scale = scale;
  out.drawUnit = drawUnit;
  out.dimUnit = dimUnit;
  return out;
}

}  // namespace tolv::standards

namespace {

AcDbObjectId BuildDimStyle(const KyDtDimStyleDef &def, double scale, AcDbDatabase *db) {
  if (!db) db = acdbHostApplicationServices()->workingDatabase();
  if (!db) return AcDbObjectId();
  const tolv::standards::DimStyleName n =
      tolv::standards::ComposeDimStyleName(def, scale, KyDbGetDrawUnit(db), KyDbGetDimUnit(db));

  AcDbObjectId id = GetDimStyleId(n.name, db);
  if (!id.isNull()) return id;

  AcDbObjectId textStyleId = KyDtInitTextStyle(def.textStyle, db);
  if (textStyleId.isNull()) textStyleId = db->textstyle();

  auto *record = new AcDbDimStyleTableRecord;
  record->setDimblk(def.dimblk);
  record->setName(n.name);
  record->setDimgap(1.0);
  record->setDimtxt(KyDtGetDefaultTextHeight(def.textStyle));
  record->setDimtxsty(textStyleId);
  record->setDimexe(def.dimexe);
  record->setDimexo(def.dimexo);
  record->setDimasz(def.arrowSize);
  record->setDimscale(1.0);
  record->setDimdli(0.0);
  record->setDimtofl(true);
  record->setDimtmove(2);
  record->setDimtdec(0);
  record->setDimdec(0);
  record->setDimaunit(0);
  record->setDimadec(2);
  record->setDimazin(2);
  record->setDimtoh(false);
  record->setDimtad(1);
  record->setDimtix(true);
  record->setDimtih(false);
  record->setDimdle(def.dimdle);
  record->setDimgap(def.dimgap);

  if (!n.isAngle) {
    if (n.scale > g_fZero) {
      record->setDimlfac(n.scale);
      if (n.dimUnit == 1) record->setDimdec(2);
    } else if (n.drawUnit == 0 && n.dimUnit == 1) {
      record->setDimlfac(0.001);
      record->setDimdec(2);
    } else if (n.drawUnit == 1 && n.dimUnit == 1) {
      record->setDimdec(2);
    } else if (n.drawUnit == 1 && n.dimUnit == 0) {
      record->setDimlfac(1000.0);
    }
    if (n.dimUnit == 1 && !def.dimpost.IsEmpty()) record->setDimpost(def.dimpost);
  }
  if (n.isAngle || n.isArc) record->setDimtad(3);

  const int color = GetTextStyleColor(textStyleId);
  if (color > 0) {
    AcCmColor c;
    c.setColorIndex(static_cast<Adesk::UInt16>(color));
    record->setDimclrt(c);
  }
  id = AddDimStyle(record, 1, db);
  if (id.isNull()) delete record;
  return id;
}

}  // namespace

KyDtDimStyleCfg::KyDtDimStyleCfg() : m_pCfg(nullptr) {
  KyDtDictItem *item = g_dictCfg.FindItem(CString(L"DIM_STYLE"));
  if (item && item->IsDict()) m_pCfg = static_cast<KyDtDictionary *>(item);
}

bool KyDtDimStyleCfg::GetDimStyleDef(KyDtDimStyleDef &def) const {
  if (!m_pCfg || def.key.IsEmpty()) return false;
  KyDtDictItem *item = m_pCfg->FindItem(def.key);
  if (!item || item->GetType() != KyDtDictItem::DT_STRING) return false;
  const auto &style = *static_cast<KyDtDictStringItem *>(item);
  def.localName = style.GetAttributeValue(L"localname");
  def.textStyle = style.GetAttributeValue(L"textstyle");
  def.dimblk = style.GetAttributeValue(L"dimblk");
  def.styleName = style.m_value;
  def.arrowSize = _wtof(style.GetAttributeValue(L"arrowsize"));
  def.dimdle = _wtof(style.GetAttributeValue(L"dimdle"));
  def.dimexo = _wtof(style.GetAttributeValue(L"dimexo"));
  def.dimexe = _wtof(style.GetAttributeValue(L"dimexe"));
  def.dimgap = _wtof(style.GetAttributeValue(L"dimgap"));
  def.dimpost = style.GetAttributeValue(L"dimpost");
  return true;
}

AcDbObjectId KyDtDimStyleCfg::InitDimStyle(const wchar_t *key, double scale, AcDbDatabase *db) const {
  KyDtDimStyleDef def;
  def.key = key;
  if (!GetDimStyleDef(def)) return AcDbObjectId();
  return BuildDimStyle(def, scale, db);
}

AcDbObjectId KyDtInitDimStyle(const wchar_t *key, double scale, AcDbDatabase *db) {
  return KyDtDimStyleCfg().InitDimStyle(key, scale, db);
}

AcDbObjectId KyDtInitLinearDimStyle(double scale, AcDbDatabase *db) {
  const wchar_t *key = g_nLinearDimType == 0 ? L"LINEAR" : (g_nLinearDimType == 1 ? L"LINEAR2" : L"LINEAR3");
  return KyDtInitDimStyle(key, scale, db);
}

AcDbObjectId KyDtInitArcDimStyle(double scale, AcDbDatabase *db) {
  return KyDtInitDimStyle(g_nArcDimType == 0 ? L"ARC" : L"ARC2", scale, db);
}

AcDbObjectId KyDtInitAngleDimStyle(AcDbDatabase *db) {
  return KyDtInitDimStyle(g_nArcDimType == 0 ? L"ANGLE" : L"ANGLE2", 0.0, db);
}
