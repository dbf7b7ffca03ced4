// The commands and Lisp functions the module offers the host.
#pragma once

#include "platform/dbobject/KyCommandTables.h"

// The command group of the module.
constexpr const wchar_t *kModuleCommandGroup = L"TolvDataBase";

constexpr int kModuleCommandCount = 3;
constexpr int kModuleLispFunctionCount = 8;

// "KyPrj", "KyExLang", "KyReplaceLang".
extern const KyCmdTable g_moduleCommands[kModuleCommandCount];
// The readers and setters of four settings, each reader before its setter:
// "_KyGetLayerStd", "_KySetLayerStd", "_KyGetDimAdjustMode",
// "_KySetDimAdjustMode", "_KyGetRelateModify", "_KySetRelateModify",
// "_KyGetAutoBreak", "_KySetAutoBreak".
extern const KyFunTable g_moduleLispFunctions[kModuleLispFunctionCount];
