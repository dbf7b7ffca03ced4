#include "standards/KyDtLabelCfg.h"

#include <climits>
#include <cmath>
#include <memory>

#include "dictionary/KyDtDictOptionItem.h"
#include "dictionary/KyDtDictValueItems.h"
#include "dictionary/KyDtDictionary.h"
#include "language/LangTranslate.h"
#include "module/ModuleGlobals.h"
#include "platform/acad/AdsCodes.h"
#include "platform/dbobject/KyDbCornerWin.h"
#include "platform/dbobject/KyDbDormer.h"
#include "platform/dbobject/KyDbOpening.h"
#include "platform/geometry/GeTolerance.h"
#include "platform/platform/KyAdsEntSet.h"
#include "platform/platform/KyAdsRBList.h"
#include "platform/windows/WinCrt.h"

namespace tolv::standards {

namespace {
int SizeNumber(bool round, double x) {
  const double n = round ? (x + 0.5) / 100.0 + 0.5 : (x + 0.5) / 100.0;
  // Sizes beyond any building (or not numbers at all) stop at the ends of
  // the integer range rather than overflow it.
  if (!(n > -2147483648.0)) return n != n ? 0 : INT_MIN;
  if (!(n < 2147483647.0)) return INT_MAX;
  return static_cast<int>(n);
}
}  // namespace

CString GetSizeDigits(bool round, double x) {
  const int n = SizeNumber(round, x);
  CString text;
  text.Format(n > 9 ? L"%d" : L"0%d", n);
  return text;
}

CString SizeCode(bool round, double width, double height) {
  const int w = SizeNumber(round, width);
  const int h = SizeNumber(round, height);
  CString text;
  if (w > 9 && h > 9) {
    text.Format(L"%d%d", w, h);
  } else if (h > 9) {
    text.Format(L"0%d%d", w, h);
  } else if (w > 9) {
    text.Format(L"%d0%d", w, h);
  } else {
    text.Format(L"0%d0%d", w, h);
  }
  return text;
}

}  // namespace tolv::standards

