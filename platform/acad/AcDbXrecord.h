// An object that holds a list of group codes and values for its maker.
#pragma once

#include "platform/acad/AcDbObject.h"

struct resbuf;

class AcDbXrecord : public AcDbObject {
 public:
  ACRX_DECLARE_MEMBERS(AcDbXrecord);
  AcDbXrecord();
  ~AcDbXrecord() override;

  // A new copy of the data, for acutRelRb; null when there are none.
  Acad::ErrorStatus rbChain(resbuf **ppRb, AcDbDatabase *auxDb = nullptr) const;
  // Replaces the data with a copy of the list. Group codes must be of the
  // drawing-data kinds (not RT* codes, not 0, 5, 100, 102, 330 or 1001 and
  // beyond): eInvalidInput otherwise.
  Acad::ErrorStatus setFromRbChain(const resbuf &pRb, AcDbDatabase *auxDb = nullptr);

  Acad::ErrorStatus dxfOutFields(AcDbDxfFiler *filer) const override;
  Acad::ErrorStatus dxfInFields(AcDbDxfFiler *filer) override;

 private:
  resbuf *data_ = nullptr;
};
