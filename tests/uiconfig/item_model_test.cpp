// The UI item classes: names, kinds, the true values through references,
// reference counts, and the directory walks.
#include <gtest/gtest.h>

#include "UiTestSupport.h"
#include "containers/KyDynArray.h"

namespace {

using UiItemModel = UiTest;

KyDtUIItem *Command(const wchar_t *name, const wchar_t *command) {
  auto *item = new KyDtUICommandDef;
  item->SetName(name);
  item->SetData(command);
  return item;
}

TEST_F(UiItemModel, EmptyLocalNameGivesTheClassName) {
  KyDtUIMenuItem item;
  EXPECT_EQ(CString(item.GetLocalName()), CString(L"MenuItem"));
  item.SetLocalName(L"墙体");
  EXPECT_EQ(CString(item.GetLocalName()), CString(L"墙体"));
}

TEST_F(UiItemModel, EveryClassNamesItsElement) {
  struct Row {
    KyDtUIItem *item;
    const wchar_t *name;
    bool directory;
  } rows[] = {
      {KyDtUIItem::NewItem(), L"UIItem", false},
      {KyDtUIDirectory::NewItem(), L"Directory", true},
      {KyDtUIReference::NewItem(), L"Reference", false},
      {KyDtUISeparator::NewItem(), L"Separator", false},
      {KyDtUIControl::NewItem(), L"Control", false},
      {KyDtUICommandDef::NewItem(), L"CommandDef", false},
      {KyDtUISwitchStatus::NewItem(), L"SwitchStatus", false},
      {KyDtUISwitchDef::NewItem(), L"SwitchDef", true},
      {KyDtUIMenuItem::NewItem(), L"MenuItem", false},
      {KyDtUIMenuDef::NewItem(), L"MenuDef", true},
      {KyDtUIToolBoxDef::NewItem(), L"ToolBoxDef", true},
      {KyDtUIShortCut::NewItem(), L"ShortCut", false},
      {KyDtUIDictionary::NewItem(), L"TolvDictionary", true},
      {KyDtUIConfig::NewItem(), L"TolvUIConfig", true},
  };
  for (const Row &row : rows) {
    EXPECT_STREQ(row.item->GetClassName(), row.name);
    EXPECT_EQ(row.item->IsDirectory(), row.directory) << row.name;
    EXPECT_EQ(row.item->IsReference(), std::wstring(row.name) == L"Reference");
    EXPECT_TRUE(row.item->IsKindOf(row.name));
    KyDtUIDeleteItem(row.item);
  }
}

TEST_F(UiItemModel, IsKindOfIsNoInheritanceTest) {
  KyDtUIToolBoxDef toolBox;
  EXPECT_FALSE(toolBox.IsKindOf(L"Directory"));
  EXPECT_TRUE(toolBox.IsDirectory());
  KyDtUIMenuDef menu;
  EXPECT_FALSE(menu.IsKindOf(L"Directory"));
  EXPECT_FALSE(menu.IsKindOf(L"menudef"));
  EXPECT_FALSE(menu.IsKindOf(nullptr));
}

TEST_F(UiItemModel, ReferenceToAReferenceGivesTheLastTargetAndCountsOnlyTheDirectTarget) {
  KyDtUICommandDef command;
  KyDtUIReference inner;
  KyDtUIReference outer;
  inner.SetReferencedItem(&command);
  outer.SetReferencedItem(&inner);
  EXPECT_EQ(outer.GetTrueItem(), &command);
  EXPECT_EQ(outer.GetReferencedItem(), &command);
  EXPECT_EQ(outer.operator->(), &command);
  EXPECT_EQ(command.GetRefCount(), 1);
  EXPECT_EQ(inner.GetRefCount(), 1);
  EXPECT_TRUE(inner.IsReferenced());
}

TEST_F(UiItemModel, SetReferencedItemNullLowersTheOldTargetAndLeavesNull) {
  KyDtUICommandDef command;
  KyDtUIReference reference;
  reference.SetReferencedItem(&command);
  reference.SetReferencedItem(nullptr);
  EXPECT_EQ(command.GetRefCount(), 0);
  EXPECT_FALSE(command.IsReferenced());
  EXPECT_EQ(reference.GetReferencedItem(), nullptr);
  EXPECT_EQ(reference.GetTrueItem(), nullptr);
}

TEST_F(UiItemModel, RetargetingMovesTheCount) {
  KyDtUICommandDef first;
  KyDtUICommandDef second;
  KyDtUIReference reference;
  reference.SetReferencedItem(&first);
  reference.SetReferencedItem(&second);
  EXPECT_EQ(first.GetRefCount(), 0);
  EXPECT_EQ(second.GetRefCount(), 1);
  first.AddRef();
  first.AddRef();
  first.DecreaseRef();
  EXPECT_EQ(first.GetRefCount(), 1);
}

TEST_F(UiItemModel, ChainOfTenThousandReferencesIsFollowedToItsEnd) {
  KyDtUICommandDef command;
  command.SetData(L"KyWall");
  // Held by value in a vector, so the class the vector destroys must be
  // final: items are not meant to be destroyed through their base.
  struct Link final : KyDtUIReference {};
  std::vector<Link> chain(10000);
  chain.back().SetReferencedItem(&command);
  for (size_t i = 0; i + 1 < chain.size(); ++i) chain[i].SetReferencedItem(&chain[i + 1]);
  EXPECT_EQ(chain.front().GetReferencedItem(), &command);
  EXPECT_EQ(CString(chain.front().GetTrueCommand()), CString(L"KyWall"));
}

TEST_F(UiItemModel, ReferencesInACircleLeadNowhere) {
  KyDtUIReference self;
  self.SetReferencedItem(&self);
  EXPECT_EQ(self.GetReferencedItem(), nullptr);
  EXPECT_EQ(self.GetRefCount(), 1);
  KyDtUIReference a, b, c;
  a.SetReferencedItem(&b);
  b.SetReferencedItem(&c);
  c.SetReferencedItem(&a);
  EXPECT_EQ(a.GetReferencedItem(), nullptr);
  EXPECT_EQ(b.GetTrueItem(), nullptr);
}

TEST_F(UiItemModel, TrueValuesOfAPlainItem) {
  KyDtUICommandDef command;
  command.SetData(L"KyWall");
  EXPECT_EQ(CString(command.GetTrueData()), CString(L"KyWall"));
  EXPECT_EQ(CString(command.GetTrueCommand()), CString(L"KyWall"));
  // Title falls back to the local name, then the class name.
  EXPECT_EQ(CString(command.GetTrueTitle()), CString(L"CommandDef"));
  command.SetLocalName(L"墙");
  EXPECT_EQ(CString(command.GetTrueTitle()), CString(L"墙"));
  command.SetTitle(L"绘制墙体");
  EXPECT_EQ(CString(command.GetTrueTitle()), CString(L"绘制墙体"));
  // Comment falls back to the local name field as it stands.
  EXPECT_EQ(CString(command.GetTrueComment()), CString(L"墙"));
  command.SetLocalName(L"");
  EXPECT_TRUE(command.GetTrueComment().IsEmpty());
  EXPECT_TRUE(command.GetTrueBitmapID().IsEmpty());
  command.SetName(L"WALL");
  EXPECT_EQ(CString(command.GetTrueBitmapID()), CString(L"WALL"));
  EXPECT_EQ(command.GetTrueItem(), &command);
}

TEST_F(UiItemModel, AReferencesOwnTextsWinButNeverItsData) {
  KyDtUICommandDef command;
  command.SetName(L"WALL");
  command.SetTitle(L"墙体");
  command.SetComment(L"绘制墙体");
  command.SetData(L"KyWall");
  KyDtUIReference reference;
  reference.SetData(L"WALL");
  reference.SetReferencedItem(&command);
  EXPECT_EQ(CString(reference.GetTrueTitle()), CString(L"墙体"));
  EXPECT_EQ(CString(reference.GetTrueComment()), CString(L"绘制墙体"));
  EXPECT_EQ(CString(reference.GetTrueBitmapID()), CString(L"WALL"));
  EXPECT_EQ(CString(reference.GetTrueData()), CString(L"KyWall"));
  reference.SetTitle(L"画墙");
  reference.SetComment(L"说明");
  reference.SetName(L"WALL2");
  EXPECT_EQ(CString(reference.GetTrueTitle()), CString(L"画墙"));
  EXPECT_EQ(CString(reference.GetTrueComment()), CString(L"说明"));
  EXPECT_EQ(CString(reference.GetTrueBitmapID()), CString(L"WALL2"));
  EXPECT_EQ(CString(reference.GetTrueData()), CString(L"KyWall"));
  EXPECT_EQ(CString(reference.GetReferencedItemName()), CString(L"WALL"));
}

TEST_F(UiItemModel, ComparisonIsByName) {
  KyDtUICommandDef a, b;
  a.SetName(L"A");
  b.SetName(L"B");
  EXPECT_TRUE(a < b);
  EXPECT_TRUE(b > a);
  EXPECT_TRUE(a != b);
  b.SetName(L"A");
  EXPECT_TRUE(a == b);
}

TEST_F(UiItemModel, CopiesCopyTheCountAndTheTargetWithoutCounting) {
  KyDtUICommandDef command;
  command.SetName(L"C");
  command.AddRef();
  KyDtUICommandDef copy(command);
  EXPECT_EQ(copy.GetRefCount(), 1);
  EXPECT_EQ(copy.GetName(), CString(L"C"));
  KyDtUIReference reference;
  reference.SetReferencedItem(&command);
  KyDtUIReference referenceCopy(reference);
  EXPECT_EQ(referenceCopy.GetReferencedItem(), &command);
  EXPECT_EQ(command.GetRefCount(), 2);
}

TEST_F(UiItemModel, DirectoryFlagsAndWidth) {
  KyDtUIDirectory directory;
  EXPECT_FALSE(directory.CanMultiOpen());
  EXPECT_FALSE(directory.IsOpened());
  EXPECT_FALSE(directory.IsUseScrollBar());
  EXPECT_EQ(directory.GetDefaultWidth(), 0);
  directory.CanMultiOpen(true);
  directory.IsOpened(true);
  directory.IsUseScrollBar(true);
  directory.SetDefaultWidth(180);
  EXPECT_TRUE(directory.CanMultiOpen());
  EXPECT_TRUE(directory.IsOpened());
  EXPECT_TRUE(directory.IsUseScrollBar());
  EXPECT_EQ(directory.GetDefaultWidth(), 180);
}

TEST_F(UiItemModel, GetUIItemFindsADirectChildByExactName) {
  KyDtUIDirectory directory;
  auto *sub = new KyDtUIDirectory;
  sub->Append(Command(L"DEEP", L"KyDeep"));
  directory.Append(sub);
  directory.Append(Command(L"WALL", L"KyWall"));
  directory.Append(Command(L"WALL", L"KyWall2"));
  EXPECT_EQ(CString(directory.GetUIItem(L"WALL")->GetData()), CString(L"KyWall"));
  EXPECT_EQ(directory.GetUIItem(L"wall"), nullptr);
  EXPECT_EQ(directory.GetUIItem(L"DEEP"), nullptr);
}

// A subdirectory of two commands at first place and a command behind it.
class DfsTree : public UiTest {
 protected:
  DfsTree() {
    sub_ = new KyDtUIDirectory;
    first_ = Command(L"A", L"KyA");
    second_ = Command(L"B", L"KyB");
    last_ = Command(L"C", L"KyC");
    sub_->Append(first_);
    sub_->Append(second_);
    root_.Append(sub_);
    root_.Append(last_);
  }
  KyDtUIDirectory root_;
  KyDtUIDirectory *sub_;
  KyDtUIItem *first_, *second_, *last_;
};

TEST_F(DfsTree, PostOrderNumbersChildrenBeforeTheirDirectory) {
  EXPECT_EQ(root_.GetItemFromDFSId(0), first_);
  EXPECT_EQ(root_.GetItemFromDFSId(1), second_);
  EXPECT_EQ(root_.GetItemFromDFSId(2), sub_);
  EXPECT_EQ(root_.GetItemFromDFSId(3), last_);
  EXPECT_EQ(root_.GetItemFromDFSId(4), nullptr);
  EXPECT_EQ(root_.GetItemFromDFSId(0xFFFFFFFFu), nullptr);
  EXPECT_EQ(root_.GetChildNum(), 4);
}

TEST_F(DfsTree, GetAllSubItemIsPreorder) {
  KyDynArray<KyDtUIItem *> items;
  root_.GetAllSubItem(items);
  ASSERT_EQ(items.GetLength(), 4);
  EXPECT_EQ(items[0], sub_);
  EXPECT_EQ(items[1], first_);
  EXPECT_EQ(items[2], second_);
  EXPECT_EQ(items[3], last_);
}

TEST_F(DfsTree, ASwitchCountsAsOneLeafInTheNumberingButItsStatesInChildNum) {
  auto *flag = new KyDtUISwitchDef;
  flag->Append(new KyDtUISwitchStatus);
  flag->Append(new KyDtUISwitchStatus);
  root_.Append(flag);
  auto *tail = Command(L"D", L"KyD");
  root_.Append(tail);
  EXPECT_EQ(root_.GetChildNum(), 8);
  EXPECT_EQ(root_.GetItemFromDFSId(4), flag);
  EXPECT_EQ(root_.GetItemFromDFSId(5), tail);
  EXPECT_EQ(root_.GetItemFromDFSId(6), nullptr);
}

TEST_F(DfsTree, AReferenceToADirectoryIsEnteredInTheNumberingButCountsOneInChildNum) {
  auto *reference = new KyDtUIReference;
  reference->SetReferencedItem(sub_);
  root_.Append(reference);
  auto *tail = Command(L"D", L"KyD");
  root_.Append(tail);
  EXPECT_EQ(root_.GetChildNum(), 6);
  // 0..3 as before; the reference enters sub_ again with ids 4, 5 and 6.
  EXPECT_EQ(root_.GetItemFromDFSId(4), first_);
  EXPECT_EQ(root_.GetItemFromDFSId(5), second_);
  EXPECT_EQ(root_.GetItemFromDFSId(6), sub_);
  EXPECT_EQ(root_.GetItemFromDFSId(7), tail);
}

TEST_F(DfsTree, NullSlotsAndUnboundReferencesCountOne) {
  root_.KyPDList<KyDtUIItem>::Append(nullptr);
  root_.Append(new KyDtUIReference);
  auto *tail = Command(L"D", L"KyD");
  root_.Append(tail);
  EXPECT_EQ(root_.GetItemFromDFSId(6), tail);
}

TEST_F(DfsTree, AReferenceToItsOwnDirectoryDoesNotLoop) {
  auto *reference = new KyDtUIReference;
  reference->SetReferencedItem(sub_);
  sub_->Append(reference);
  // The reference back counts as an unbound one.
  EXPECT_EQ(root_.GetItemFromDFSId(0), first_);
  EXPECT_EQ(root_.GetItemFromDFSId(1), second_);
  EXPECT_EQ(root_.GetItemFromDFSId(3), sub_);
  EXPECT_EQ(root_.GetItemFromDFSId(4), last_);
  EXPECT_EQ(root_.GetItemFromDFSId(100), nullptr);
}

TEST_F(UiItemModel, FindItemByValueEntersOnlyPlainDirectories) {
  KyDtUIDirectory root;
  auto *menu = new KyDtUIMenuDef;
  menu->Append(Command(L"INMENU", L"KyInMenu"));
  root.Append(menu);
  auto *plain = new KyDtUIDirectory;
  auto *deeper = new KyDtUIDirectory;
  deeper->Append(Command(L"DOOR", L"KyDoor"));
  plain->Append(deeper);
  root.Append(plain);
  auto *item = new KyDtUIMenuItem;
  item->SetData(L"KyItem");
  root.Append(item);
  EXPECT_EQ(root.FindItemByValue(L"KyInMenu"), nullptr);
  ASSERT_NE(root.FindItemByValue(L"kydoor"), nullptr);
  EXPECT_EQ(CString(root.FindItemByValue(L"KYDOOR")->GetName()), CString(L"DOOR"));
  EXPECT_EQ(root.FindItemByValue(L"KyItem"), nullptr);
  EXPECT_EQ(root.FindItemByValue(L"KyMissing"), nullptr);
}

TEST_F(UiItemModel, FindItemByValueGivesTheFirstDepthFirst) {
  KyDtUIDirectory root;
  auto *sub = new KyDtUIDirectory;
  sub->Append(Command(L"FIRST", L"KySame"));
  root.Append(sub);
  root.Append(Command(L"SECOND", L"KySame"));
  EXPECT_EQ(CString(root.FindItemByValue(L"KySame")->GetName()), CString(L"FIRST"));
}

TEST_F(UiItemModel, AppendOutsideAReadNeitherRegistersNorBinds) {
  KyDtUIConfig config;
  auto *command = Command(L"WALL", L"KyWall");
  config.Append(command);
  auto *reference = new KyDtUIReference;
  reference->SetData(L"WALL");
  config.Append(reference);
  EXPECT_EQ(config.FindNamedItem(L"WALL"), nullptr);
  EXPECT_EQ(reference->GetReferencedItem(), nullptr);
  EXPECT_TRUE(commandLine().empty());
}

TEST_F(UiItemModel, SafeResetOutsideAReadIsAPlainReset) {
  KyDtUIConfig config;
  Read(config, "<Directory name=\"S\"><CommandDef name=\"A\">KyA</CommandDef></Directory>");
  auto *section = static_cast<KyDtUIDirectory *>(config.FindNamedItem(L"S"));
  ASSERT_NE(section, nullptr);
  section->SafeReset();
  EXPECT_EQ(section->GetLength(), 0);
  // The map still names the item: only a reset during a read clears it.
  EXPECT_NE(config.FindNamedItem(L"A"), nullptr);
}

TEST_F(UiItemModel, SafeResetWhileReadingTakesEveryNameBelowOutOfTheMap) {
  KyDtUIConfig config;
  Read(config,
       "<Directory name=\"S\"><Directory name=\"SUB\"><CommandDef name=\"A\">KyA</CommandDef></Directory>"
       "<CommandDef name=\"B\">KyB</CommandDef><CommandDef>KyNoName</CommandDef></Directory>"
       "<CommandDef name=\"OTHER\">KyO</CommandDef>");
  auto *section = static_cast<KyDtUIDirectory *>(config.FindNamedItem(L"S"));
  ASSERT_NE(section, nullptr);
  {
    KyPushVar<KyDtUIConfig *> reading(KyDtUIConfig::g_pCurUICfg, &config);
    section->SafeReset();
  }
  EXPECT_EQ(KyDtUIConfig::g_pCurUICfg, nullptr);
  EXPECT_EQ(section->GetLength(), 0);
  EXPECT_EQ(config.FindNamedItem(L"SUB"), nullptr);
  EXPECT_EQ(config.FindNamedItem(L"A"), nullptr);
  EXPECT_EQ(config.FindNamedItem(L"B"), nullptr);
  EXPECT_EQ(config.FindNamedItem(L"S"), section);
  EXPECT_NE(config.FindNamedItem(L"OTHER"), nullptr);
}

TEST_F(UiItemModel, DeletingADirectoryThroughItsListKeepsItsChildrenAlive) {
  KyDtUIDirectory root;
  auto *sub = new KyDtUIDirectory;
  auto *child = Command(L"KEPT", L"KyKept");
  sub->Append(child);
  root.Append(sub);
  root.Reset();
  // The child was let go, not freed: a pointer kept to it still reads.
  EXPECT_EQ(CString(child->GetData()), CString(L"KyKept"));
  EXPECT_GE(KyDtUIFreeDetachedItems(), 1);
}

}  // namespace
