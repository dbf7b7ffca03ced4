#include "project/KyDtProjectFloor.h"

#include "platform/utility/KyUtXMLDOMNode.h"
#include "platform/windows/WinCrt.h"

namespace {

// Cuts the text before the next comma into `piece` and moves `rest` past
// the comma; false, changing nothing, when there is no comma left.
bool TakeBeforeComma(CString &rest, CString &piece) {
  int comma = rest.Find(L',');
  if (comma < 0) return false;
  piece = rest.Left(comma);
  rest = rest.Mid(comma + 1);
  return true;
}

}  // namespace

CString KyDtProjectFloor::GetTypeName() const { return L"Floor"; }

void KyDtProjectFloor::operator>>(_auto_ptr<KyUtXMLDOMNode> &node) {
  KyDtProjectFile::operator>>(node);
  node->SetAttributeValue(L"number", m_strNumber);
  CString text;
  text.Format(L"%lg", m_dHeight);
  node->SetAttributeValue(L"height", text);
  text.Format(L"%lg,%lg,%lg", m_dBaseX, m_dBaseY, m_dBaseZ);
  node->SetAttributeValue(L"ptbase", text);
  if (m_bHasExtent) {
    // Two corners: the lower left, then the upper right.
    text.Format(L"%lg,%lg,%lg,%lg", m_extent.GetXExtend().min, m_extent.GetYExtend().min,
                m_extent.GetXExtend().max, m_extent.GetYExtend().max);
    node->SetAttributeValue(L"extent", text);
  }
}

void KyDtProjectFloor::operator<<(_auto_ptr<KyUtXMLDOMNode> &node) {
  KyDtProjectFile::operator<<(node);
  m_strNumber = node->GetAttributeValue(L"number");
  m_dHeight = _wtof(node->GetAttributeValue(L"height"));

  // "x,y,z": x needs one comma, y two; z is read from all that follows.
  CString rest = node->GetAttributeValue(L"ptbase");
  CString piece;
  if (TakeBeforeComma(rest, piece)) {
    m_dBaseX = _wtof(piece);
    if (TakeBeforeComma(rest, piece)) {
      m_dBaseY = _wtof(piece);
      m_dBaseZ = _wtof(rest);
    }
  }

  m_bHasExtent = node->IsAttributeExist(L"extent");
  if (m_bHasExtent) {
    double numbers[4] = {0.0, 0.0, 0.0, 0.0};
    rest = node->GetAttributeValue(L"extent");
    int taken = 0;
    while (taken < 3 && TakeBeforeComma(rest, piece)) numbers[taken++] = _wtof(piece);
    if (taken == 3) numbers[3] = _wtof(rest);
    m_extent.GetXExtend().min = numbers[0];
    m_extent.GetYExtend().min = numbers[1];
    m_extent.GetXExtend().max = numbers[2];
    m_extent.GetYExtend().max = numbers[3];
  }
}

bool KyDtProjectFloor::IsSameWith(const KyDtProjectItem *other) {
  if (!other || !other->IsKindOf(GetTypeName())) return false;
  const auto *floor = static_cast<const KyDtProjectFloor *>(other);
  return _wcsicmp(m_strNumber, floor->m_strNumber) == 0 && m_dHeight == floor->m_dHeight &&
         m_dBaseX == floor->m_dBaseX && m_dBaseY == floor->m_dBaseY && m_dBaseZ == floor->m_dBaseZ &&
         m_bHasExtent == floor->m_bHasExtent &&
         m_extent.GetXExtend().min == floor->m_extent.GetXExtend().min &&
         m_extent.GetXExtend().max == floor->m_extent.GetXExtend().max &&
         m_extent.GetYExtend().min == floor->m_extent.GetYExtend().min &&
         m_extent.GetYExtend().max == floor->m_extent.GetYExtend().max;
}
