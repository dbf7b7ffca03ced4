#include "project/KyDtProjectView.h"

#include "project/ProjectProxyFamily.h"

using namespace tolv::project;

bool KyDtProjectView::BindDict(KyDtDictionary *dict) {
  m_pDict = dict;
  KyDtDictionary *model = dict ? dict->FindOrAddDict(L"VIEW_MODEL") : nullptr;
  if (!model) return false;
  return m_viewModel.BindDict(model);
}

KyDtDictReferenceItem *KyDtProjectView::File() { return ReferenceAt(m_pDict, L"FILE"); }

KyDtDictReferenceItem *KyDtProjectView::Drawing() { return ReferenceAt(m_pDict, L"DRAWING"); }

double KyDtProjectView::GetPrintScale() const {
  double scale = 100.0;
  m_pDict->GetValue(L"PRINT_SCALE", scale);
  return scale;
}

void KyDtProjectView::SetPrintScale(double scale) { m_pDict->SetValue(L"PRINT_SCALE", scale); }

CString KyDtProjectView::GetViewType() const {
  CString type;
  m_pDict->GetValue(L"VIEW_TYPE", type);
  return type;
}

void KyDtProjectView::SetViewType(CString type) { m_pDict->SetValue(L"VIEW_TYPE", type); }

CString KyDtProjectView::GetViewFrameHandle() const {
  CString handle;
  m_pDict->GetValue(L"VIEW_FRAME_ENT", handle);
  return handle;
}

void KyDtProjectView::SetViewFrameHandle(CString handle) { m_pDict->SetValue(L"VIEW_FRAME_ENT", handle); }

AcGePoint3d KyDtProjectView::GetBasePoint() const {
  AcGePoint3d point;
  ReadXYZ(m_pDict, L"BASE", point.x, point.y, point.z);
  return point;
}

void KyDtProjectView::SetBasePoint(AcGePoint3d point) { WriteXYZ(m_pDict, L"BASE", L"Point", point.x, point.y, point.z); }

void KyDtProjectView::GetViewDirection(AcGeVector3d &view, AcGeVector3d &up) {
  ReadXYZ(m_pDict, L"VIEW_DIRECTION\\VIEW_VECTOR", view.x, view.y, view.z);
  ReadXYZ(m_pDict, L"VIEW_DIRECTION\\UP_VECTOR", up.x, up.y, up.z);
}

void KyDtProjectView::SetViewDirection(AcGeVector3d view, AcGeVector3d up) {
  WriteXYZ(m_pDict, L"VIEW_DIRECTION\\VIEW_VECTOR", L"Vector", view.x, view.y, view.z);
  WriteXYZ(m_pDict, L"VIEW_DIRECTION\\VIEW_VECTOR", L"Vector", up.x, up.y, up.z);
}

KyDtDictReferenceItem *KyDtProjectDrawing::File() { return ReferenceAt(m_pDict, L"FILE"); }

CString KyDtProjectDrawing::GetDrawingFrameHandle() const {
  CString handle;
  m_pDict->GetValue(L"DRAWING_FRAME_ENT", handle);
  return handle;
}

void KyDtProjectDrawing::SetDrawingFrameHandle(CString handle) { m_pDict->SetValue(L"DRAWING_FRAME_ENT", handle); }

KyDtDictReferenceItem *KyDtProjectDrawing::AddViewDef() {
  KyDtDictionary *views = m_pDict->FindOrAddDict(L"SUB_VIEWS");
  if (!views) return nullptr;
  auto *reference = new KyDtDictReferenceItem;
  if (!views->AppendItem(reference)) {
    delete reference;
    return nullptr;
  }
  return reference;
}

KyDtDictReferenceItem *KyDtProjectDrawing::GetViewRef(std::int32_t index) {
  KyDtDictionary *views = m_pDict->FindDict(L"SUB_VIEWS");
  if (!views) return nullptr;
  KyDtDictItem *item = views->GetAt(index);
  return item && item->GetType() == KyDtDictItem::DT_REFERENCE ? static_cast<KyDtDictReferenceItem *>(item)
                                                               : nullptr;
}

void KyDtProjectDrawing::DelSubViewDef(std::int32_t index) {
  if (KyDtDictionary *views = m_pDict->FindDict(L"SUB_VIEWS")) views->Del(index);
}

void KyDtProjectDrawing::ClearSubViewDef() {
  if (KyDtDictionary *views = m_pDict->FindDict(L"SUB_VIEWS")) views->Reset();
}

void KyDtProjectDrawing::GetAllSubViewRef(KyDList<KyDtDictReferenceItem *> &list) {
  KyDtDictionary *views = m_pDict->FindDict(L"SUB_VIEWS");
  if (!views) return;
  for (KyDtDictItem *const *p = views->GetFirst(); p; p = views->GetNext(p)) {
    if (*p && (*p)->GetType() == KyDtDictItem::DT_REFERENCE) list.Append(static_cast<KyDtDictReferenceItem *>(*p));
  }
}

std::int32_t KyDtProjectDrawing::GetSubViewRefNum() { return m_pDict->FindDict(L"SUB_VIEWS")->GetLength(); }
