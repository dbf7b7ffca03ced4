// The owners of the paper side and the files of the project database:
// "VIEWS", "DRAWINGS", "FILES", each with its "GROUP" dictionary of group
// definitions, and "SETTINGS". Their children are marked by class name
// ("View", "Drawing", "File"); Get and Add answer a new proxy that the
// caller deletes, GetAll fills an owning list and passes "GROUP" over.
#pragma once

#include "containers/KyPDList.h"
#include "project/KyDtProjectDictProxy.h"
#include "project/KyDtProjectView.h"

// "GROUP": group definitions, kept for other modules of the add-on.
class KyDtProjectGroupDef : public KyDtProjectDictProxy {};

// A file of the project ("File"); it has no fixed keys.
class KyDtPrjFile : public KyDtProjectDictProxy {};

// "SETTINGS": project settings with no fixed keys.
class KyDtProjectSettings : public KyDtProjectDictProxy {};

// The common part of the three owners: binding adds "GROUP" when missing.
class KyDtProjectGroupOwner : public KyDtProjectDictProxy {
 public:
  bool BindDict(KyDtDictionary *dict) override;
  KyDtProjectGroupDef &GroupDef() { return m_groupDef; }

 private:
  KyDtProjectGroupDef m_groupDef;
};

// "VIEWS".
class KyDtProjectViews : public KyDtProjectGroupOwner {
 public:
  KyDtProjectView *GetView(const wchar_t *name);
  KyDtProjectView *AddView(const wchar_t *name);
  void DelView(const wchar_t *name);
  void GetAllView(KyPDList<KyDtProjectView> &list);
};

// "DRAWINGS".
class KyDtProjectDrawings : public KyDtProjectGroupOwner {
 public:
  KyDtProjectDrawing *GetDrawing(const wchar_t *name);
  KyDtProjectDrawing *AddDrawing(const wchar_t *name);
  void DelDrawing(const wchar_t *name);
  void GetAllDrawing(KyPDList<KyDtProjectDrawing> &list);
};

// "FILES".
class KyDtProjectFiles : public KyDtProjectGroupOwner {
 public:
  KyDtPrjFile *GetFile(const wchar_t *name);
  KyDtPrjFile *AddFile(const wchar_t *name);
  void DelFile(const wchar_t *name);
  void GetAllFile(KyPDList<KyDtPrjFile> &list);
};
