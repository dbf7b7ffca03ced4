// A library group: one XML file (".DMLS") that lists its libraries by file.
// The group owns one library object per entry, of the class NewLib makes.
//
// The order of use: SetFileName, ReadFromXML (which makes the library
// objects with their file names), then ReadLibFromXML (which loads each).
#pragma once

#include "containers/KyPDList.h"
#include "library/KyDtLib.h"
#include "library/KyDtLibItemBase.h"

class KyDmLibGroup : public KyDtLibItemBase, public KyPDList<KyDtLib> {
 public:
  KyDmLibGroup();
  // Of the node alone, as a directory's: the libraries have one owner.
  KyDmLibGroup(const KyDmLibGroup &other) : KyDtLibItemBase(other), KyPDList<KyDtLib>(), m_strFileName(other.m_strFileName) {}
  KyDmLibGroup &operator=(const KyDmLibGroup &other) {
    KyDtLibItemBase::operator=(other);
    m_strFileName = other.m_strFileName;
    return *this;
  }
  ~KyDmLibGroup() override;

  CString GetXMLNodeName() const override;
  // Clears the attributes, reads them, and makes one library per child
  // element (whatever its name) from the element's text: a text without
  // "\" is a file in the group's folder. The old libraries go.
  bool ReadFromNode(const _auto_ptr<KyUtXMLDOMNode> &node) override;
  bool SaveToNode(_auto_ptr<KyUtXMLDOMNode> &node) override;
  // A library object of this group's kind, or null.
  virtual KyDtLib *NewLib() const;

  const CString &GetFileName() const { return m_strFileName; }
  void SetFileName(const wchar_t *fileName) { m_strFileName = fileName; }
  CString GetFilePath() const;

  bool ReadFromXML();
  // Writes into the existing file: a library in the group's folder (in
  // any case) by its file name alone, any other by its full path.
  bool SaveToXML();
  // Each library's own file; one that fails doesn't stop the others.
  void ReadLibFromXML();
  void SaveLibToXML();

  using KyDtLibItemBase::operator==;
  using KyDtLibItemBase::operator!=;
  using KyDtLibItemBase::operator<;
  using KyDtLibItemBase::operator>;
  // Two of this class compare by one reading, whichever side stands first.
  bool operator==(const KyDmLibGroup &other) const { return KyDtLibItemBase::operator==(other); }
  bool operator!=(const KyDmLibGroup &other) const { return KyDtLibItemBase::operator!=(other); }
  bool operator<(const KyDmLibGroup &other) const { return KyDtLibItemBase::operator<(other); }
  bool operator>(const KyDmLibGroup &other) const { return KyDtLibItemBase::operator>(other); }

 protected:
  CString m_strFileName;
};
