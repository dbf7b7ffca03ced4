#include "project/KyDtProjectModels.h"

#include "project/ProjectProxyFamily.h"

using namespace tolv::project;

KyDtDictReferenceItem *KyDtProjectFloorModel::FloorView() { return ReferenceAt(m_pDict, L"FLOOR_VIEW"); }

bool KyDtPrjFloor::BindDict(KyDtDictionary *dict) {
  m_pDict = dict;
  KyDtDictionary *model = dict ? dict->FindOrAddDict(L"FLOOR_MODEL") : nullptr;
  if (!model) return false;
  return m_floorModel.BindDict(model);
}

KyDtPrjFloor *KyDtPrjFloor::GetSubFloor(const wchar_t *name) {
  return GetChild<KyDtPrjFloor>(m_pDict, L"SUB_FLOORS\\", name);
}

KyDtPrjFloor *KyDtPrjFloor::AddSubFloor(const wchar_t *name) {
  return AddChild<KyDtPrjFloor>(m_pDict, L"SUB_FLOORS\\", name, L"SubFloor");
}

void KyDtPrjFloor::DelSubFloor(const wchar_t *name) { DelChild(m_pDict, L"SUB_FLOORS\\", name); }

void KyDtPrjFloor::GetAllSubFloor(KyPDList<KyDtPrjFloor> &list) {
  GetAllChildren(m_pDict->FindDict(L"SUB_FLOORS"), L"SubFloor", list);
}

double KyDtPrjFloor::GetHeight() const {
  double height = 3000.0;
  m_pDict->GetValue(L"FLOOR_HEIGHT", height);
  return height;
}

void KyDtPrjFloor::SetHeight(double height) { m_pDict->SetValue(L"FLOOR_HEIGHT", height); }

KyDtPrjFloor *KyDtProjectRegion::GetFloor(const wchar_t *name) {
  return GetChild<KyDtPrjFloor>(m_pDict, L"FLOORS\\", name);
}

KyDtPrjFloor *KyDtProjectRegion::AddFloor(const wchar_t *name) {
  return AddChild<KyDtPrjFloor>(m_pDict, L"FLOORS\\", name, L"Floor");
}

void KyDtProjectRegion::DelFloor(const wchar_t *name) { DelChild(m_pDict, L"FLOORS\\", name); }

void KyDtProjectRegion::GetAllFloor(KyPDList<KyDtPrjFloor> &list) {
  GetAllChildren(m_pDict->FindDict(L"FLOORS"), L"Floor", list);
}

AcGePoint3d KyDtProjectRegion::GetBasePoint() const {
  AcGePoint3d point;
  ReadXYZ(m_pDict, L"BASE", point.x, point.y, point.z);
  return point;
}

void KyDtProjectRegion::SetBasePoint(AcGePoint3d point) { WriteXYZ(m_pDict, L"BASE", L"Point", point.x, point.y, point.z); }

CString KyDtProjectRegion::GetRegionOutlineHandle() const {
  CString handle;
  m_pDict->GetValue(L"REGION_OUTLINE_ENT", handle);
  return handle;
}

void KyDtProjectRegion::SetRegionOutlineHandle(CString handle) { m_pDict->SetValue(L"REGION_OUTLINE_ENT", handle); }

KyDtProjectRegion *KyDtProjectModels::GetRegion(const wchar_t *name) {
  return GetChild<KyDtProjectRegion>(m_pDict, L"", name);
}

KyDtProjectRegion *KyDtProjectModels::AddRegion(const wchar_t *name) {
  return AddChild<KyDtProjectRegion>(m_pDict, L"", name, L"Region");
}

void KyDtProjectModels::DelRegion(const wchar_t *name) { DelChild(m_pDict, L"", name); }

void KyDtProjectModels::GetAllRegion(KyPDList<KyDtProjectRegion> &list) {
  GetAllChildren(m_pDict, L"Region", list);
}

KyDtDictReferenceItem *KyDtProjectModels::CSFile() { return ReferenceAt(m_pDict, L"CS_FILE"); }
