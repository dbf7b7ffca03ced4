#include "settings/HistoryData.h"

#include "dictionary/KyDtDictionary.h"
#include "language/LangTranslate.h"
#include "module/ModuleGlobals.h"
#include "platform/acad/AcutPrintf.h"
#include "platform/dbobject/DbObjectSettings.h"
#include "platform/mfc/AfxMessage.h"
#include "platform/utility/SupportFiles.h"

namespace {

const wchar_t kExportPath[] = L"COMMON\\OUTPUT\\EXPORT";
const wchar_t kVersionKey[] = L"VERSION";

}  // namespace

void LoadHistoryData() {
  CString path;
  if (!FindFile(L"HistoryData.xml", path)) {
    acutPrintf(L"%s",
               _TL(L"\n加载历史数据文件失败！未找到历史数据记录文件HistoryData.xml!").GetString());
    return;
  }
  g_dictHistoryData.ReadFromXML(path);
  // The export group is made here if the file lacks it, so that the stop
  // always finds a place for the version.
  if (KyDtDictionary *exportDict = g_dictHistoryData.FindOrAddDict(kExportPath)) {
    exportDict->GetValue(kVersionKey, g_nExportMorvVer);
  }
}

void SaveHistoryData() {
  if (KyDtDictionary *exportDict = g_dictHistoryData.FindOrAddDict(kExportPath)) {
    exportDict->SetValue(kVersionKey, g_nExportMorvVer);
  }
  // The writer has always looked the file up in lower case, unlike the
  // reader; on a file system that tells cases apart the two may differ.
  CString path;
  if (!FindFile(L"historydata.xml", path)) {
    AfxMessageBox(
        _TL(L"\n保存历史数据文件失败！未找到历史数据记录文件HistoryData.xml!"));
    return;
  }
  g_dictHistoryData.SaveToXML(path);
}
