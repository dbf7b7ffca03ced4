// Entities and objects of a drawing file that the stand-in does not model:
// they keep the group codes of the file after the common part and write
// them back unchanged, so a drawing survives being read and saved. Values
// that point at other objects are kept as object ids, so they follow the
// objects when handles change.
#pragma once

#include <string>
#include <vector>

#include "platform/acad/AcDbDxfFiler.h"
#include "platform/acad/AcDbEntity.h"

namespace tolv {

class CarriedEntity : public AcDbEntity {
 public:
  ACRX_DECLARE_MEMBERS(CarriedEntity);
  CarriedEntity() = default;
  explicit CarriedEntity(std::wstring dxfName) : dxfName_(std::move(dxfName)) {}

  const std::wstring &dxfName() const { return dxfName_; }
  void setDxfName(std::wstring name) { dxfName_ = std::move(name); }
  const std::vector<DxfTag> &carriedTags() const { return tags_; }

  Acad::ErrorStatus dxfOutFields(AcDbDxfFiler *filer) const override;
  Acad::ErrorStatus dxfInFields(AcDbDxfFiler *filer) override;

 private:
  std::wstring dxfName_;
  std::vector<DxfTag> tags_;
};

class CarriedObject : public AcDbObject {
 public:
  ACRX_DECLARE_MEMBERS(CarriedObject);
  CarriedObject() = default;
  explicit CarriedObject(std::wstring dxfName, std::vector<DxfTag> tags = {})
      : dxfName_(std::move(dxfName)), tags_(std::move(tags)) {}

  const std::wstring &dxfName() const { return dxfName_; }
  void setDxfName(std::wstring name) { dxfName_ = std::move(name); }
  const std::vector<DxfTag> &carriedTags() const { return tags_; }
  std::vector<DxfTag> &carriedTags() { return tags_; }

  Acad::ErrorStatus dxfOutFields(AcDbDxfFiler *filer) const override;
  Acad::ErrorStatus dxfInFields(AcDbDxfFiler *filer) override;

 private:
  std::wstring dxfName_;
  std::vector<DxfTag> tags_;
};

// The name after group code 0 for an object: its class's DXF name, or the
// name a carried object came with; empty when the object has none.
std::wstring DxfNameOf(const AcDbObject *obj);

}  // namespace tolv

// A viewport of paper space. Only its class is modelled (commands ask
// whether an entity is one); its data are carried through.
class AcDbViewport : public tolv::CarriedEntity {
 public:
  ACRX_DECLARE_MEMBERS(AcDbViewport);
  AcDbViewport() : CarriedEntity(L"VIEWPORT") {}
};
