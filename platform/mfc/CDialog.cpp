#include "platform/mfc/CDialog.h"

#include "platform/mfc/AfxModuleState.h"
#include "platform/windows/ResourceModule.h"

bool CDialog::Create(UINT templateId, CWnd *parent) {
  if (m_hWnd) return false;
  HWND window = ::CreateDialogParamW(AfxGetResourceHandle(), MAKEINTRESOURCEW(templateId),
                                     parent ? parent->m_hWnd : nullptr, nullptr, 0);
  if (!window) return false;
  m_nIDHelp = templateId;
  m_pParentWnd = parent;
  return Attach(window);
}

bool CDialog::AttachDialog(HWND window, UINT templateId) {
  if (!Attach(window)) return false;
  m_nIDHelp = templateId;
  return true;
}

bool CDialog::Create(const wchar_t *templateName, CWnd *parent) {
  if (m_hWnd || !templateName) return false;
  HWND window = ::CreateDialogParamW(AfxGetResourceHandle(), templateName, parent ? parent->m_hWnd : nullptr,
                                     nullptr, 0);
  if (!window) return false;
  m_nIDHelp = 0;
  m_pParentWnd = parent;
  return Attach(window);
}
