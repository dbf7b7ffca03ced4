// The model side of the project database: regions, their floors and the
// floors' sub-floors.
//
//   MODELS\CS_FILE                      reference
//   MODELS\(region)                     class "Region"; the main one is "0"
//     BASE                              class "Point": X, Y, Z
//     REGION_OUTLINE_ENT                the outline entity's handle
//     FLOORS\(floor)                    class "Floor"
//       FLOOR_HEIGHT                    3000 when absent
//       FLOOR_MODEL\FLOOR_VIEW          reference to the view of the floor
//       SUB_FLOORS\(sub)                class "SubFloor", the same again
//
// Get and Add answer a new proxy that the caller deletes; GetAll fills an
// owning list.
#pragma once

#include "containers/KyPDList.h"
#include "platform/acad/AcGePoint3d.h"
#include "project/KyDtProjectDictProxy.h"

class KyDtDictReferenceItem;

// "FLOOR_MODEL" of a floor.
class KyDtProjectFloorModel : public KyDtProjectDictProxy {
 public:
  // The reference "FLOOR_VIEW", made when missing.
  KyDtDictReferenceItem *FloorView();
};

// A floor ("Floor") or a sub-floor ("SubFloor").
class KyDtPrjFloor : public KyDtProjectDictProxy {
 public:
  // Also binds the floor model, adding "FLOOR_MODEL" when missing.
  bool BindDict(KyDtDictionary *dict) override;

  KyDtPrjFloor *GetSubFloor(const wchar_t *name);
  KyDtPrjFloor *AddSubFloor(const wchar_t *name);
  void DelSubFloor(const wchar_t *name);
  void GetAllSubFloor(KyPDList<KyDtPrjFloor> &list);

  // 3000 unless "FLOOR_HEIGHT" holds a value; asking creates nothing.
  double GetHeight() const;
  void SetHeight(double height);

  KyDtProjectFloorModel &FloorModel() { return m_floorModel; }

 private:
  KyDtProjectFloorModel m_floorModel;
};

// A region of the building ("Region").
class KyDtProjectRegion : public KyDtProjectDictProxy {
 public:
  KyDtPrjFloor *GetFloor(const wchar_t *name);
  KyDtPrjFloor *AddFloor(const wchar_t *name);
  void DelFloor(const wchar_t *name);
  void GetAllFloor(KyPDList<KyDtPrjFloor> &list);

  // The origin unless "BASE" is there.
  AcGePoint3d GetBasePoint() const;
  void SetBasePoint(AcGePoint3d point);
  // Empty when absent.
  CString GetRegionOutlineHandle() const;
  void SetRegionOutlineHandle(CString handle);
};

// "MODELS".
class KyDtProjectModels : public KyDtProjectDictProxy {
 public:
  KyDtProjectRegion *GetRegion(const wchar_t *name);
  KyDtProjectRegion *AddRegion(const wchar_t *name);
  void DelRegion(const wchar_t *name);
  void GetAllRegion(KyPDList<KyDtProjectRegion> &list);

  // The region "0".
  KyDtProjectRegion *MainRegion() { return GetRegion(L"0"); }
  // The reference "CS_FILE", made when missing.
  KyDtDictReferenceItem *CSFile();
};
