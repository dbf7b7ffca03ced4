#include "platform/mfc/CDialog.h"

#include "platform/mfc/AfxModuleState.h"
#include "platform/windows/CodePage.h"
#include "platform/windows/ResourceModule.h"
#include "platform/windows/ResourceTemplates.h"

namespace {

// Fills the dialog's list controls from the framework's initial data of the
// template, read as text of the process code page, as the framework does.
void ExecuteDlgInit(HWND dialog, LPCWSTR name) {
  HINSTANCE module = AfxGetResourceHandle();
  HRSRC resource = ::FindResourceW(module, name, MAKEINTRESOURCEW(240));
  if (!resource) return;
  std::string_view bytes(static_cast<const char *>(::LockResource(::LoadResource(module, resource))),
                         ::SizeofResource(module, resource));
  std::vector<tolv::DialogInitRecord> records;
  tolv::ParseDialogInit(bytes, records);
  for (const tolv::DialogInitRecord &record : records) {
    UINT message = record.message;
    if (message == 0x0401) message = LB_ADDSTRING;
    if (message == 0x0403) message = CB_ADDSTRING;
    if (message != LB_ADDSTRING && message != CB_ADDSTRING) continue;
    const int length = static_cast<int>(record.text.size());
    std::wstring text(static_cast<std::size_t>(length), L'\0');
    const int n = length ? ::MultiByteToWideChar(CP_ACP, 0, record.text.data(), length, text.data(), length) : 0;
    text.resize(static_cast<std::size_t>(n));
    ::SendMessageW(::GetDlgItem(dialog, record.control), message, 0, reinterpret_cast<LPARAM>(text.c_str()));
  }
}

}  // namespace

bool CDialog::Create(UINT templateId, CWnd *parent) {
  if (m_hWnd) return false;
  HWND window = ::CreateDialogParamW(AfxGetResourceHandle(), MAKEINTRESOURCEW(templateId),
                                     parent ? parent->m_hWnd : nullptr, nullptr, 0);
  if (!window) return false;
  m_nIDHelp = templateId;
  m_pParentWnd = parent;
  ExecuteDlgInit(window, MAKEINTRESOURCEW(templateId));
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
  ExecuteDlgInit(window, templateName);
  return Attach(window);
}
