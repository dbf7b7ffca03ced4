// The module loaded, started, stopped and unloaded twice in one process, as
// a host does when the user unloads and loads it again. Under the address
// sanitizer this also shows that nothing of the first load leaks.
//
// This program uses the module only through dlopen, so that unloading it
// really takes it out of the process.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "platform/acad/AcEdCommandStack.h"
#include "platform/acad/AcEdLisp.h"
#include "platform/acad/AcRx.h"
#include "platform/acad/AcRxDynamicLinker.h"
#include "platform/acad/AcRxRegistry.h"
#include "platform/acad/AcutPrintf.h"
#include "platform/acad/AfxExtensionModule.h"
#include "platform/mfc/AfxMessage.h"
#include "support/TestSupport.h"

namespace {

namespace fs = std::filesystem;
using EntryPoint = AcRx::AppRetCode (*)(AcRx::AppMsgCode, void *);

AcRxDynamicLinker *Linker() { return AcRxDynamicLinker::cast(acrxSysRegistry()->at(ACRX_DYNAMIC_LINKER)); }
AcEdCommandStack *Commands() { return AcEdCommandStack::cast(acrxSysRegistry()->at(ACRX_COMMAND_DOCK)); }

class ModuleReload : public ::testing::Test {
 protected:
  ModuleReload() {
    fs::copy(fs::path(TOLV_SOURCE_DIR) / "share" / "support", support(), fs::copy_options::recursive);
    ::setenv("TOLV_MAIN_DIR", support().c_str(), 1);
    ::unsetenv("TOLV_SUPPORT_PATH");
    tolv::SetCommandLineSink([this](const std::wstring &text) { printed_ += text; });
    tolv::SetMessageBoxSink([this](const std::wstring &text, unsigned) {
      boxes_ += text;
      return IDOK;
    });
  }
  ~ModuleReload() override {
    tolv::SetCommandLineSink(nullptr);
    tolv::SetMessageBoxSink(nullptr);
    ::unsetenv("TOLV_MAIN_DIR");
  }

  void SetUp() override {
    // Where the build links every test program against the module (as the
    // sanitizer builds do), the module can't leave this process; the host
    // program's cycles test makes the same round trip in a process of its own.
    if (void *linked = ::dlopen(TOLV_MODULE_PATH, RTLD_NOW | RTLD_NOLOAD)) {
      ::dlclose(linked);
      GTEST_SKIP() << "the module is linked into this test program";
    }
  }

  fs::path support() const { return work_.path() / "support"; }

  // Loads the module; null entry point when it can't be loaded.
  EntryPoint Load() {
    EXPECT_EQ(::dlopen(TOLV_MODULE_PATH, RTLD_NOW | RTLD_NOLOAD), nullptr) << "the module is already loaded";
    handle_ = ::dlopen(TOLV_MODULE_PATH, RTLD_NOW | RTLD_LOCAL);
    if (!handle_) {
      ADD_FAILURE() << ::dlerror();
      return nullptr;
    }
    auto entry = reinterpret_cast<EntryPoint>(::dlsym(handle_, "acrxEntryPoint"));
    EXPECT_NE(entry, nullptr);
    EXPECT_NE(::dlsym(handle_, "acrxGetApiVersion"), nullptr);
    return entry;
  }

  void Unload() {
    ASSERT_EQ(::dlclose(handle_), 0);
    handle_ = nullptr;
    // Gone from the process, with its global objects.
    void *again = ::dlopen(TOLV_MODULE_PATH, RTLD_NOW | RTLD_NOLOAD);
    EXPECT_EQ(again, nullptr) << "the module stayed in the process after it was unloaded";
    if (again) ::dlclose(again);
  }

  // One whole session: start, a document, one setter, stop. Gives what the
  // setter answered.
  int Session(EntryPoint entry) {
    void *app = Linker()->beginApplication(L"TolvDataBase");
    const int linked = tolv::LinkedModuleCount();
    EXPECT_EQ(entry(AcRx::kInitAppMsg, app), AcRx::kRetOK);
    EXPECT_EQ(tolv::LinkedModuleCount(), linked + 1);
    EXPECT_NE(Commands()->lookupGlobalCmd(L"KyPrj"), nullptr);

    int doc = tolv::LispHost::Instance().OpenDocument();
    {
      tolv::LispHost::ServingScope serving(app);
      EXPECT_EQ(entry(AcRx::kLoadDwgMsg, app), AcRx::kRetOK);
    }
    tolv::LispFunction setter;
    EXPECT_TRUE(tolv::LispHost::Instance().Find(L"_KySetAutoBreak", setter));
    tolv::LispResult result = tolv::LispHost::Instance().Invoke(setter, [&] { entry(AcRx::kInvkSubrMsg, app); });
    EXPECT_EQ(entry(AcRx::kUnloadDwgMsg, app), AcRx::kRetOK);
    tolv::LispHost::Instance().CloseDocument(doc);

    EXPECT_EQ(entry(AcRx::kUnloadAppMsg, app), AcRx::kRetOK);
    EXPECT_EQ(Commands()->lookupGlobalCmd(L"KyPrj"), nullptr);
    EXPECT_EQ(tolv::LinkedModuleCount(), linked);
    tolv::LispHost::Instance().ForgetApplication(app);
    Linker()->endApplication(app);
    EXPECT_EQ(result.kind, tolv::LispResult::kInt);
    return result.intValue;
  }

  tolvtest::ScratchDir work_{"reload"};
  void *handle_ = nullptr;
  std::wstring printed_;
  std::wstring boxes_;
};

TEST_F(ModuleReload, LoadStartStopUnloadTwice) {
  EntryPoint entry = Load();
  ASSERT_NE(entry, nullptr);
  EXPECT_EQ(Session(entry), 0);  // the bundled settings have it on
  Unload();

  entry = Load();
  ASSERT_NE(entry, nullptr);
  EXPECT_EQ(Session(entry), 1);  // the second load read what the first saved
  Unload();

  EXPECT_TRUE(printed_.empty());
  EXPECT_TRUE(boxes_.empty());
}

TEST_F(ModuleReload, EveryLoadStartsWithEmptyGlobals) {
  EntryPoint entry = Load();
  ASSERT_NE(entry, nullptr);
  EXPECT_EQ(Session(entry), 0);
  Unload();

  // A stop without a start saves the settings as they stand at load: if
  // anything of the first load had survived, it would be written here.
  entry = Load();
  ASSERT_NE(entry, nullptr);
  void *app = Linker()->beginApplication(L"TolvDataBase");
  EXPECT_EQ(entry(AcRx::kUnloadAppMsg, app), AcRx::kRetOK);
  Linker()->endApplication(app);
  Unload();
  const std::string saved = tolvtest::ReadFileBytes(support() / "config.xml");
  EXPECT_EQ(saved.find("ADVANCE"), std::string::npos) << saved;
  EXPECT_NE(saved.find("<TolvDictionary"), std::string::npos) << saved;
}

}  // namespace
