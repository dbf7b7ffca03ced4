#include "project/KyDtProjectGroups.h"

#include "project/ProjectProxyFamily.h"

using namespace tolv::project;

bool KyDtProjectGroupOwner::BindDict(KyDtDictionary *dict) {
  m_pDict = dict;
  KyDtDictionary *group = dict ? dict->FindOrAddDict(L"GROUP") : nullptr;
  if (!group) return false;
  return m_groupDef.BindDict(group);
}

KyDtProjectView *KyDtProjectViews::GetView(const wchar_t *name) { return GetChild<KyDtProjectView>(m_pDict, L"", name); }

KyDtProjectView *KyDtProjectViews::AddView(const wchar_t *name) {
  return AddChild<KyDtProjectView>(m_pDict, L"", name, L"View");
}

void KyDtProjectViews::DelView(const wchar_t *name) { DelChild(m_pDict, L"", name); }

void KyDtProjectViews::GetAllView(KyPDList<KyDtProjectView> &list) { GetAllChildren(m_pDict, L"View", list); }

KyDtProjectDrawing *KyDtProjectDrawings::GetDrawing(const wchar_t *name) {
  return GetChild<KyDtProjectDrawing>(m_pDict, L"", name);
}

KyDtProjectDrawing *KyDtProjectDrawings::AddDrawing(const wchar_t *name) {
  return AddChild<KyDtProjectDrawing>(m_pDict, L"", name, L"Drawing");
}

void KyDtProjectDrawings::DelDrawing(const wchar_t *name) { DelChild(m_pDict, L"", name); }

void KyDtProjectDrawings::GetAllDrawing(KyPDList<KyDtProjectDrawing> &list) {
  GetAllChildren(m_pDict, L"Drawing", list);
}

KyDtPrjFile *KyDtProjectFiles::GetFile(const wchar_t *name) { return GetChild<KyDtPrjFile>(m_pDict, L"", name); }

KyDtPrjFile *KyDtProjectFiles::AddFile(const wchar_t *name) {
  return AddChild<KyDtPrjFile>(m_pDict, L"", name, L"File");
}

void KyDtProjectFiles::DelFile(const wchar_t *name) { DelChild(m_pDict, L"", name); }

void KyDtProjectFiles::GetAllFile(KyPDList<KyDtPrjFile> &list) { GetAllChildren(m_pDict, L"File", list); }
