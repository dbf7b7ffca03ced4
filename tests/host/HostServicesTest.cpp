// The host's services that applications reach: the system registry, the
// dynamic linker, the command stack, the Lisp front and the framework's
// chain of linked modules.
#include <gtest/gtest.h>

#include "platform/acad/AcEdCommandStack.h"
#include "platform/acad/AcEdLisp.h"
#include "platform/acad/AcRxDynamicLinker.h"
#include "platform/acad/AcRxRegistry.h"
#include "platform/acad/AdsCodes.h"
#include "platform/acad/AfxExtensionModule.h"

namespace {

int g_runs = 0;
void CountRun() { ++g_runs; }
void OtherRun() { g_runs += 100; }

TEST(SystemRegistry, HoldsTheLinkerAndTheCommandStackFromTheStart) {
  AcRxDictionary *registry = acrxSysRegistry();
  ASSERT_NE(registry, nullptr);
  EXPECT_NE(AcRxDynamicLinker::cast(registry->at(L"DynamicLinker")), nullptr);
  EXPECT_NE(AcEdCommandStack::cast(registry->at(L"ACAD_REGISTERED_COMMANDS")), nullptr);
  // The checked cast tells the two services apart.
  EXPECT_EQ(AcEdCommandStack::cast(registry->at(L"DynamicLinker")), nullptr);
  EXPECT_EQ(registry->at(L"dynamiclinker"), nullptr);
  EXPECT_EQ(registry->at(nullptr), nullptr);
}

TEST(SystemRegistry, PutAndRemoveGiveBackWhatStoodThere) {
  AcRxDictionary dict;
  AcRxDictionary a, b;
  EXPECT_EQ(dict.atPut(L"X", &a), nullptr);
  EXPECT_EQ(dict.atPut(L"X", &b), &a);
  EXPECT_EQ(dict.numEntries(), 1u);
  EXPECT_EQ(dict.remove(L"X"), &b);
  EXPECT_EQ(dict.remove(L"X"), nullptr);
  EXPECT_FALSE(dict.has(L"X"));
}

TEST(DynamicLinker, ApplicationsStartLockedAndUnlockThemselves) {
  AcRxDynamicLinker &linker = *AcRxDynamicLinker::cast(acrxSysRegistry()->at(ACRX_DYNAMIC_LINKER));
  void *app = linker.beginApplication(L"Sample");
  EXPECT_TRUE(linker.isApplicationLocked(app));
  EXPECT_FALSE(linker.isAppMDIAware(app));
  EXPECT_TRUE(acrxUnlockApplication(app));
  EXPECT_TRUE(linker.registerAppMDIAware(app));
  EXPECT_FALSE(acrxApplicationIsLocked(app));
  EXPECT_TRUE(linker.isAppMDIAware(app));
  EXPECT_STREQ(linker.applicationName(app), L"Sample");
  linker.endApplication(app);
  // An id the host doesn't know is refused.
  EXPECT_FALSE(acrxUnlockApplication(app));
  EXPECT_FALSE(linker.registerAppMDIAware(nullptr));
}

TEST(CommandStack, CommandsAreFoundWithoutRegardToCaseAndTheLastGroupWins) {
  AcEdCommandStack stack;
  EXPECT_EQ(stack.addCommand(L"G1", L"Run", nullptr, ACRX_CMD_MODAL, CountRun), Acad::eOk);
  EXPECT_EQ(stack.addCommand(L"G2", L"RUN", L"Lauf", ACRX_CMD_TRANSPARENT, OtherRun), Acad::eOk);
  ASSERT_NE(stack.lookupGlobalCmd(L"run"), nullptr);
  EXPECT_STREQ(stack.lookupGlobalCmd(L"run")->groupName(), L"G2");
  EXPECT_STREQ(stack.lookupLocalCmd(L"LAUF")->globalName(), L"RUN");
  EXPECT_EQ(stack.groupNames(), (std::vector<std::wstring>{L"G1", L"G2"}));

  g_runs = 0;
  stack.lookupGlobalCmd(L"Run")->commandExecute();
  EXPECT_EQ(g_runs, 100);
  EXPECT_EQ(stack.removeGroup(L"g2"), Acad::eOk);
  stack.lookupGlobalCmd(L"Run")->commandExecute();
  EXPECT_EQ(g_runs, 101);
}

TEST(CommandStack, RefusesDuplicatesAndBlanksAndReportsMissingOnes) {
  AcEdCommandStack stack;
  EXPECT_EQ(stack.addCommand(L"G", L"A", nullptr, 0, CountRun), Acad::eOk);
  EXPECT_EQ(stack.addCommand(L"G", L"a", nullptr, 0, CountRun), Acad::eDuplicateKey);
  EXPECT_EQ(stack.addCommand(L"", L"B", nullptr, 0, CountRun), Acad::eInvalidInput);
  EXPECT_EQ(stack.addCommand(L"G", L"", nullptr, 0, CountRun), Acad::eInvalidInput);
  EXPECT_EQ(stack.addCommand(L"G", L"B", nullptr, 0, nullptr), Acad::eInvalidInput);
  EXPECT_EQ(stack.removeCmd(L"G", L"B"), Acad::eKeyNotFound);
  EXPECT_EQ(stack.removeCmd(L"G", L"A"), Acad::eOk);
  EXPECT_EQ(stack.removeGroup(L"NoSuchGroup"), Acad::eKeyNotFound);
  EXPECT_EQ(stack.lookupGlobalCmd(L"A"), nullptr);
  EXPECT_EQ(stack.lookupGlobalCmd(nullptr), nullptr);
}

class LispFront : public ::testing::Test {
 protected:
  ~LispFront() override {
    for (int doc : docs_) tolv::LispHost::Instance().CloseDocument(doc);
  }
  int Open() {
    docs_.push_back(tolv::LispHost::Instance().OpenDocument());
    return docs_.back();
  }
  std::vector<int> docs_;
  int app_ = 0;  // its address serves as an application id
};

TEST_F(LispFront, FunctionsBelongToTheirDocument) {
  int first = Open();
  {
    tolv::LispHost::ServingScope serving(&app_);
    EXPECT_EQ(acedDefun(L"c:Hello", 4), RTNORM);
  }
  tolv::LispFunction f;
  ASSERT_TRUE(tolv::LispHost::Instance().Find(L"C:HELLO", f));
  EXPECT_EQ(f.code, 4);
  EXPECT_EQ(f.appId, &app_);

  Open();
  EXPECT_FALSE(tolv::LispHost::Instance().Find(L"c:hello", f));
  EXPECT_TRUE(tolv::LispHost::Instance().ActivateDocument(first));
  EXPECT_TRUE(tolv::LispHost::Instance().Find(L"c:hello", f));

  tolv::LispHost::Instance().ForgetApplication(&app_);
  EXPECT_FALSE(tolv::LispHost::Instance().Find(L"c:hello", f));
}

TEST_F(LispFront, DefiningWithoutADocumentFails) {
  for (int doc : docs_) tolv::LispHost::Instance().CloseDocument(doc);
  docs_.clear();
  ASSERT_EQ(tolv::LispHost::Instance().CurrentDocument(), 0);
  EXPECT_EQ(acedDefun(L"x", 0), RTERROR);
}

TEST_F(LispFront, ARedefinitionReplacesTheOldOne) {
  Open();
  acedDefun(L"f", 1);
  acedDefun(L"F", 2);
  ASSERT_EQ(tolv::LispHost::Instance().Functions().size(), 1u);
  EXPECT_EQ(tolv::LispHost::Instance().Functions()[0].code, 2);
  EXPECT_EQ(acedUndef(L"f", 2), RTNORM);
  EXPECT_TRUE(tolv::LispHost::Instance().Functions().empty());
}

TEST_F(LispFront, ResultsAreTakenOnlyDuringAnInvocation) {
  Open();
  EXPECT_EQ(acedRetInt(3), RTERROR);
  EXPECT_EQ(acedGetFunCode(), RTERROR);
  tolv::LispFunction f{L"f", 7, &app_};
  int codeSeen = -1;
  tolv::LispResult r = tolv::LispHost::Instance().Invoke(f, [&] {
    codeSeen = acedGetFunCode();
    EXPECT_EQ(acedRetInt(42), RTNORM);
  });
  EXPECT_EQ(codeSeen, 7);
  EXPECT_EQ(r.kind, tolv::LispResult::kInt);
  EXPECT_EQ(r.ToString(), L"42");
  EXPECT_EQ(acedGetFunCode(), RTERROR);
}

TEST_F(LispFront, InvocationsNestAndEachKeepsItsOwnResult) {
  Open();
  tolv::LispFunction outer{L"outer", 1, &app_}, inner{L"inner", 2, &app_};
  tolv::LispResult innerResult;
  tolv::LispResult r = tolv::LispHost::Instance().Invoke(outer, [&] {
    acedRetStr(L"outer");
    innerResult = tolv::LispHost::Instance().Invoke(inner, [] { acedRetT(); });
    EXPECT_EQ(acedGetFunCode(), 1);
  });
  EXPECT_EQ(r.ToString(), L"\"outer\"");
  EXPECT_EQ(innerResult.ToString(), L"T");
}

TEST(ExtensionModules, LinksAreMadeByTheModuleAndDeletedByTheFramework) {
  static int anchor;
  HINSTANCE self = reinterpret_cast<HINSTANCE>(&anchor);
  AFX_EXTENSION_MODULE record;
  const int before = tolv::LinkedModuleCount();
  ASSERT_TRUE(AfxInitExtensionModule(record, self));
  EXPECT_TRUE(record.bInitialized);
  new CDynLinkLibrary(record);
  EXPECT_EQ(tolv::LinkedModuleCount(), before + 1);
  EXPECT_TRUE(tolv::IsModuleLinked(self));
  AfxTermExtensionModule(record);
  EXPECT_EQ(tolv::LinkedModuleCount(), before);
  EXPECT_FALSE(record.bInitialized);

  EXPECT_FALSE(AfxInitExtensionModule(record, nullptr));
  tolv::FailNextExtensionModuleInit();
  EXPECT_FALSE(AfxInitExtensionModule(record, self));
  EXPECT_TRUE(AfxInitExtensionModule(record, self));
  AfxTermExtensionModule(record);
}

}  // namespace
