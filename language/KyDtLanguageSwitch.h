// The language switch of the add-on: translates dialogs, menus, list
// controls, string resources and the texts of the code through the table
// of the module that is current (g_pCurModuleLang), taken from the loaded
// language package g_curDictLang. Every miss leaves the source text.
#pragma once

#include "platform/dbobject/TolvLanguageSwitch.h"
#include "platform/windows/WinTypes.h"

class KyDtDictionary;

class KyDtLanguageSwitch : public TolvLanguageSwitch {
 public:
  KyDtLanguageSwitch() = default;
  ~KyDtLanguageSwitch() override = default;

  // Nothing for a null window or one without a handle.
  void TranslateDialog(CWnd *window) override;
  // The entry "MENU\<id>" of the module's table, against the menu's items
  // by position; popups are translated with their items.
  void TranslateMenu(unsigned int id, CMenu *menu) override;
  // Tool bars carry no text to translate.
  void TranslateToolBar(unsigned int id) override;
  // "STRING\<id>"; with the switch off for this module, the resource.
  CString LoadLangString(unsigned int id) override;
  // The entry of "CODESTRING"; the answer lives as long as the package.
  const wchar_t *TranslateCode(const wchar_t *text) override;
  CString TranslateObjectText(CString text) override;
  CString TranslateText(CString text) override;
  // The item at the path in the loaded package.
  KyDtDictItem *FindModuleDict(const wchar_t *path) override;
  // Unlike a dialog's lists, a list control without translation is left
  // empty here.
  void TranslateListControl(unsigned int id, CWnd *window) override;
  // Caption, children and registered controls of a dialog; gives what the
  // walk over the children gave, or 0.
  int TranslateWindow(CWnd *window) override;

  // Drops the indexes of the code-string sections; the language start-up
  // calls it before it reads a package.
  static void ForgetIndexes();

 private:
  void TranslateRegisteredControls();
};

// The switch object of this module, one of its global objects (built
// between the history data and the language table); InitLanguage installs
// it in g_pTolvLangSwitch.
extern KyDtLanguageSwitch g_languageSwitch;
KyDtLanguageSwitch &TheLanguageSwitch();

namespace tolv {
// The text a combo-box entry of another code page is read as: with the
// process code page 936 it stands; otherwise each character is taken as one
// byte and the bytes are read again as code page 936, in buffers of 349.
CString RepairCodePage(const CString &text);
}  // namespace tolv
