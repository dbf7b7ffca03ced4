// A leaf of a library: a node with a data file (for a drawing library, the
// block drawing's file name).
#pragma once

#include "library/KyDtLibItemBase.h"

class KyDtLibItem : public KyDtLibItemBase {
 public:
  KyDtLibItem() = default;
  KyDtLibItem(const KyDtLibItem &other) = default;
  KyDtLibItem &operator=(const KyDtLibItem &other) = default;
  ~KyDtLibItem() override;

  CString GetXMLNodeName() const override;
  // The base read, then the data file from "file" (which stays in the
  // attribute store too).
  bool ReadFromNode(const _auto_ptr<KyUtXMLDOMNode> &node) override;
  // The base write, then "file".
  bool SaveToNode(_auto_ptr<KyUtXMLDOMNode> &node) override;
  KyDtLibItemBase *Clone() override;
  // `other` must be an item.
  void CopyFrom(KyDtLibItemBase *other) override;

  const CString &GetDataFile() const { return m_strDataFile; }
  void SetDataFile(const wchar_t *file) { m_strDataFile = file; }

 protected:
  friend class KyDtLibDirectory;
  void ReadItemFromNode(KyUtXMLDOMNode &node);
  void SaveItemToNode(KyUtXMLDOMNode &node) const;

  CString m_strDataFile;
};
