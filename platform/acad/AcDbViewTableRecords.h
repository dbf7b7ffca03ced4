// Records of the viewport, view and coordinate-system tables. The
// database keeps what a drawing file holds for them and writes it back;
// the add-on reads nothing of them.
#pragma once

#include "platform/acad/AcDbSymbolTable.h"

class AcDbViewportTableRecord : public AcDbSymbolTableRecord {
 public:
  ACRX_DECLARE_MEMBERS(AcDbViewportTableRecord);
  AcDbViewportTableRecord();
  // The settings of the host's first model-space viewport "*Active".
  void setActiveDefaults();

 protected:
  const wchar_t *subclassMarker() const override { return L"AcDbViewportTableRecord"; }
};

class AcDbViewTableRecord : public AcDbSymbolTableRecord {
 public:
  ACRX_DECLARE_MEMBERS(AcDbViewTableRecord);
  AcDbViewTableRecord();

 protected:
  const wchar_t *subclassMarker() const override { return L"AcDbViewTableRecord"; }
};

class AcDbUCSTableRecord : public AcDbSymbolTableRecord {
 public:
  ACRX_DECLARE_MEMBERS(AcDbUCSTableRecord);
  AcDbUCSTableRecord();

 protected:
  const wchar_t *subclassMarker() const override { return L"AcDbUCSTableRecord"; }
};
