// A text style: font files, fixed height, width factor, slant.
#pragma once

#include "platform/acad/AcDbSymbolTable.h"

class AcDbTextStyleTableRecord : public AcDbSymbolTableRecord {
 public:
  ACRX_DECLARE_MEMBERS(AcDbTextStyleTableRecord);
  AcDbTextStyleTableRecord();

  Acad::ErrorStatus fileName(const ACHAR *&name) const;
  Acad::ErrorStatus setFileName(const ACHAR *name);
  Acad::ErrorStatus bigFontFileName(const ACHAR *&name) const;
  Acad::ErrorStatus setBigFontFileName(const ACHAR *name);
  // The width factor.
  double xScale() const { return xScale_; }
  Acad::ErrorStatus setXScale(double scale);
  // The fixed height; 0 lets each text choose.
  double textSize() const { return textSize_; }
  Acad::ErrorStatus setTextSize(double size);
  double priorSize() const { return priorSize_; }
  Acad::ErrorStatus setPriorSize(double size);
  double obliquingAngle() const { return obliquingAngle_; }
  Acad::ErrorStatus setObliquingAngle(double angle);
  // 2 backwards, 4 upside down.
  Adesk::UInt8 flagBits() const { return flagBits_; }
  Acad::ErrorStatus setFlagBits(Adesk::UInt8 bits);
  bool isShapeFile() const { return (flags_ & 1) != 0; }
  Acad::ErrorStatus setIsShapeFile(bool shape);
  bool isVertical() const { return (flags_ & 4) != 0; }
  Acad::ErrorStatus setIsVertical(bool vertical);

 protected:
  const wchar_t *subclassMarker() const override { return L"AcDbTextStyleTableRecord"; }
  void writeOwnFields(AcDbDxfFiler *filer) const override;
  bool readOwnField(const tolv::DxfTag &tag, AcDbDxfFiler *filer) override;

 private:
  std::wstring fileName_ = L"txt";
  std::wstring bigFontFileName_;
  double xScale_ = 1.0;
  double textSize_ = 0.0;
  double priorSize_ = 2.5;
  double obliquingAngle_ = 0.0;
  Adesk::UInt8 flagBits_ = 0;
};
