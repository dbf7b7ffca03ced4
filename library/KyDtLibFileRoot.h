// The root element of a library or group file, opened for reading or for
// writing back: the file must exist and its root must carry the class's
// element name, or nothing is read or written.
#pragma once

#include "platform/mfc/CString.h"
#include "platform/utility/KyUtXMLDOM.h"

inline _auto_ptr<KyUtXMLDOMNode> KyDtOpenLibFileRoot(KyUtXMLDOMFile &document, const CString &fileName,
                                                     const CString &rootName) {
  if (!document.Open(fileName)) return _auto_ptr<KyUtXMLDOMNode>();
  _auto_ptr<KyUtXMLDOMNode> root = document.GetRoot();
  if (!root || rootName.Compare(root->GetNodeName()) != 0) return _auto_ptr<KyUtXMLDOMNode>();
  return root;
}
