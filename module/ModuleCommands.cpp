#include "module/ModuleCommands.h"

#include "dictionary/KyDtDictionary.h"
#include "language/LanguageTools.h"
#include "module/ModuleGlobals.h"
#include "platform/acad/AcEdLisp.h"
#include "platform/dbobject/DbObjectSettings.h"
#include "project/KyDtProjectDb.h"

namespace {

// "KyPrj": brings the project database template up to the current schema by
// reading it and saving it back. Without a template the path stays empty
// and the save writes nowhere.
void ProjectTemplateCommand() {
  KyDtProjectDb project;
  project.Initialize();
  project.Save();
}

// "KyExLang": exports the language table.
void ExportLanguageCommand() {
  KyDtDictionary package;
  LanguageToolContext context;
  LoadLanguageToolPaths(context);
  context.package = &package;
  ExportLanguage(context);
}

// "KyReplaceLang": lists the source lines whose literals are to be translated.
void ReplaceLanguageCommand() {
  KyDtDictionary package;
  LanguageToolContext context;
  LoadLanguageToolPaths(context);
  context.package = &package;
  ReplaceLanguage(context);
}

// The readers hand the setting back to Lisp as a number: 0 or 1 for the
// flags, 0, 1 or 2 for the dimension adjustment.
int GetLayerStd() { return acedRetInt(g_bUseLayerStd ? 1 : 0); }
int GetDimAdjustMode() { return acedRetInt(static_cast<int>(g_nDimAdjust)); }
int GetRelateModify() { return acedRetInt(g_bUserRelateModify ? 1 : 0); }
int GetAutoBreak() { return acedRetInt(g_bAutoBreak ? 1 : 0); }

// The settings dictionary at ADVANCE\<group>\<subgroup>, made as needed one
// level at a time; null when a value item holds one of the names.
KyDtDictionary *SettingsGroup(const wchar_t *group, const wchar_t *subgroup) {
  KyDtDictionary *advance = g_dictCfg.FindOrAddDict(L"ADVANCE");
  KyDtDictionary *level = advance ? advance->FindOrAddDict(group) : nullptr;
  return level ? level->FindOrAddDict(subgroup) : nullptr;
}

// The setters take no arguments: each changes its setting in its one fixed
// way, writes it into the settings so that the stop saves it, and answers
// the new value. The change stands even when the dictionary refuses the
// value (an Option index the item doesn't offer); it then lasts until the
// module is unloaded.
int SetLayerStd() {
  g_bUseLayerStd = !g_bUseLayerStd;
  if (KyDtDictionary *entity = SettingsGroup(L"SYSTEM", L"ENTITY")) {
    // The first choice of "ENTITY_LAYER" means "use the layer standard".
    entity->SetValue(L"ENTITY_LAYER", static_cast<unsigned int>(g_bUseLayerStd ? 0 : 1));
  }
  return GetLayerStd();
}

int SetDimAdjustMode() {
  g_nDimAdjust = (g_nDimAdjust + 1) % 3;
  if (KyDtDictionary *dimension = SettingsGroup(L"ENTITY", L"DIMENSION")) {
    dimension->SetValue(L"ADJUST_MODE", g_nDimAdjust);
  }
  return GetDimAdjustMode();
}

int SetRelateModify() {
  g_bUserRelateModify = !g_bUserRelateModify;
  if (KyDtDictionary *entity = SettingsGroup(L"SYSTEM", L"ENTITY")) {
    entity->SetValue(L"RELATE_MODIFY", g_bUserRelateModify);
  }
  return GetRelateModify();
}

int SetAutoBreak() {
  g_bAutoBreak = !g_bAutoBreak;
  if (KyDtDictionary *entity = SettingsGroup(L"SYSTEM", L"ENTITY")) {
    entity->SetValue(L"AUTO_BREAK", g_bAutoBreak);
  }
  return GetAutoBreak();
}

}  // namespace

const KyCmdTable g_moduleCommands[kModuleCommandCount] = {
    {L"KyPrj", ProjectTemplateCommand, nullptr},
    {L"KyExLang", ExportLanguageCommand, nullptr},
    {L"KyReplaceLang", ReplaceLanguageCommand, nullptr},
};

const KyFunTable g_moduleLispFunctions[kModuleLispFunctionCount] = {
    {L"_KyGetLayerStd", GetLayerStd},           {L"_KySetLayerStd", SetLayerStd},
    {L"_KyGetDimAdjustMode", GetDimAdjustMode}, {L"_KySetDimAdjustMode", SetDimAdjustMode},
    {L"_KyGetRelateModify", GetRelateModify},   {L"_KySetRelateModify", SetRelateModify},
    {L"_KyGetAutoBreak", GetAutoBreak},         {L"_KySetAutoBreak", SetAutoBreak},
};
