// A door, window or hole set into a wall.
#pragma once

#include "platform/dbobject/KyDbEntity.h"

class KyDbOpening : public KyDbEntity {
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
  ~KyDbOpening() override;

  // The kind as stored: a drawing from a later version may hold a number
  // outside the list above.
  int GetKind() const { return kind_; }
  void SetKind(int kind) { kind_ = kind; }

 private:
  int kind_ = kDoor;
};
