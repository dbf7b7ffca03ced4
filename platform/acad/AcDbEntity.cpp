#include "platform/acad/AcDbEntity.h"

#include "platform/acad/AcDbHostApplicationServices.h"
#include "platform/acad/AcDbSymbolTables.h"
#include "platform/acad/AdsResbuf.h"
#include "platform/acad/DbInternals.h"

ACRX_NO_CONS_DEFINE_MEMBERS(AcDbEntity, AcDbObject)

namespace {

AcDbDatabase *DatabaseFor(const AcDbEntity *ent) {
  return ent->database() ? ent->database() : acdbHostApplicationServices()->workingDatabase();
}

ACHAR *RecordName(AcDbObjectId id) {
  auto *rec = tolv::ObjectAccess::PeekAs<AcDbSymbolTableRecord>(id);
  if (!rec) return nullptr;
  ACHAR *name = nullptr;
  rec->getName(name);
  return name;
}

std::wstring RecordNameText(AcDbObjectId id) {
  auto *rec = tolv::ObjectAccess::PeekAs<AcDbSymbolTableRecord>(id);
  const ACHAR *name = nullptr;
  if (rec) rec->getName(name);
  return name ? name : L"";
}

// Entity properties of the file that are kept and written back; those of
// later releases (true colour, transparency, materials) are left out, so
// that the file stays one of its release.
bool KeepEntityExtra(int code) { return code == 60; }

}  // namespace

AcDbEntity::AcDbEntity() = default;
AcDbEntity::~AcDbEntity() = default;

AcDbObjectId AcDbEntity::blockId() const {
  return AcDbBlockTableRecord::cast(tolv::ObjectAccess::Peek(ownerId())) ? ownerId() : AcDbObjectId();
}

ACHAR *AcDbEntity::layer() const { return RecordName(layerId_); }
AcDbObjectId AcDbEntity::layerId() const { return layerId_; }

