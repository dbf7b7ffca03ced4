// An object that a block holds and that the host draws: the properties
// every entity has. An entity takes the database's defaults (current
// layer, colour and line type "by layer") when a block receives it with
// none set.
#pragma once

#include "platform/acad/AcCmColor.h"
#include "platform/acad/AcDbObject.h"

class AcDbEntity : public AcDbObject {
 public:
  ACRX_DECLARE_MEMBERS(AcDbEntity);

  AcDbEntity();
  ~AcDbEntity() override;

  // The block table record that holds the entity; null until one does.
  AcDbObjectId blockId() const;

  // The layer's name, a new text the caller frees with acutDelString; null
  // when no layer is set.
  ACHAR *layer() const;
  AcDbObjectId layerId() const;
  // By name, looked up in the database of the entity, or the working
  // database for an entity no database holds yet: eKeyNotFound if missing.
  Acad::ErrorStatus setLayer(const ACHAR *newVal, bool doSubents = true, bool allowHiddenLayer = false);
  Acad::ErrorStatus setLayer(AcDbObjectId newVal, bool doSubents = true, bool allowHiddenLayer = false);

  AcCmColor color() const;
  Acad::ErrorStatus setColor(const AcCmColor &color, bool doSubents = true);
  Adesk::UInt16 colorIndex() const;
  Acad::ErrorStatus setColorIndex(Adesk::UInt16 color, bool doSubents = true);

  ACHAR *linetype() const;
  AcDbObjectId linetypeId() const;
  Acad::ErrorStatus setLinetype(const ACHAR *newVal, bool doSubents = true);
  Acad::ErrorStatus setLinetype(AcDbObjectId newVal, bool doSubents = true);
  double linetypeScale() const;
  Acad::ErrorStatus setLinetypeScale(double scale, bool doSubents = true);

  AcDb::LineWeight lineWeight() const;
  Acad::ErrorStatus setLineWeight(AcDb::LineWeight weight, bool doSubents = true);

  // Current layer, colour and line type "by layer", line weight "by layer".
  void setDatabaseDefaults(AcDbDatabase *db = nullptr);

  Acad::ErrorStatus dxfOutFields(AcDbDxfFiler *filer) const override;
  Acad::ErrorStatus dxfInFields(AcDbDxfFiler *filer) override;

 private:
  friend class tolv::ObjectAccess;
  AcDbObjectId layerId_;
  AcDbObjectId linetypeId_;
  AcCmColor color_;
  double linetypeScale_ = 1.0;
  AcDb::LineWeight lineWeight_ = AcDb::kLnWtByLayer;
};

// acdbOpenAcDbObject for an entity: eNotAnEntity (and nothing opened) for
// an object that is not one.
Acad::ErrorStatus acdbOpenAcDbEntity(AcDbEntity *&ent, AcDbObjectId id, AcDb::OpenMode mode,
                                     bool openErased = false);
