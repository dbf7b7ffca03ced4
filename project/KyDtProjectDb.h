// KyDtProjectDb: the project in its dictionary form, with five proxies on
// its parts "MODELS", "VIEWS", "DRAWINGS", "FILES" and "SETTINGS".
//
// The proxies are bound by BindDict, which every read runs and which adds
// the parts a file lacks, so reading a file and saving it brings it up to
// the current form. Reset frees the tree and leaves the proxies dangling
// until the next bind.
#pragma once

#include "dictionary/KyDtDictionary.h"
#include "project/KyDtProjectGroups.h"
#include "project/KyDtProjectModels.h"

class KyDtProjectDb : public KyDtDictionary {
 public:
  KyDtProjectDb() = default;
  KyDtProjectDb(const KyDtProjectDb &) = delete;
  KyDtProjectDb &operator=(const KyDtProjectDb &) = delete;
  ~KyDtProjectDb() override;

  // Finds or adds the five parts, in the order above, and binds their
  // proxies; false at the first that fails.
  bool BindDict();
  // The dictionary's read, then BindDict; the path is kept only when both
  // succeed.
  bool ReadFromXML(const wchar_t *path);
  // The dictionary's save; the path is kept when it succeeds.
  bool SaveToXML(const wchar_t *path);
  // Saves to the kept path.
  bool Save();
  // Reads the support file "template.orpx"; false when there is none.
  bool Initialize();
  // Forgets the path and frees every item.
  void Reset() override;

  CString GetProjectFile() const { return m_strProjectFile; }
  // The file name behind the last backslash; false, leaving `name` alone,
  // when there is none.
  bool GetProjectName(CString &name) const;
  // The folder up to and including the last backslash; false, leaving
  // `path` alone, when there is none.
  bool GetProjectDirectory(CString &path) const;
  // As KyDtProject's, with this project's folder.
  CString GetDwgRelativeName(CString name) const;
  CString GetDwgFullName(CString name) const;

  KyDtProjectModels &Models() { return m_models; }
  KyDtProjectViews &Views() { return m_views; }
  KyDtProjectDrawings &Drawings() { return m_drawings; }
  KyDtProjectFiles &Files() { return m_files; }
  KyDtProjectSettings &Settings() { return m_settings; }

 protected:
  CString m_strProjectFile;
  KyDtProjectModels m_models;
  KyDtProjectViews m_views;
  KyDtProjectDrawings m_drawings;
  KyDtProjectFiles m_files;
  KyDtProjectSettings m_settings;
};
