// SETTING PATH: what a sibling module reads from the settings by path.
#include <cstdio>

#include "SiblingRegistry.h"
#include "TolvDataBase.h"
#include "platform/acad/AcutPrintf.h"
#include "platform/windows/TextCodec.h"

namespace {

const wchar_t *KindName(int type) {
  static const wchar_t *const kNames[] = {L"dictionary", L"Bool",   L"Char",   L"Long",
                                          L"Double",     L"String", L"Option", L"Reference"};
  return type >= 0 && type < 8 ? kNames[type] : L"bare item";
}

bool SettingLine(const std::vector<std::string> &args) {
  if (args.size() != 1) {
    acutPrintf(L"\nSETTING needs one path, e.g. ADVANCE\\SYSTEM\\ENTITY\\AUTO_BREAK");
    return false;
  }
  const CString path = tolv::FromUtf8(args[0]).c_str();
  KyDtDictItem *item = g_dictCfg.FindItem(path);
  if (!item) {
    acutPrintf(L"\n%ls: no such setting", static_cast<const wchar_t *>(path));
    return false;
  }
  const int type = item->GetType();
  CString shown;
  switch (type) {
    case KyDtDictItem::DT_DICT:
      shown.Format(L"%d items", static_cast<int>(static_cast<KyDtDictionary *>(item)->GetLength()));
      break;
    case KyDtDictItem::DT_BOOL: {
      bool value = false;
      g_dictCfg.GetValue(path, value);
      shown = value ? L"TRUE" : L"FALSE";
      break;
    }
    case KyDtDictItem::DT_CHAR:
    case KyDtDictItem::DT_LONG:
    case KyDtDictItem::DT_OPTION: {
      long value = 0;
      g_dictCfg.GetValue(path, value);
      shown.Format(L"%ld", value);
      break;
    }
    case KyDtDictItem::DT_DOUBLE: {
      double value = 0;
      g_dictCfg.GetValue(path, value);
      shown.Format(L"%g", value);
      break;
    }
    default:
      g_dictCfg.GetValue(path, shown);
      break;
  }
  acutPrintf(L"\n%ls (%ls) = %ls", static_cast<const wchar_t *>(path), KindName(type),
             static_cast<const wchar_t *>(shown));
  return true;
}

const tolv::sibling::HostLine kSetting(
    "SETTING",
    "  SETTING PATH   the setting at PATH in the loaded settings, with its kind\n"
    "                 (e.g. SETTING ADVANCE\\SYSTEM\\ENTITY\\AUTO_BREAK)\n",
    &SettingLine);

}  // namespace
