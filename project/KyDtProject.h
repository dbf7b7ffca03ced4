// KyDtProject: the project file in memory, root element "TolvProject".
//
// Two children are known by name: the directory "FLOOR_TABLE", whose
// "Floor" children run from the lowest floor to the highest, and the
// directory "DWG_SET" with the other drawings, nested as the user likes.
// Drawing names are relative to the folder of the project file; paths are
// the system's, with backslashes.
#pragma once

#include "containers/KyDList.h"
#include "platform/base/KyStringW.h"
#include "project/KyDtProjectDirectoryItem.h"

class KyDtDictionary;
class KyDtProjectFloor;

class KyDtProject : public KyDtProjectDirectoryItem {
 public:
  KyDtProject(const wchar_t *name = nullptr) : KyDtProjectDirectoryItem(name) {}

  CString GetTypeName() const override;
  // Forgets the file and frees every item.
  void Reset() override;

  // True while the project is bound to no file.
  bool IsEmptyProject() const { return m_strFileFullName.IsEmpty(); }
  CString GetFileFullName() const { return m_strFileFullName; }
  // The file path equals `path` without regard to case.
  bool Is(CString path) const;
  // The file name behind the last backslash, with its extension; false,
  // leaving `name` alone, when the path has no backslash.
  bool GetProjectName(CString &name) const;
  // The folder up to and including the last backslash; false, leaving
  // `path` alone, when there is none.
  bool GetFilePath(CString &path) const;

  // False for an empty path, an unreadable file or another root element;
  // the project is then as it was. Otherwise the tree is replaced and the
  // project is bound to `path`.
  bool ReadFromXML(const wchar_t *path);
  // Writes into an existing, readable project file (it isn't created
  // here) and binds the project to it; the result is that of the save.
  bool SaveToXML(const wchar_t *path);

  // The child "FLOOR_TABLE" if it is a directory, else null.
  KyDtProjectDirectoryItem *GetFloorTable();
  // Appends the floor table's "Floor" children in order; the list doesn't
  // own them.
  void GetFloorTable(KyDList<KyDtProjectFloor *> &floors);
  // The child "DWG_SET" if it is a directory, else null.
  KyDtProjectDirectoryItem *GetDwgSet();
  // The dictionary of the child `name` if it is a "TolvDictionary".
  KyDtDictionary *FindDict(const wchar_t *name);

  // The name without the project folder (matched without regard to case)
  // and without its last four characters, the extension.
  CString GetDwgRelativeName(CString name) const;
  // The project folder, the name and ".dwg"; a name holding ":" is taken
  // as absolute and only gets ".dwg".
  CString GetDwgFullName(CString name) const;

  // The full names of the floor drawings in floor order, each once (names
  // compared without regard to case, also with what `files` held before).
  // False without a floor table.
  bool GetFloorFiles(KyDList<CString> &files);
  // The same for every item below "DWG_SET", depth first; false without it.
  bool GetDwgSetFiles(KyDList<CString> &files);
  // The same below `directory`; false for null.
  bool GetDwgSetFiles(KyDList<CString> &files, KyDtProjectDirectoryItem *directory);

  // Whether the numbered floors of the table follow each other without a
  // gap or a repetition. With `showMessage` a failure is shown in a
  // message box (" 楼层号重复!" or " 楼层号不连续!").
  bool IsConnectFloors(bool showMessage);

 protected:
  CString m_strFileFullName;
};

// Reads a floor number text: one floor ("3", "-1", "") or a run of floors
// ("2-5", "2~5", "2,5"). Removes the blanks of `text` in place. The
// separator is always taken at index 1, so only a first number of one digit
// is understood ("10-12" gives 1 and -12), and runs of negative floors can't
// be written. False when the text is neither.
bool ParseFloorNumber(KyStringW &text, KyStringW &first, KyStringW &last, bool &isRange);
