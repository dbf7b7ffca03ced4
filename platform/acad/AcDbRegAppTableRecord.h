// A registered application name, under which objects keep extended data.
#pragma once

#include "platform/acad/AcDbSymbolTable.h"

class AcDbRegAppTableRecord : public AcDbSymbolTableRecord {
 public:
  ACRX_DECLARE_MEMBERS(AcDbRegAppTableRecord);
  AcDbRegAppTableRecord();

 protected:
  const wchar_t *subclassMarker() const override { return L"AcDbRegAppTableRecord"; }
};
