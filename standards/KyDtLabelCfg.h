// Opening labels: the automatic label of a door, window, hole or dormer,
// from its size or as the next sequence number among the openings already
// in the drawing, by the rules under "LABEL" of the system settings.
#pragma once

#include "platform/mfc/CString.h"

class KyAdsEntSet;
class KyDbEntity;
class KyDtDictionary;

class KyDtLabelCfg {
 public:
  // Finds "LABEL" in the system settings.
  KyDtLabelCfg();

  // The automatic label of an opening among `others` (which may hold the
  // opening itself and entities of other kinds); empty when there is none.
  CString GetAutoLabel(const KyDbEntity *entity, const KyAdsEntSet &others) const;
  // Which line of a corner window gives its width; -1 without rules.
  int GetWinPos() const;

  KyDtDictionary *GetDict() const { return m_pCfg; }

 private:
  KyDtDictionary *m_pCfg;
};

CString KyDtGetAutoLabel(const KyDbEntity *entity, const KyAdsEntSet &others);
int KyDtGetWinPos();

namespace tolv::standards {
// A length in units of 100 as two or more digits, rounded or cut.
CString GetSizeDigits(bool round, double x);
// The size code of a width and a height: each two or more digits.
CString SizeCode(bool round, double width, double height);
}  // namespace tolv::standards
