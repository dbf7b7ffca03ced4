// The object module's language switch: the interface through which every
// module of the add-on has its dialogs, menus and texts translated, and the
// globals that say which language and which module's table are in force.
// The data layer supplies the implementation (KyDtLanguageSwitch) and
// installs it in g_pTolvLangSwitch.
#pragma once

#include <map>

#include "platform/mfc/CString.h"

class CMenu;
class CWnd;
class KyDtDictItem;
class KyDtDictionary;

class TolvLanguageSwitch {
 public:
  TolvLanguageSwitch();
  virtual ~TolvLanguageSwitch();

  // In this order; the base class translates nothing: every text stands.
  virtual void TranslateDialog(CWnd *window);
  virtual void TranslateMenu(unsigned int id, CMenu *menu);
  virtual void TranslateToolBar(unsigned int id);
  virtual CString LoadLangString(unsigned int id);
  virtual const wchar_t *TranslateCode(const wchar_t *text);
  virtual CString TranslateObjectText(CString text);
  virtual CString TranslateText(CString text);
  virtual KyDtDictItem *FindModuleDict(const wchar_t *path);
  virtual void TranslateListControl(unsigned int id, CWnd *window);
  virtual int TranslateWindow(CWnd *window);

  // A dialog's controls whose texts a module fills itself register here
  // under the key of their entry in the dialog's table, while the dialog
  // stands; the translation then fills them from the entry.
  void RegisterControl(const CString &key, CWnd *control) { m_mapControls[key] = control; }
  void UnregisterControl(const CString &key) { m_mapControls.erase(key); }
  void ClearControls() { m_mapControls.clear(); }

 protected:
  // The language the switch was made for, as read from the settings.
  CString m_strLanguage;
  // The registered controls, by key.
  std::map<CString, CWnd *> m_mapControls;
};

// The switch in force; null while nothing is translated.
extern TolvLanguageSwitch *g_pTolvLangSwitch;
// The language table of the module that is running now.
extern KyDtDictionary *g_pCurModuleLang;
// The language named in "Set.ini".
extern CString g_strCurLanguage;
