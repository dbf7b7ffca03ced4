#include "library/KyDtLibBlockDef.h"

#include "platform/utility/SupportFiles.h"

KyDtLibBlockDef::KyDtLibBlockDef(const wchar_t *block, const wchar_t *library, const wchar_t *group,
                                 const wchar_t *root)
    : m_strRoot(root), m_strGroup(group), m_strLibrary(library), m_strBlock(block) {
  if (m_strRoot.IsEmpty()) m_strRoot = GetMainDirectory() + L"DwgLib\\";
}

bool KyDtLibBlockDef::IsValid() const {
  return !m_strRoot.IsEmpty() && !m_strLibrary.IsEmpty() && !m_strBlock.IsEmpty();
}

void KyDtLibBlockDef::SetFromBlockName(const wchar_t *blockName) {
  CString text(blockName);
  text.MakeUpper();
  int cut = text.ReverseFind(L'$');
  if (cut < 0) {
    m_strBlock = text;
    return;
  }
  m_strBlock = text.Mid(cut + 1);
  text = text.Left(cut);
  cut = text.ReverseFind(L'$');
  if (cut < 0) {
    m_strLibrary = text;
    return;
  }
  m_strLibrary = text.Mid(cut + 1);
  m_strGroup = text.Left(cut);
}

void KyDtLibBlockDef::SetFromDwgFile(const wchar_t *dwgFile) {
  CString text(dwgFile);
  text.MakeUpper();
  if (text.Find(L".DWG") >= 0) text = text.Left(text.GetLength() - 4);
  int cut = text.ReverseFind(L'\\');
  if (cut < 0) {
    m_strBlock = text;
    return;
  }
  m_strBlock = text.Mid(cut + 1);
  text = text.Left(cut);
  cut = text.ReverseFind(L'\\');
  if (cut < 0) {
    m_strRoot = text;
    return;
  }
  m_strLibrary = text.Mid(cut + 1);
  text = text.Left(cut);
  cut = text.ReverseFind(L'\\');
  if (cut < 0) {
    m_strRoot = text;
    return;
  }
  m_strGroup = text.Mid(cut + 1);
  m_strRoot = text.Left(cut + 1);
}

CString KyDtLibBlockDef::GetBlockName() const {
  if (!m_strGroup.IsEmpty()) return m_strGroup + L"$" + m_strLibrary + L"$" + m_strBlock;
  return m_strLibrary + L"$" + m_strBlock;
}

CString KyDtLibBlockDef::GetDmlFile() const {
  if (!m_strGroup.IsEmpty()) return m_strRoot + m_strGroup + L"\\" + m_strLibrary + L".DML";
  return m_strRoot + m_strLibrary + L".DML";
}

CString KyDtLibBlockDef::GetDmlsFile() const { return m_strRoot + m_strGroup + L"\\LibGroup.DMLS"; }

CString KyDtLibBlockDef::GetDwgFile() const {
  if (!m_strGroup.IsEmpty()) return m_strRoot + m_strGroup + L"\\" + m_strLibrary + L"\\" + m_strBlock + L".DWG";
  return m_strRoot + m_strLibrary + L"\\" + m_strBlock + L".DWG";
}