namespace {

using tolv::standards::GetSizeDigits;
using tolv::standards::SizeCode;

KyDtDictionary *AsDict(KyDtDictItem *item) {
  return item && item->IsDict() ? static_cast<KyDtDictionary *>(item) : nullptr;
}

// The rule items; all five are required of the configuration.
struct Rules {
  bool round = false;
  bool unionLabel = false;
  int rule = 0;
  int widthPos = 0;
};

bool ReadRules(KyDtDictionary *opening, Rules &rules) {
  auto *divide = dynamic_cast<KyDtDictBoolItem *>(opening->FindItem(CString(L"DIVIDELABEL")));
  auto *rule = dynamic_cast<KyDtDictOptionItem *>(opening->FindItem(CString(L"OPENINGRULE")));
  auto *pos = dynamic_cast<KyDtDictOptionItem *>(opening->FindItem(CString(L"OPENINWIDTHPOS")));
  auto *round = dynamic_cast<KyDtDictBoolItem *>(opening->FindItem(CString(L"ROUND")));
  auto *unionLabel = dynamic_cast<KyDtDictBoolItem *>(opening->FindItem(CString(L"UNIONLABEL")));
  // A configuration without one of them is a faulty delivery: it gets no
  // label rather than a crash.
  if (!divide || !rule || !pos || !round || !unionLabel) return false;
  rules.rule = rule->m_nCurSel;
  rules.widthPos = pos->m_nCurSel;
  rules.round = round->m_value != 0;
  rules.unionLabel = unionLabel->m_value != 0;
  return true;
}

CString DormerSizeCode(const KyDbDormer &dormer, bool round) {
  const KyDormerPar &par = dormer.GetDormerPar();
  return SizeCode(round, par.GetWindowWidth(), par.GetWindowHeight());
}

CString OpeningSizeCode(const KyDbEntity &entity, bool round, int widthPos, bool unionLabel) {
  if (const KyDbOpening *opening = KyDbOpening::cast(&entity)) {
    return SizeCode(round, opening->GetWidth(), opening->GetHeight());
  }
  const KyDbCornerWin *corner = KyDbCornerWin::cast(&entity);
  if (!corner) return CString();
  double width = corner->GetWinLength();
  const double height = corner->GetHeight();

  std::unique_ptr<KyGePolyline2d> base(corner->GetBaseLine());
  KyGePolyline2d *s1 = nullptr;
  KyGePolyline2d *s2 = nullptr;
  corner->GetSideLines(s1, s2);
  std::unique_ptr<KyGePolyline2d> first(s1);
  std::unique_ptr<KyGePolyline2d> second(s2);
  KyGePolyline2d baseLine, longer, shorter;
  baseLine.CopyFrom(*base);
  if (first->Length() - second->Length() > g_distZero) {
    longer.CopyFrom(*first);
    shorter.CopyFrom(*second);
  } else {
    longer.CopyFrom(*second);
    shorter.CopyFrom(*first);
  }
  const KyGePolyline2d *chosen = nullptr;
  switch (widthPos) {
    case 0: chosen = &shorter; break;
    case 1: chosen = &baseLine; break;
    case 2: chosen = &longer; break;
    default: return SizeCode(round, width, height);
  }
  if (!unionLabel) {
    if (widthPos != 1) width = chosen->Length();
    return SizeCode(round, width, height);
  }
  CString code(L"(");
  KyGeSegment2d segment;
  for (int i = 0; i < chosen->GetSegNum(); ++i) {
    if (i > 0) code += L"+";
    chosen->GetSegment(i, segment);
    code += GetSizeDigits(round, segment.Length());
  }
  code += L")";
  code += GetSizeDigits(round, height);
  return code;
}

CString DigitsOf(const CString &label) {
  CString digits;
  for (int i = 0; i < label.GetLength(); ++i) {
    const wchar_t c = label[i];
    if (c >= L'0' && c <= L'9') digits += c;
  }
  return digits;
}

// The number of a twin of the same label type, size (and for openings kind
// and styles), or the highest number in use for that label type.
int FindLabelNumber(const KyAdsEntSet &set, const KyDbEntity &entity, bool round, int widthPos, bool unionLabel,
                    bool &increment) {
  (void)widthPos;
  (void)unionLabel;
  int result = 0;
  const KyDbDormer *dormer = KyDbDormer::cast(&entity);
  const KyDbOpening *opening = dormer ? nullptr : KyDbOpening::cast(&entity);
  const KyDbCornerWin *corner = (dormer || opening) ? nullptr : KyDbCornerWin::cast(&entity);
  const wchar_t *typeName = dormer ? L"TOLV_DORMER" : opening ? L"TOLV_OPENING" : corner ? L"TOLV_CORNER_WIN" : nullptr;
  if (!typeName) return 0;

  KyAdsEntSet members(2);
  members += set;
  KyAdsRBList filter(acutBuildList(RTDXF0, typeName, 0));
  members.Filter(filter);
  // Corner windows never number upward.
  if (corner) return 0;

  CString labelType;
  double width = 0.0;
  double height = 0.0;
  if (dormer) {
    labelType = dormer->GetLabelType();
    width = dormer->GetDormerPar().GetWindowWidth();
    height = dormer->GetDormerPar().GetWindowHeight();
  } else {
    labelType = opening->GetLabelType();
    width = opening->GetWidth();
    height = opening->GetHeight();
  }
  const AcDbObjectId self = entity.objectId();
  for (std::int32_t i = 0; i < members.GetLength(); ++i) {
    const KyAdsEnt &member = members[i];
    if (!self.isNull() && member.GetObjectId() == self) continue;
    AcDbEntity *raw = nullptr;
    if (member.Open(raw) != Acad::eOk) continue;
    bool twin = false;
    int number = -1;
    if (dormer) {
      const KyDbDormer *other = KyDbDormer::cast(raw);
      const CString &label = other->GetLabel();
      const CString codeA = DormerSizeCode(*other, true);
      const CString codeB = DormerSizeCode(*other, false);
      const CString digits = DigitsOf(label);
      if (!label.IsEmpty() && digits.CompareNoCase(codeA) != 0 && digits.CompareNoCase(codeB) != 0 &&
          other->GetLabelType().CompareNoCase(labelType) == 0) {
        number = _wtoi(digits);
        const KyDormerPar &par = other->GetDormerPar();
        twin = std::fabs(par.GetWindowHeight() - height) <= g_distZero &&
               std::fabs(par.GetWindowWidth() - width) <= g_distZero;
      }
    } else {
      const KyDbOpening *other = KyDbOpening::cast(raw);
      const CString &label = other->GetLabel();
      const CString code = OpeningSizeCode(*other, round, 0, false);
      const CString digits = DigitsOf(label);
      if (!label.IsEmpty() && digits.CompareNoCase(code) != 0 &&
          other->GetLabelType().CompareNoCase(labelType) == 0) {
        number = _wtoi(digits);
        twin = std::fabs(other->GetHeight() - height) <= g_distZero &&
               std::fabs(other->GetWidth() - width) <= g_distZero && other->GetKind() == opening->GetKind() &&
               other->GetStyle2d() == opening->GetStyle2d() && other->GetStyle3d() == opening->GetStyle3d();
      }
    }
    raw->close();
    if (number < 0) continue;
    if (twin) {
      increment = false;
      return number;
    }
    if (number > result) result = number;
  }
  return result;
}

}  // namespace

