#include "library/KyDmLibGroup.h"

#include "library/KyDtLibFileRoot.h"
#include "platform/utility/KyUtXMLDOM.h"

KyDmLibGroup::KyDmLibGroup() = default;
KyDmLibGroup::~KyDmLibGroup() = default;

CString KyDmLibGroup::GetXMLNodeName() const { return L"LibraryGroup"; }

KyDtLib *KyDmLibGroup::NewLib() const { return new KyDtLib; }

CString KyDmLibGroup::GetFilePath() const { return KyDtLibFilePathOf(m_strFileName); }

bool KyDmLibGroup::ReadFromNode(const _auto_ptr<KyUtXMLDOMNode> &node) {
  m_pAttributes->clear();
  if (!KyDtLibItemBase::ReadFromNode(node)) return false;
  Reset();
  const CString folder = GetFilePath();
  KyUtXMLDOMNodeArray children;
  children = node->GetChildrenNodes();
  const int count = children->GetCount();
  for (int i = 0; i < count; ++i) {
    _auto_ptr<KyUtXMLDOMNode> child = children->GetItem(i);
    if (!child) continue;
    CString text = child->GetNodeValue();
    if (text.Find(L'\\') < 0) text = folder + text;
    if (KyDtLib *lib = NewLib()) {
      lib->SetFileName(text);
      Append(lib);
    }
  }
  return true;
}

bool KyDmLibGroup::SaveToNode(_auto_ptr<KyUtXMLDOMNode> &node) {
  if (!KyDtLibItemBase::SaveToNode(node)) return false;
  node->SetAttributeValue(L"name", m_strName);
  return true;
}

bool KyDmLibGroup::ReadFromXML() {
  KyUtXMLDOMFile document;
  _auto_ptr<KyUtXMLDOMNode> root = KyDtOpenLibFileRoot(document, m_strFileName, GetXMLNodeName());
  if (!root) return false;
  return ReadFromNode(root);
}

bool KyDmLibGroup::SaveToXML() {
  KyUtXMLDOMFile document;
  _auto_ptr<KyUtXMLDOMNode> root = KyDtOpenLibFileRoot(document, m_strFileName, GetXMLNodeName());
  if (!root) return false;
  root->DeleteChildrenNodes();
  SaveToNode(root);
  root->SetAttributeValue(L"name", m_strName);
  const CString folder = GetFilePath();
  for (KyDtLib *const *slot = GetFirst(); slot != nullptr; slot = GetNext(slot)) {
    KyDtLib *lib = *slot;
    if (lib == nullptr) continue;
    CString text = lib->GetFileName();
    const int slash = text.ReverseFind(L'\\');
    if (slash > 0 && text.Left(slash + 1).CompareNoCase(folder) == 0) text = text.Mid(slash + 1);
    root->AppendNode(lib->GetXMLNodeName(), text, L"", L"");
  }
  return document.Save(document.GetXMLFileName());
}

void KyDmLibGroup::ReadLibFromXML() {
  for (KyDtLib *const *slot = GetFirst(); slot != nullptr; slot = GetNext(slot)) {
    if (*slot != nullptr) (*slot)->ReadFromXML();
  }
}

void KyDmLibGroup::SaveLibToXML() {
  for (KyDtLib *const *slot = GetFirst(); slot != nullptr; slot = GetNext(slot)) {
    if (*slot != nullptr) (*slot)->SaveToXML();
  }
}
