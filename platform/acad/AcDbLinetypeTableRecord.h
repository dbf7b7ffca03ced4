// A line type: its description and its dash pattern. Positive lengths are
// dashes, negative ones gaps, zero a dot.
#pragma once

#include "platform/acad/AcDbSymbolTable.h"

class AcDbLinetypeTableRecord : public AcDbSymbolTableRecord {
 public:
  ACRX_DECLARE_MEMBERS(AcDbLinetypeTableRecord);
  AcDbLinetypeTableRecord();

  Acad::ErrorStatus comments(const ACHAR *&text) const;
  Acad::ErrorStatus setComments(const ACHAR *text);
  double patternLength() const { return patternLength_; }
  Acad::ErrorStatus setPatternLength(double length);
  int numDashes() const { return static_cast<int>(dashes_.size()); }
  // Up to 12 dashes, as the host allows; eInvalidInput beyond.
  Acad::ErrorStatus setNumDashes(int count);
  double dashLengthAt(int index) const;
  Acad::ErrorStatus setDashLengthAt(int index, double length);
  bool isScaledToFit() const { return false; }

 protected:
  const wchar_t *subclassMarker() const override { return L"AcDbLinetypeTableRecord"; }
  void writeOwnFields(AcDbDxfFiler *filer) const override;
  bool readOwnField(const tolv::DxfTag &tag, AcDbDxfFiler *filer) override;

 private:
  std::wstring comments_;
  double patternLength_ = 0.0;
  std::vector<double> dashes_;
  bool complexSeen_ = false;
};
