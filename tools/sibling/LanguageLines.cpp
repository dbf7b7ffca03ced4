// The language switch as a sibling module meets it: host lines that show
// the language in force and translate texts, and `tolv lang` for the people
// who keep the language package (export, statistics, what a module holds).
#include <iostream>

#include "SiblingRegistry.h"
#include "TolvDataBase.h"
#include "lang/LangCommand.h"
#include "platform/acad/AcutPrintf.h"
#include "platform/windows/PathMap.h"
#include "platform/windows/TextCodec.h"

namespace {

std::wstring Joined(const std::vector<std::string> &args) {
  std::string text;
  for (std::size_t i = 0; i < args.size(); ++i) text += (i ? " " : "") + args[i];
  return tolv::FromUtf8(text);
}

// LANG: the language, the package and the switch.
bool LangLine(const std::vector<std::string> &) {
  const bool on = g_pTolvLangSwitch != nullptr;
  acutPrintf(L"\nLanguage: %ls; package \"%ls\" with %d modules; translation %ls",
             g_strCurLanguage.IsEmpty() ? L"(none)" : g_strCurLanguage.GetString(),
             g_curDictLang.m_strLocalName.GetString(), static_cast<int>(g_curDictLang.GetLength()),
             on ? L"on" : L"off");
  return true;
}

// TL TEXT: the data layer's translation of one of its texts; "\n" in the
// text stands for a line feed.
bool TlLine(const std::vector<std::string> &args) {
  if (args.empty()) {
    acutPrintf(L"\nTL needs a text, e.g. TL \\n加载历史数据文件失败！未找到历史数据记录文件HistoryData.xml!");
    return false;
  }
  CString text = Joined(args).c_str();
  text.Replace(L"\\n", L"\n");
  CString translated = _TL(text);
  translated.Replace(L"\n", L"\\n");
  acutPrintf(L"\n%ls", translated.GetString());
  return true;
}

// LANGDIALOG MODULE ID: a dialog of a Windows module made and translated
// as its module shows it, with the module's table current.
bool LangDialogLine(const std::vector<std::string> &args) {
  if (args.size() != 2) {
    acutPrintf(L"\nLANGDIALOG needs a module file and a dialog id");
    return false;
  }
  const std::wstring path = tolv::ToSystemPath(args[0]);
  HMODULE module = LoadLibraryW(path.c_str());
  if (!module) {
    acutPrintf(L"\n%ls: not a Windows module", path.c_str());
    return false;
  }
  const unsigned id = static_cast<unsigned>(std::strtoul(args[1].c_str(), nullptr, 0));
  bool made = false;
  {
    KyDtDictionary *own = nullptr;
    KyUtPushResource current(module, own);
    CDialog dialog;
    made = dialog.Create(id);
    if (made) {
      if (g_pTolvLangSwitch) g_pTolvLangSwitch->TranslateDialog(&dialog);
      CString caption;
      dialog.GetWindowText(caption);
      acutPrintf(L"\nDIALOG %u \"%ls\"", id, caption.GetString());
      EnumChildWindows(dialog.GetSafeHwnd(), [](HWND child, LPARAM) -> BOOL {
        wchar_t name[64], text[1024];
        GetClassNameW(child, name, 64);
        GetWindowTextW(child, text, 1024);
        if (text[0]) acutPrintf(L"\n  %ls \"%ls\"", name, text);
        return TRUE;
      }, 0);
      dialog.DestroyWindow();
    } else {
      acutPrintf(L"\n%ls: no dialog %u", path.c_str(), id);
    }
  }
  FreeLibrary(module);
  return made;
}

int LangCommand(const std::vector<std::string> &args) { return tolv::lang::Run(args, std::cout, std::cerr); }

const tolv::sibling::HostLine kLang("LANG", "  LANG           the language in force, the loaded package and whether translation is on\n",
                                    &LangLine);
const tolv::sibling::HostLine kTl(
    "TL", "  TL TEXT        the data layer's translation of TEXT (\\n stands for a line feed)\n", &TlLine);
const tolv::sibling::HostLine kLangDialog(
    "LANGDIALOG", "  LANGDIALOG MODULE ID  a dialog of a Windows module, translated by the package in force\n",
    &LangDialogLine);
const tolv::sibling::Subcommand kLangCommand(
    "lang",
    "  lang export --modules LIST --sources DIR --out FILE [--merge OLD]\n"
    "                 builds a language package from modules and sources\n"
    "  lang fill PACKAGE --modules LIST --language HEX --out FILE\n"
    "                 takes local names from another language's resources\n"
    "  lang stats FILE  entries per module and section, translated and not\n"
    "  lang show MODULE (--dialog ID | --menu ID | --strings) [--language HEX]\n"
    "                 what a Windows module's resource holds\n",
    &LangCommand);

}  // namespace
