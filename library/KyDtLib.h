// A library: a directory tree kept in one XML file (".DML"), whose root
// element is named by the library's class.
#pragma once

#include <cstdint>

#include "library/KyDtLibDirectory.h"

class KyDtLib : public KyDtLibDirectory {
 public:
  KyDtLib();
  ~KyDtLib() override;

  CString GetXMLNodeName() const override;
  // The directory's read, then "nextfile" (kept when absent), "readonly"
  // and "mulitiview" (true exactly for "TRUE").
  bool ReadFromNode(const _auto_ptr<KyUtXMLDOMNode> &node) override;
  // The directory's write, then "nextfile", "readonly" and "mulitiview".
  bool SaveToNode(_auto_ptr<KyUtXMLDOMNode> &node) override;

  const CString &GetFileName() const { return m_strFileName; }
  void SetFileName(const wchar_t *fileName) { m_strFileName = fileName; }
  // Up to and including the last "\"; empty when there is none.
  CString GetFilePath() const;
  std::int32_t GetNextFileIndex() const { return m_nNextFile; }
  void SetNextFileIndex(std::int32_t index) { m_nNextFile = index; }
  bool IsReadOnly() const { return m_bReadOnly; }
  void SetReadOnly(bool readOnly) { m_bReadOnly = readOnly; }
  bool IsMulitiView() const { return m_bMulitiView; }
  void SetMulitiView(bool multiView) { m_bMulitiView = multiView; }

  // Reads the file; false, changing nothing, when it can't be opened or
  // its root is not this class's node name.
  bool ReadFromXML();
  // Writes into the existing file, which must have the right root.
  bool SaveToXML();

  using KyDtLibItemBase::operator==;
  using KyDtLibItemBase::operator!=;
  using KyDtLibItemBase::operator<;
  using KyDtLibItemBase::operator>;
  // Two of this class compare by one reading, whichever side stands first.
  bool operator==(const KyDtLib &other) const { return KyDtLibItemBase::operator==(other); }
  bool operator!=(const KyDtLib &other) const { return KyDtLibItemBase::operator!=(other); }
  bool operator<(const KyDtLib &other) const { return KyDtLibItemBase::operator<(other); }
  bool operator>(const KyDtLib &other) const { return KyDtLibItemBase::operator>(other); }

 protected:
  CString m_strFileName;
  std::int32_t m_nNextFile = 1;
  // Set by reading.
  bool m_bReadOnly = false;
  bool m_bMulitiView = false;
};

// The directory part of a file name: up to and including the last "\".
CString KyDtLibFilePathOf(const CString &fileName);
