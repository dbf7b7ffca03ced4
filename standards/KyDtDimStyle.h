// Dimension styles by key: the definitions under "DIM_STYLE" of the system
// settings, and their making in a drawing. One definition stands for a
// family of styles told apart by a suffix for the measuring scale and the
// units of the drawing and of its dimensions.
#pragma once

#include "platform/acad/AcDbObjectId.h"
#include "platform/mfc/CString.h"

class AcDbDatabase;
class KyDtDictionary;

class KyDtDimStyleDef {
 public:
  CString key;
  CString localName;
  CString textStyle;  // a text style key
  CString dimblk;     // the arrow block
  CString styleName;  // the family's base name
  double arrowSize = 0.0;
  double dimdle = 0.0;
  double dimexo = 0.0;
  double dimexe = 0.0;
  double dimgap = 0.0;
  CString dimpost;
};

class KyDtDimStyleCfg {
 public:
  // Finds "DIM_STYLE" in the system settings.
  KyDtDimStyleCfg();

  bool GetDimStyleDef(KyDtDimStyleDef &def) const;
  // The family member for a scale (0: plain, 1: ignoring the drawing unit,
  // -1: ignoring the dimension unit, else that measuring scale), made when
  // missing; null when the key does not resolve.
  AcDbObjectId InitDimStyle(const wchar_t *key, double scale, AcDbDatabase *db) const;

  KyDtDictionary *GetDict() const { return m_pCfg; }

 private:
  KyDtDictionary *m_pCfg;
};

AcDbObjectId KyDtInitDimStyle(const wchar_t *key, double scale, AcDbDatabase *db);
// The module's own styles, by the dimension forms the settings choose.
AcDbObjectId KyDtInitLinearDimStyle(double scale, AcDbDatabase *db);
AcDbObjectId KyDtInitArcDimStyle(double scale, AcDbDatabase *db);
AcDbObjectId KyDtInitAngleDimStyle(AcDbDatabase *db);

namespace tolv::standards {
// The name of the family member and the normalised scale and units, as the
// style is made (exposed for the tools and tests).
struct DimStyleName {
  CString name;
  double scale = 0.0;
  unsigned drawUnit = 0;
  unsigned dimUnit = 0;
  bool isAngle = false;
  bool isArc = false;
};
DimStyleName ComposeDimStyleName(const KyDtDimStyleDef &def, double scale, unsigned drawUnit, unsigned dimUnit);
}  // namespace tolv::standards
