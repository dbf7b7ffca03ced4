// A dimension style: the dimension variables that the add-on sets, with
// the host's defaults. Variables a drawing file holds beyond these are
// carried through unchanged.
#pragma once

#include "platform/acad/AcCmColor.h"
#include "platform/acad/AcDbSymbolTable.h"

class AcDbDimStyleTableRecord : public AcDbSymbolTableRecord {
 public:
  ACRX_DECLARE_MEMBERS(AcDbDimStyleTableRecord);
  AcDbDimStyleTableRecord();


  // Distances and factors.
  double dimasz() const { return dimasz_; }
  Acad::ErrorStatus setDimasz(double value);
  double dimdle() const { return dimdle_; }
  Acad::ErrorStatus setDimdle(double value);
  double dimdli() const { return dimdli_; }
  Acad::ErrorStatus setDimdli(double value);
  double dimexe() const { return dimexe_; }
  Acad::ErrorStatus setDimexe(double value);
  double dimexo() const { return dimexo_; }
  Acad::ErrorStatus setDimexo(double value);
  double dimgap() const { return dimgap_; }
  Acad::ErrorStatus setDimgap(double value);
  double dimlfac() const { return dimlfac_; }
  Acad::ErrorStatus setDimlfac(double value);
  double dimscale() const { return dimscale_; }
  Acad::ErrorStatus setDimscale(double value);
  double dimtxt() const { return dimtxt_; }
  Acad::ErrorStatus setDimtxt(double value);

  // Counts and modes.
  int dimadec() const { return dimadec_; }
  Acad::ErrorStatus setDimadec(int value);
  int dimaunit() const { return dimaunit_; }
  Acad::ErrorStatus setDimaunit(int value);
  int dimazin() const { return dimazin_; }
  Acad::ErrorStatus setDimazin(int value);
  int dimdec() const { return dimdec_; }
  Acad::ErrorStatus setDimdec(int value);
  int dimtad() const { return dimtad_; }
  Acad::ErrorStatus setDimtad(int value);
  int dimtdec() const { return dimtdec_; }
  Acad::ErrorStatus setDimtdec(int value);
  int dimtmove() const { return dimtmove_; }
  Acad::ErrorStatus setDimtmove(int value);

  // Switches.
  bool dimtih() const { return dimtih_; }
  Acad::ErrorStatus setDimtih(bool value);
  bool dimtix() const { return dimtix_; }
  Acad::ErrorStatus setDimtix(bool value);
  bool dimtofl() const { return dimtofl_; }
  Acad::ErrorStatus setDimtofl(bool value);
  bool dimtoh() const { return dimtoh_; }
  Acad::ErrorStatus setDimtoh(bool value);

  // Texts, colour, references.
  const ACHAR *dimpost() const { return dimpost_.c_str(); }
  Acad::ErrorStatus setDimpost(const ACHAR *value);
  AcCmColor dimclrt() const { return dimclrt_; }
  Acad::ErrorStatus setDimclrt(const AcCmColor &value);
  AcDbObjectId dimtxsty() const { return dimtxsty_; }
  Acad::ErrorStatus setDimtxsty(AcDbObjectId value);
  // The arrow block by name, as configured ("" is the host's closed filled
  // arrow). Once the style is in a database, the block of that name is
  // made there if missing, so that the drawing file can point at it.
  const ACHAR *dimblkName() const { return dimblk_.c_str(); }
  Acad::ErrorStatus setDimblk(const ACHAR *name);
  Acad::ErrorStatus setDimblk(AcDbObjectId blockId);
  // The arrow block's record in the style's database; null for the default.
  AcDbObjectId dimblk() const;

 protected:
  const wchar_t *subclassMarker() const override { return L"AcDbDimStyleTableRecord"; }
  void writeOwnFields(AcDbDxfFiler *filer) const override;
  bool readOwnField(const tolv::DxfTag &tag, AcDbDxfFiler *filer) override;

 private:
  friend class AcDbDimStyleTable;
  double dimasz_ = 0.18;
  double dimdle_ = 0.0;
  double dimdli_ = 0.38;
  double dimexe_ = 0.18;
  double dimexo_ = 0.0625;
  double dimgap_ = 0.09;
  double dimlfac_ = 1.0;
  double dimscale_ = 1.0;
  double dimtxt_ = 0.18;
  int dimadec_ = 0;
  int dimaunit_ = 0;
  int dimazin_ = 0;
  int dimdec_ = 4;
  int dimtad_ = 0;
  int dimtdec_ = 4;
  int dimtmove_ = 0;
  bool dimtih_ = true;
  bool dimtix_ = false;
  bool dimtofl_ = false;
  bool dimtoh_ = true;
  std::wstring dimpost_;
  AcCmColor dimclrt_ = [] {
    AcCmColor c;
    c.setByBlock();
    return c;
  }();
  AcDbObjectId dimtxsty_;
  std::wstring dimblk_;
};

namespace tolv {
// Makes the arrow block of that name in the database if it has none, with
// a drawing of the host's arrow of that name (a tick for names it does not
// know), and gives its id; null for an empty name.
AcDbObjectId EnsureArrowBlock(AcDbDatabase *db, const std::wstring &name);
}  // namespace tolv