KyDtLabelCfg::KyDtLabelCfg() : m_pCfg(AsDict(g_dictCfg.FindItem(CString(L"LABEL")))) {}

int KyDtLabelCfg::GetWinPos() const {
  KyDtDictionary *opening = m_pCfg ? AsDict(m_pCfg->FindItem(CString(L"OPENING"))) : nullptr;
  if (!opening) return -1;
  auto *pos = dynamic_cast<KyDtDictOptionItem *>(opening->FindItem(CString(L"OPENINWIDTHPOS")));
  return pos ? pos->m_nCurSel : -1;
}

CString KyDtLabelCfg::GetAutoLabel(const KyDbEntity *entity, const KyAdsEntSet &others) const {
  if (!m_pCfg || !entity) return CString();
  const KyDbDormer *dormer = KyDbDormer::cast(entity);
  const KyDbOpeningBase *base = KyDbOpeningBase::cast(entity);
  if (!dormer && !base) return CString();
  KyDtDictionary *opening = AsDict(m_pCfg->FindItem(CString(L"OPENING")));
  if (!opening) return CString();
  Rules rules;
  if (!ReadRules(opening, rules)) return CString();

  const wchar_t *kindKey = nullptr;
  CString labelType;
  if (dormer) {
    kindKey = L"HALF_WIN";
    labelType = dormer->GetLabelType();
  } else if (const KyDbOpening *op = KyDbOpening::cast(entity)) {
    const wchar_t *defaultType = nullptr;
    switch (op->GetKind()) {
      case 1:
      case 3: kindKey = L"WINDOW"; defaultType = L"普通窗"; break;
      case 2: kindKey = L"HOLE"; defaultType = L"墙洞"; break;
      case 4: kindKey = L"PRO_WIN"; defaultType = L"凸窗"; break;
      case 5: kindKey = L"BAND_WIN"; defaultType = L"带形窗"; break;
      default: kindKey = L"DOOR"; defaultType = L"普通门"; break;
    }
    labelType = op->GetLabelType();
    if (labelType.IsEmpty()) labelType = _TL(defaultType);
  } else if (KyDbCornerWin::cast(entity)) {
    kindKey = L"BAND_WIN";
    labelType = base->GetLabelType();
    if (labelType.IsEmpty()) labelType = _TL(L"带形窗");
  } else {
    // Another kind of opening: no kind key of its own.
    return CString();
  }

  KyDtDictionary *kind = AsDict(opening->FindItem(CString(kindKey)));
  if (!kind || labelType.IsEmpty()) return CString();
  KyDtDictItem *typeItem = nullptr;
  // By name among the kind's label types (a label type may hold the
  // path separator, so no path lookup).
  for (KyDtDictItem *const *p = kind->GetFirst(); p; p = kind->GetNext(p)) {
    if (*p && (*p)->m_strName.Compare(labelType) == 0) {
      typeItem = *p;
      break;
    }
  }
  if (!typeItem) return CString();

  CString label = typeItem->m_strLocalName;
  if (rules.rule != 0) {
    CString number(L"1");
    if (!others.IsEmpty()) {
      bool increment = true;
      int n = FindLabelNumber(others, *entity, rules.round, rules.widthPos, rules.unionLabel, increment);
      if (increment && n < INT_MAX) ++n;
      number.Format(L"%d", n);
    }
    if (rules.unionLabel) label += L"-";
    label += number;
  } else {
    if (rules.unionLabel) label += L"-";
    label += dormer ? DormerSizeCode(*dormer, rules.round)
                    : OpeningSizeCode(*entity, rules.round, rules.widthPos, rules.unionLabel);
  }
  return label;
}

CString KyDtGetAutoLabel(const KyDbEntity *entity, const KyAdsEntSet &others) {
  return KyDtLabelCfg().GetAutoLabel(entity, others);
}

int KyDtGetWinPos() { return KyDtLabelCfg().GetWinPos(); }
