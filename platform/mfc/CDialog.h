// MFC's dialog: a window made from a dialog template of the current
// resource module, which remembers the template's id.
#pragma once

#include "platform/mfc/CWnd.h"

class CDialog : public CWnd {
 public:
  CDialog() = default;
  explicit CDialog(UINT templateId, CWnd *parent = nullptr) : m_nIDHelp(templateId), m_pParentWnd(parent) {}

  // Creates the dialog modelessly from the template `templateId` of the
  // current resource module (AfxGetResourceHandle); false when the module
  // has no such template. Its list controls are filled from the template's
  // initial data (resource type 240), if the module has some.
  bool Create(UINT templateId, CWnd *parent = nullptr);
  // The same for a template with a name; the template id stays 0.
  bool Create(const wchar_t *templateName, CWnd *parent = nullptr);
  // Attaches to a dialog window made elsewhere, under a template id.
  bool AttachDialog(HWND window, UINT templateId);

  UINT GetTemplateId() const { return m_nIDHelp; }

  // As MFC keeps it: the template id of a dialog made from a numbered template.
  UINT m_nIDHelp = 0;
  CWnd *m_pParentWnd = nullptr;
};
