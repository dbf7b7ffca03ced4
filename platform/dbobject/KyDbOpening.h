// A door, window or hole set into a wall: its kind, width and the two
// styles (plan and model) it is drawn in. In drawing files an opening is an
// entity of type TOLV_OPENING.
#pragma once

#include "platform/acad/AcDbObjectId.h"
#include "platform/dbobject/KyDbOpeningBase.h"

class KyDbOpening : public KyDbOpeningBase {
 public:
  ACRX_DECLARE_MEMBERS(KyDbOpening);

  // The kinds of opening; the numbers are stored in drawings.
  enum Kind {
    kDoor = 0,
    kWindow = 1,
    kHole = 2,
    kHighWindow = 3,
    kBayWindow = 4,
    kBandWindow = 5,
    kDoorWindow = 6,  // a door with a window beside it
  };

  KyDbOpening();
  explicit KyDbOpening(int kind);
  KyDbOpening(int kind, double width, double height);
  ~KyDbOpening() override;

  // The kind as stored: a drawing from a later version may hold a number
  // outside the list above.
  int GetKind() const { return kind_; }
  void SetKind(int kind) { kind_ = kind; }
  double GetWidth() const { return width_; }
  Acad::ErrorStatus SetWidth(double width);
  // The styles of the opening's plan and model drawing (blocks of the
  // drawing); null when drawn plainly.
  AcDbObjectId GetStyle2d() const { return style2d_; }
  AcDbObjectId GetStyle3d() const { return style3d_; }
  Acad::ErrorStatus SetStyle2d(AcDbObjectId id);
  Acad::ErrorStatus SetStyle3d(AcDbObjectId id);

  // "DOOR", "WINDOW", ... by kind, unless a key was given.
  CString GetLayerKey() const override;

  Acad::ErrorStatus dxfOutFields(AcDbDxfFiler *filer) const override;
  Acad::ErrorStatus dxfInFields(AcDbDxfFiler *filer) override;

 private:
  int kind_ = kDoor;
  double width_ = 0.0;
  AcDbObjectId style2d_;
  AcDbObjectId style3d_;
};
