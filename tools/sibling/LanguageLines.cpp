// The language switch as a sibling module meets it: host lines that show
// the language in force and translate texts, and `tolv lang` for the people
// who keep the language package (export, statistics, what a module holds).
#include <iostream>

#include "SiblingRegistry.h"
#include "TolvDataBase.h"
#include "lang/LangCommand.h"
#include "platform/acad/AcutPrintf.h"
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

int LangCommand(const std::vector<std::string> &args) { return tolv::lang::Run(args, std::cout, std::cerr); }

const tolv::sibling::HostLine kLang("LANG", "  LANG           the language in force, the loaded package and whether translation is on\n",
                                    &LangLine);
const tolv::sibling::HostLine kTl(
    "TL", "  TL TEXT        the data layer's translation of TEXT (\\n stands for a line feed)\n", &TlLine);
const tolv::sibling::Subcommand kLangCommand(
    "lang",
    "  lang export --modules LIST --sources DIR --out FILE [--merge OLD]\n"
    "                 builds a language package from modules and sources\n"
    "  lang stats FILE  entries per module and section, translated and not\n"
    "  lang show MODULE (--dialog ID | --menu ID | --strings) [--language HEX]\n"
    "                 what a Windows module's resource holds\n",
    &LangCommand);

}  // namespace
