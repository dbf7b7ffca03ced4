// The developers' tools of the language package: the export walks the
// add-on's modules (their dialogs, menus, string tables and tool bars) and
// its source tree (the Chinese literals of the code) into a package and
// merges it with the package already there, keeping its translations; the
// replace tool lists the source lines whose _T literals are to become _TL.
#pragma once

#include "platform/mfc/CString.h"
#include "platform/windows/WinTypes.h"

class KyDtDictionary;

struct LanguageToolContext {
  // The developers' paths; LoadLanguageToolPaths takes others from the
  // settings.
  CString packagePath = L"E:\\Tolv\\Orlan\\安装源\\Common\\TolvLanguage.xml";
  CString moduleListPath = L"E:\\Tolv\\Orlan\\安装源\\R18\\acad.rx";
  CString sourceRoot = L"E:\\Tolv\\Orlan\\编译工程";
  KyDtDictionary *package = nullptr;
};

// The paths of section "LanguageTools" of "Set.ini" (keys "Package",
// "ModuleList", "SourceRoot"), where they are given; a relative path is
// taken under the main directory.
void LoadLanguageToolPaths(LanguageToolContext &context);

// "KyExLang".
void ExportLanguage(LanguageToolContext &context);
// One module's resources into its dictionary of the package. A module that
// does not load keeps an empty dictionary.
void ExportModule(LanguageToolContext &context, const CString &fileName);
// The callback of EnumResourceLanguagesW for the module being exported.
BOOL ExportResource(HMODULE module, LPCWSTR type, LPCWSTR name, WORD language, LONG_PTR param);
// The Chinese literals of the "cpp" files under the folder.
void ExportCodeStrings(LanguageToolContext &context, const CString &directory);
// The Chinese literals of one source line, into the module in work.
void ExportLineStrings(LanguageToolContext &context, const CString &line);
// Carries the translations of `old` over: what `fresh` lacks leaves `old`,
// what `fresh` has new joins it.
void MergePackages(LanguageToolContext &context, KyDtDictionary *fresh, KyDtDictionary *old);
// "KyReplaceLang".
void ReplaceLanguage(LanguageToolContext &context);

namespace tolv {
// The module files of a load list, in order, as the export takes them.
void ReadModuleList(const CString &listPath, CStringArray &modules, bool &opened);
}  // namespace tolv
