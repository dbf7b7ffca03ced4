// The base of every building object of the add-on in a drawing.
#pragma once

#include "platform/acad/AcDbEntity.h"
#include "platform/mfc/CString.h"

class KyDbEntity : public AcDbEntity {
 public:
  ACRX_DECLARE_MEMBERS(KyDbEntity);

  KyDbEntity();
  ~KyDbEntity() override;

  // The key of the layer standard that the object is drawn on ("WALL",
  // "DOOR", ...): the data layer turns it into a layer of the drawing.
  // Each kind of object answers its own; the base keeps the key it is given.
  virtual CString GetLayerKey() const;
  void SetLayerKey(const CString &key) { layerKey_ = key; }

 private:
  CString layerKey_;
};
