#include "uiconfig/KyDtUIStartup.h"

#include "language/LangTranslate.h"
#include "module/ModuleGlobals.h"
#include "platform/dbobject/UiSettings.h"
#include "platform/mfc/AfxMessage.h"
#include "platform/utility/SupportFiles.h"
#include "uiconfig/KyDtUIConfig.h"

namespace {

const wchar_t kFileName[] = L"UIConfig.xml";

// A setting kept as 0 or 1 in an int of the sibling module.
void GetFlag(KyDtDictionary &section, const wchar_t *key, int &target) {
  bool value = false;
  if (section.GetValue(key, value)) target = value ? 1 : 0;
}

void ReadUiSettings(KyDtDictionary &dict) {
  bool dynInput = g_bDynInput != 0;
  if (KyDtDictionary *edit = dict.FindDict(L"INPLACE_EDIT")) {
    edit->GetValue(L"BK_COLOR", g_nColorInPlaceGround);
    edit->GetValue(L"TEXT_COLOR", g_nColorInPlaceText);
    edit->GetValue(L"TEXT_HEIGHT", g_nDynEditFontHeight);
  }
  if (KyDtDictionary *dyn = dict.FindDict(L"DYN_PARAM")) {
    dyn->GetValue(L"DYN_INPUT", dynInput);
    dyn->GetValue(L"DYN_MAXDIMNUM", g_iMaxDynDimNum);
  }
  if (KyDtDictionary *pan = dict.FindDict(L"SCALEPAN_SETTING")) {
    pan->GetValue(L"SCALE_DIAMETER", g_dDiameter);
    pan->GetValue(L"SCALE_COLOR", g_nColor);
    pan->GetValue(L"SCALE_UNITANGLE", g_dScaleUnitAngle);
    pan->GetValue(L"TEXT_UNITANGLE", g_dTextUnitAngle);
    GetFlag(*pan, L"SCALE_LINE_ENABLED", g_bDrawScaleLine);
    GetFlag(*pan, L"SCALE_TEXT_ENABLED", g_bScaleTextSnap);
  }
  dict.GetValue(L"USE_CMD_HOTKEY", g_bEnableHotKey);
  g_bDynInput = dynInput ? 1 : 0;
}

}  // namespace

void LoadUIConfig() {
  CString path;
  if (FindFile(kFileName, path)) g_dbCfgUI.ReadFromXML(path);

  g_pAllCommandDef = g_dbCfgUI.GetAllCommandDef();
  g_pAllSwitchDef = g_dbCfgUI.GetAllSwitchDef();
  g_pAllControlDef = g_dbCfgUI.GetAllControlDef();
  g_pAllMenuDef = g_dbCfgUI.GetAllMenuDef();
  g_pContextMenuDef = g_dbCfgUI.GetContextMenuDef();
  g_pScreenMenuDef = g_dbCfgUI.GetScreenMenuDef();
  g_pProjectBoxDef = g_dbCfgUI.GetProjectBoxDef();
  g_pToolBoxDef = g_dbCfgUI.GetToolBoxDef();
  g_pStatusBarDef = g_dbCfgUI.GetStatusBarDef();
  g_pShortCmds = g_dbCfgUI.GetShortCmdDef();
  g_pHotKeys = g_dbCfgUI.GetHotKeyDef();
  g_pUiDictionary = g_dbCfgUI.GetDictionary(L"COMMON_DICT");

  if (g_pUiDictionary) ReadUiSettings(g_pUiDictionary->GetDictionary());
}

void SaveUIConfig() {
  CString path;
  if (FindFile(kFileName, path)) {
    g_dbCfgUI.SaveToXML(path);
  } else {
    AfxMessageBox(_TL(L"\n保存数据文件失败！未找到UIConfig.xml!"));
  }
}
