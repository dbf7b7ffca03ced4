// A library block known by its four names (root folder, group, library,
// block), turned into its name inside a drawing ("GROUP$LIB$BLOCK", or
// "LIB$BLOCK" without a group), into the paths of its files, and back.
//
// Disk layout under the root, which ends in "\":
//   (group)\(library)\(block).DWG   the block drawing
//   (group)\(library).DML           the library file
//   (group)\LibGroup.DMLS           the group file
#pragma once

#include "platform/mfc/CString.h"

class KyDtLibBlockDef {
 public:
  // A null or empty root is the main directory's "DwgLib\".
  KyDtLibBlockDef(const wchar_t *block = nullptr, const wchar_t *library = nullptr, const wchar_t *group = nullptr,
                  const wchar_t *root = nullptr);

  // Root, library and block are all given; the group may be empty.
  bool IsValid() const;
  // The setters set only the fields they find, in upper case, and clear
  // nothing: they are meant for default objects.
  void SetFromBlockName(const wchar_t *blockName);
  void SetFromDwgFile(const wchar_t *dwgFile);

  CString GetBlockName() const;
  CString GetDmlFile() const;
  CString GetDmlsFile() const;
  CString GetDwgFile() const;

  CString m_strRoot;
  CString m_strGroup;
  CString m_strLibrary;
  CString m_strBlock;
};
