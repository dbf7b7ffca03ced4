// Text styles by key: the definitions under "TEXT_STYLE" of the system
// settings, and their making in a drawing with the add-on's own extended
// data under "_MRV" (the scales of mixed Chinese and western text, and the
// colour).
#pragma once

#include <cstdint>

#include "platform/acad/AcDbObjectId.h"
#include "platform/mfc/CString.h"

class AcDbDatabase;
class KyDtDictionary;

class KyDtTextStyleDef {
 public:
  KyDtTextStyleDef() = default;
  KyDtTextStyleDef(const KyDtTextStyleDef &) = default;
  KyDtTextStyleDef &operator=(const KyDtTextStyleDef &) = default;
  ~KyDtTextStyleDef() = default;

  // The style of the drawing named `styleName`, made when missing; an
  // existing style is answered as it is.
  AcDbObjectId InitTextStyle(AcDbDatabase *db) const;

  CString key;
  CString localName;
  CString chsFont;
  CString enFont;
  double xScale = 1.0;
  double ecXScale = 1.0;
  double ecYScale = 1.0;
  std::int32_t color = 0;
  CString styleName;
  CString textHeight;  // kept as text: "-" means the default
};

class KyDtTextStyleCfg {
 public:
  // Finds "TEXT_STYLE" in the system settings.
  KyDtTextStyleCfg();

  // Fills `def` for `def.key`, a path below "TEXT_STYLE"; false when the
  // item is missing or no string item.
  bool GetTextStyleDef(KyDtTextStyleDef &def) const;
  AcDbObjectId InitTextStyle(const wchar_t *key, AcDbDatabase *db) const;

  KyDtDictionary *GetDict() const { return m_pCfg; }

 private:
  KyDtDictionary *m_pCfg;
};

AcDbObjectId KyDtInitTextStyle(const wchar_t *key, AcDbDatabase *db);
// The text height of a style key: 0.0 for an unknown key, 3.5 for "-" or
// nothing, else the number given.
double KyDtGetDefaultTextHeight(const wchar_t *key);
// The colour kept in a style's "_MRV" data; 0 when it has none of the
// add-on's shape.
int GetTextStyleColor(AcDbObjectId styleId);
