#include "library/KyDtLib.h"

#include <cwchar>

#include "library/KyDtLibFileRoot.h"
#include "platform/utility/KyUtXMLDOM.h"
#include "platform/windows/WideFormat.h"
#include "platform/windows/WinCrt.h"

CString KyDtLibFilePathOf(const CString &fileName) {
  const int slash = fileName.ReverseFind(L'\\');
  return slash < 0 ? CString() : fileName.Left(slash + 1);
}

KyDtLib::KyDtLib() = default;
KyDtLib::~KyDtLib() = default;

CString KyDtLib::GetXMLNodeName() const { return L"Library"; }

CString KyDtLib::GetFilePath() const { return KyDtLibFilePathOf(m_strFileName); }

bool KyDtLib::ReadFromNode(const _auto_ptr<KyUtXMLDOMNode> &node) {
  if (!KyDtLibDirectory::ReadFromNode(node)) return false;
  const CString next = GetAttributeValue(L"nextfile");
  if (!next.IsEmpty()) m_nNextFile = _wtoi(next);
  m_bReadOnly = std::wcscmp(GetAttributeValue(L"readonly"), L"TRUE") == 0;
  m_bMulitiView = std::wcscmp(GetAttributeValue(L"mulitiview"), L"TRUE") == 0;
  return true;
}

bool KyDtLib::SaveToNode(_auto_ptr<KyUtXMLDOMNode> &node) {
  if (!KyDtLibDirectory::SaveToNode(node)) return false;
  node->SetAttributeValue(L"nextfile", tolv::FormatWide(L"%ld", m_nNextFile).c_str());
  node->SetAttributeValue(L"readonly", m_bReadOnly ? L"TRUE" : L"FALSE");
  node->SetAttributeValue(L"mulitiview", m_bMulitiView ? L"TRUE" : L"FALSE");
  return true;
}

bool KyDtLib::ReadFromXML() {
  KyUtXMLDOMFile document;
  _auto_ptr<KyUtXMLDOMNode> root = KyDtOpenLibFileRoot(document, m_strFileName, GetXMLNodeName());
  if (!root) return false;
  return ReadFromNode(root);
}

bool KyDtLib::SaveToXML() {
  KyUtXMLDOMFile document;
  _auto_ptr<KyUtXMLDOMNode> root = KyDtOpenLibFileRoot(document, m_strFileName, GetXMLNodeName());
  if (!root) return false;
  root->DeleteChildrenNodes();
  SaveToNode(root);
  return document.Save(document.GetXMLFileName());
}
