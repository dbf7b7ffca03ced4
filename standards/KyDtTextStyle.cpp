#include "standards/KyDtTextStyle.h"

#include "dictionary/KyDtDictStringItem.h"
#include "dictionary/KyDtDictionary.h"
#include "module/ModuleGlobals.h"
#include "platform/acad/AcDbTextStyleTableRecord.h"
#include "platform/acad/AdsResbuf.h"
#include "platform/dbobject/KyDbStyleMakers.h"
#include "platform/windows/WinCrt.h"

namespace {
constexpr const wchar_t *kStyleApp = L"_MRV";
}  // namespace

AcDbObjectId KyDtTextStyleDef::InitTextStyle(AcDbDatabase *db) const {
  AcDbObjectId id = GetTextStyleId(styleName, db);
  if (!id.isNull()) return id;
  auto *record = new AcDbTextStyleTableRecord;
  record->setName(styleName);
  record->setFileName(enFont);
  record->setBigFontFileName(chsFont);
  record->setXScale(xScale);
  id = AddTextStyle(record, 0, db);
  if (id.isNull()) {
    delete record;
    return id;
  }
  // The record is the database's now and still open: the data go on
  // before it is closed.
  resbuf *xdata = acutBuildList(1001, kStyleApp, 1040, ecYScale, 1040, ecXScale, 1070,
                                static_cast<int>(static_cast<short>(color)), 0);
  AssureRegApp(kStyleApp, db);
  record->setXData(xdata);
  acutRelRb(xdata);
  record->close();
  return id;
}

KyDtTextStyleCfg::KyDtTextStyleCfg() : m_pCfg(nullptr) {
  KyDtDictItem *item = g_dictCfg.FindItem(CString(L"TEXT_STYLE"));
  if (item && item->IsDict()) m_pCfg = static_cast<KyDtDictionary *>(item);
}

bool KyDtTextStyleCfg::GetTextStyleDef(KyDtTextStyleDef &def) const {
  if (!m_pCfg || def.key.IsEmpty()) return false;
  KyDtDictItem *item = m_pCfg->FindItem(def.key);
  if (!item || item->GetType() != KyDtDictItem::DT_STRING) return false;
  const auto &style = *static_cast<KyDtDictStringItem *>(item);
  def.localName = style.GetAttributeValue(L"localname");
  def.chsFont = style.GetAttributeValue(L"chsfont");
  def.enFont = style.GetAttributeValue(L"enfont");
  // Missing scales read as 0.0 and overwrite the defaults.
  def.xScale = _wtof(style.GetAttributeValue(L"xscale"));
  def.ecXScale = _wtof(style.GetAttributeValue(L"ecxscale"));
  def.ecYScale = _wtof(style.GetAttributeValue(L"ecyscale"));
  def.color = _wtoi(style.GetAttributeValue(L"color"));
  def.styleName = style.m_value;
  def.textHeight = style.GetAttributeValue(L"textheight");
  return true;
}

AcDbObjectId KyDtTextStyleCfg::InitTextStyle(const wchar_t *key, AcDbDatabase *db) const {
  KyDtTextStyleDef def;
  def.key = key;
  if (!GetTextStyleDef(def)) return AcDbObjectId();
  return def.InitTextStyle(db);
}

AcDbObjectId KyDtInitTextStyle(const wchar_t *key, AcDbDatabase *db) { return KyDtTextStyleCfg().InitTextStyle(key, db); }

double KyDtGetDefaultTextHeight(const wchar_t *key) {
  KyDtTextStyleDef def;
  def.key = key;
  if (!KyDtTextStyleCfg().GetTextStyleDef(def)) return 0.0;
  if (def.textHeight.IsEmpty() || def.textHeight.Compare(L"-") == 0) return 3.5;
  return _wtof(def.textHeight);
}

int GetTextStyleColor(AcDbObjectId styleId) {
  if (styleId.isNull()) return 0;
  AcDbTextStyleTableRecord *record = nullptr;
  if (acdbOpenObject(record, styleId, AcDb::kForRead) != Acad::eOk) return 0;
  resbuf *xdata = record->xData(kStyleApp);
  int color = 0;
  const resbuf *a = xdata ? xdata->rbnext : nullptr;
  const resbuf *b = a ? a->rbnext : nullptr;
  const resbuf *c = b ? b->rbnext : nullptr;
  if (a && a->restype == 1040 && b && b->restype == 1040 && c && c->restype == 1070) color = c->resval.rint;
  acutRelRb(xdata);
  record->close();
  return color;
}