Acad::ErrorStatus AcDbEntity::setLayer(const ACHAR *newVal, bool, bool) {
  if (Acad::ErrorStatus es = checkWriteEnabled(); es != Acad::eOk) return es;
  if (!newVal) return Acad::eInvalidInput;
  AcDbDatabase *db = DatabaseFor(this);
  if (!db) return Acad::eWrongDatabase;
  AcDbObjectId id = tolv::FindRecord(tolv::ObjectAccess::Db(db).layerTable, newVal);
  if (id.isNull()) return Acad::eKeyNotFound;
  layerId_ = id;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbEntity::setLayer(AcDbObjectId newVal, bool, bool) {
  if (Acad::ErrorStatus es = checkWriteEnabled(); es != Acad::eOk) return es;
  if (!AcDbLayerTableRecord::cast(tolv::ObjectAccess::Peek(newVal))) return Acad::eWrongObjectType;
  layerId_ = newVal;
  return Acad::eOk;
}

AcCmColor AcDbEntity::color() const { return color_; }

Acad::ErrorStatus AcDbEntity::setColor(const AcCmColor &color, bool) {
  if (Acad::ErrorStatus es = checkWriteEnabled(); es != Acad::eOk) return es;
  color_ = color;
  return Acad::eOk;
}

Adesk::UInt16 AcDbEntity::colorIndex() const { return color_.colorIndex(); }

Acad::ErrorStatus AcDbEntity::setColorIndex(Adesk::UInt16 color, bool) {
  if (Acad::ErrorStatus es = checkWriteEnabled(); es != Acad::eOk) return es;
  return color_.setColorIndex(color);
}

ACHAR *AcDbEntity::linetype() const { return RecordName(linetypeId_); }
AcDbObjectId AcDbEntity::linetypeId() const { return linetypeId_; }

Acad::ErrorStatus AcDbEntity::setLinetype(const ACHAR *newVal, bool) {
  if (Acad::ErrorStatus es = checkWriteEnabled(); es != Acad::eOk) return es;
  if (!newVal) return Acad::eInvalidInput;
  AcDbObjectId id = tolv::FindLinetype(DatabaseFor(this), newVal);
  if (id.isNull()) return Acad::eKeyNotFound;
  linetypeId_ = id;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbEntity::setLinetype(AcDbObjectId newVal, bool) {
  if (Acad::ErrorStatus es = checkWriteEnabled(); es != Acad::eOk) return es;
  if (!AcDbLinetypeTableRecord::cast(tolv::ObjectAccess::Peek(newVal))) return Acad::eWrongObjectType;
  linetypeId_ = newVal;
  return Acad::eOk;
}

double AcDbEntity::linetypeScale() const { return linetypeScale_; }

Acad::ErrorStatus AcDbEntity::setLinetypeScale(double scale, bool) {
  if (Acad::ErrorStatus es = checkWriteEnabled(); es != Acad::eOk) return es;
  if (!(scale > 0.0)) return Acad::eInvalidInput;
  linetypeScale_ = scale;
  return Acad::eOk;
}

AcDb::LineWeight AcDbEntity::lineWeight() const { return lineWeight_; }

Acad::ErrorStatus AcDbEntity::setLineWeight(AcDb::LineWeight weight, bool) {
  if (Acad::ErrorStatus es = checkWriteEnabled(); es != Acad::eOk) return es;
  if (weight < -3 || weight > 211) return Acad::eInvalidInput;
  lineWeight_ = weight;
  return Acad::eOk;
}

void AcDbEntity::setDatabaseDefaults(AcDbDatabase *db) {
  if (!db) db = DatabaseFor(this);
  if (!db) return;
  layerId_ = db->clayer();
  linetypeId_ = db->celtype();
  if (linetypeId_.isNull()) linetypeId_ = db->byLayerLinetype();
  color_.setByLayer();
  lineWeight_ = AcDb::kLnWtByLayer;
  linetypeScale_ = 1.0;
}

Acad::ErrorStatus AcDbEntity::dxfOutFields(AcDbDxfFiler *filer) const {
  filer->writeString(100, L"AcDbEntity");
  AcDbDatabase *db = database();
  if (db && !ownerId().isNull() && ownerId() == db->paperSpaceId()) filer->writeInt16(67, 1);
  std::wstring layerName = RecordNameText(layerId_);
  filer->writeString(8, layerName.empty() ? L"0" : layerName);
  if (!linetypeId_.isNull() && (!db || linetypeId_ != db->byLayerLinetype())) {
    filer->writeString(6, RecordNameText(linetypeId_));
  }
  if (!color_.isByLayer()) filer->writeInt16(62, static_cast<Adesk::Int16>(color_.colorIndex()));
  if (lineWeight_ != AcDb::kLnWtByLayer) filer->writeInt16(370, static_cast<Adesk::Int16>(lineWeight_));
  if (linetypeScale_ != 1.0) filer->writeDouble(48, linetypeScale_);
  for (const tolv::DxfTag &t : tolv::ObjectAccess::State(this).entityExtras) filer->writeTag(t);
  return Acad::eOk;
}

namespace {

void TakeCommonField(AcDbEntity *ent, const tolv::DxfTag &tag, AcDbObjectId &layer, AcDbObjectId &linetype,
                     AcCmColor &color, AcDb::LineWeight &weight, double &scale) {
  AcDbDatabase *db = ent->database();
  switch (tag.code) {
    case 8:
      layer = tolv::EnsureLayer(db, tag.text.empty() ? L"0" : tag.text);
      break;
    case 6:
      linetype = tolv::FindLinetype(db, tag.text);
      if (linetype.isNull() && db) linetype = db->byLayerLinetype();
      break;
    case 62:
      if (tag.integer >= 0 && tag.integer <= 256) color.setColorIndex(static_cast<Adesk::UInt16>(tag.integer));
      break;
    case 370:
      if (tag.integer >= -3 && tag.integer <= 211) weight = static_cast<AcDb::LineWeight>(tag.integer);
      break;
    case 48:
      if (tag.real > 0.0) scale = tag.real;
      break;
    default:
      if (KeepEntityExtra(tag.code)) tolv::ObjectAccess::State(ent).entityExtras.push_back(tag);
      break;
  }
}

bool IsCommonCode(int code) {
  return code == 8 || code == 6 || code == 62 || code == 370 || code == 48 || code == 67 || code == 60 ||
         code == 410 || code == 420 || code == 430 || code == 440 || code == 347 || code == 348 || code == 390 ||
         code == 284 || code == 92 || code == 160 || code == 310;
}

}  // namespace

Acad::ErrorStatus AcDbEntity::dxfInFields(AcDbDxfFiler *filer) {
  tolv::ObjectAccess::State(this).entityExtras.clear();
  AcDbDatabase *db = database();
  if (db) {
    layerId_ = tolv::EnsureLayer(db, L"0");
    linetypeId_ = db->byLayerLinetype();
  }
  color_.setByLayer();
  lineWeight_ = AcDb::kLnWtByLayer;
  linetypeScale_ = 1.0;
  if (filer->atSubclassData(L"AcDbEntity")) {
    tolv::DxfTag tag;
    while (filer->readTag(tag)) {
      if (tag.code == 100) {
        filer->pushBackItem();
        break;
      }
      TakeCommonField(this, tag, layerId_, linetypeId_, color_, lineWeight_, linetypeScale_);
    }
    return Acad::eOk;
  }
  // A file of the old kind has no subclass markers: the common fields
  // stand among the entity's own, before any marker.
  std::vector<tolv::DxfTag> &tags = filer->tags();
  std::size_t from = filer->position();
  std::size_t end = from;
  while (end < tags.size() && tags[end].code != 100) ++end;
  std::vector<tolv::DxfTag> kept;
  for (std::size_t i = from; i < tags.size(); ++i) {
    if (i < end && IsCommonCode(tags[i].code)) {
      TakeCommonField(this, tags[i], layerId_, linetypeId_, color_, lineWeight_, linetypeScale_);
    } else {
      kept.push_back(tags[i]);
    }
  }
  tags.resize(from);
  tags.insert(tags.end(), kept.begin(), kept.end());
  return Acad::eOk;
}

Acad::ErrorStatus acdbOpenAcDbEntity(AcDbEntity *&ent, AcDbObjectId id, AcDb::OpenMode mode, bool openErased) {
  ent = nullptr;
  AcDbObject *obj = nullptr;
  Acad::ErrorStatus es = acdbOpenAcDbObject(obj, id, mode, openErased);
  if (es != Acad::eOk) return es;
  ent = AcDbEntity::cast(obj);
  if (!ent) {
    obj->close();
    return Acad::eNotAnEntity;
  }
  return Acad::eOk;
}
