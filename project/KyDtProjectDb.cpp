#include "project/KyDtProjectDb.h"

#include "platform/utility/SupportFiles.h"
#include "project/ProjectPaths.h"

using namespace tolv::project;

KyDtProjectDb::~KyDtProjectDb() = default;

bool KyDtProjectDb::BindDict() {
  struct Part {
    const wchar_t *key;
    KyDtProjectDictProxy *proxy;
  };
  const Part parts[] = {{L"MODELS", &m_models},
                        {L"VIEWS", &m_views},
                        {L"DRAWINGS", &m_drawings},
                        {L"FILES", &m_files},
                        {L"SETTINGS", &m_settings}};
  for (const Part &part : parts) {
    KyDtDictionary *dict = FindOrAddDict(part.key);
    if (!dict || !part.proxy->BindDict(dict)) return false;
  }
  return true;
}

bool KyDtProjectDb::ReadFromXML(const wchar_t *path) {
  if (!KyDtDictionary::ReadFromXML(path) || !BindDict()) return false;
  m_strProjectFile = path;
  return true;
}

bool KyDtProjectDb::SaveToXML(const wchar_t *path) {
  if (!KyDtDictionary::SaveToXML(path)) return false;
  m_strProjectFile = path;
  return true;
}

bool KyDtProjectDb::Save() { return SaveToXML(m_strProjectFile); }

bool KyDtProjectDb::Initialize() {
  CString path;
  if (!FindFile(L"template.orpx", path)) return false;
  return ReadFromXML(path);
}

void KyDtProjectDb::Reset() {
  m_strProjectFile.Empty();
  KyDtDictionary::Reset();
}

bool KyDtProjectDb::GetProjectName(CString &name) const { return FileNameOf(m_strProjectFile, name); }

bool KyDtProjectDb::GetProjectDirectory(CString &path) const { return FolderOf(m_strProjectFile, path); }

CString KyDtProjectDb::GetDwgRelativeName(CString name) const {
  CString folder;
  GetProjectDirectory(folder);
  return RelativeDrawingName(folder, name);
}

CString KyDtProjectDb::GetDwgFullName(CString name) const {
  CString folder;
  GetProjectDirectory(folder);
  return FullDrawingName(folder, name);
}
