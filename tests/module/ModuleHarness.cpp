#include "ModuleHarness.h"

#include <cstdlib>
#include <filesystem>

#include "dictionary/KyDtDictionary.h"
#include "module/EntryPoint.h"
#include "module/ModuleCommands.h"
#include "module/ModuleGlobals.h"
#include "module/ModuleState.h"
#include "platform/acad/AcEdCommandStack.h"
#include "platform/acad/AcRxDynamicLinker.h"
#include "platform/acad/AcRxRegistry.h"
#include "platform/acad/AcutPrintf.h"
#include "platform/acad/AfxExtensionModule.h"
#include "platform/dbobject/DbObjectSettings.h"
#include "platform/dbobject/KyDbHooks.h"
#include "platform/dbobject/UiSettings.h"
#include "platform/geometry/GeTolerance.h"
#include "platform/mfc/AfxMessage.h"
#include "platform/morv/MorvSettings.h"
#include "platform/utility/SupportFiles.h"

namespace {

AcRxDynamicLinker *Linker() {
  return AcRxDynamicLinker::cast(acrxSysRegistry()->at(ACRX_DYNAMIC_LINKER));
}

void ClearDictionary(KyDtDictionary &dict) {
  dict.Reset();
  dict.SetAutoSort(0);
}

}  // namespace

std::string DictionaryFile(const std::string &body) {
  return "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<TolvDictionary autosort=\"FALSE\" name=\"\">\n" +
         body + "\n</TolvDictionary>\n";
}

ModuleHarness::ModuleHarness() {
  // The support files are looked for in the scratch folder only.
  ::unsetenv("TOLV_SUPPORT_PATH");
  tolv::SetMainDirectory(support_.wide());
  tolv::ResetDbObjectSettings();
  tolv::ResetUiSettings();
  // Every installation has its UI definition; an empty one says nothing.
  WriteSupportFile("UIConfig.xml", "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<TolvUIConfig/>\n");
  tolv::ResetGeometryTolerances();
  tolv::ResetMorvSettings();
  ClearDictionary(g_dictCfg);
  ClearDictionary(g_dictHistoryData);
  g_KyGetLayerIdMethod = nullptr;
  g_KyGetLabelListMethod = nullptr;
  g_KyGetLayerIdMethod1 = nullptr;
  tolv::SetCommandLineSink([this](const std::wstring &text) { commandLine_ += text; });
  tolv::SetMessageBoxSink([this](const std::wstring &text, unsigned) {
    messageBoxes_.push_back(text);
    return IDOK;
  });
  appId_ = Linker()->beginApplication(L"TolvDataBase");
}

ModuleHarness::~ModuleHarness() {
  // A test that started the module and didn't stop it leaves neither its
  // framework link nor its commands behind for the next one.
  if (TheModuleState().extension.bInitialized) AfxTermExtensionModule(TheModuleState().extension);
  if (AcEdCommandStack *commands = AcEdCommandStack::cast(acrxSysRegistry()->at(ACRX_COMMAND_DOCK)))
    commands->removeGroup(kModuleCommandGroup);
  for (int doc : documents_) tolv::LispHost::Instance().CloseDocument(doc);
  Linker()->endApplication(appId_);
  tolv::SetCommandLineSink(nullptr);
  tolv::SetMessageBoxSink(nullptr);
  tolv::SetMainDirectory(L"");
  ClearDictionary(g_dictCfg);
  ClearDictionary(g_dictHistoryData);
}

void ModuleHarness::WriteConfig(const std::string &body) {
  WriteSupportFile("config.xml", DictionaryFile(body));
}

void ModuleHarness::WriteHistory(const std::string &body) {
  WriteSupportFile("HistoryData.xml", DictionaryFile(body));
}

void ModuleHarness::WriteSupportFile(const std::string &name, const std::string &bytes) {
  tolvtest::WriteFileBytes(support_.path() / name, bytes);
}

bool ModuleHarness::SupportFileExists(const std::string &name) const {
  return std::filesystem::exists(support_.path() / name);
}

std::string ModuleHarness::ReadSupportFile(const std::string &name) const {
  return tolvtest::ReadFileBytes(support_.path() / name);
}

AcRx::AppRetCode ModuleHarness::Send(AcRx::AppMsgCode msg) { return acrxEntryPoint(msg, appId_); }

int ModuleHarness::OpenDocument() {
  int doc = tolv::LispHost::Instance().OpenDocument();
  documents_.push_back(doc);
  tolv::LispHost::ServingScope serving(appId_);
  EXPECT_EQ(Send(AcRx::kLoadDwgMsg), AcRx::kRetOK);
  return doc;
}

tolv::LispResult ModuleHarness::Invoke(const std::wstring &name) {
  tolv::LispFunction function;
  if (!tolv::LispHost::Instance().Find(name, function)) {
    ADD_FAILURE() << "no Lisp function " << std::string(name.begin(), name.end());
    return {};
  }
  EXPECT_EQ(function.appId, appId_);
  return tolv::LispHost::Instance().Invoke(function, [this] { EXPECT_EQ(Send(AcRx::kInvkSubrMsg), AcRx::kRetOK); });
}

int ModuleHarness::InvokeInt(const std::wstring &name) {
  tolv::LispResult r = Invoke(name);
  EXPECT_EQ(r.kind, tolv::LispResult::kInt);
  return r.intValue;
}
