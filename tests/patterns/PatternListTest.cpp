// Showing a pattern's lines in a list control.
#include <gtest/gtest.h>

#include <vector>

#include "PatternTestSupport.h"
#include "platform/mfc/CListCtrl.h"

namespace {

// A list control that notes the messages it is sent.
class RecordingList : public CListCtrl {
 public:
  std::vector<UINT> messages;

 protected:
  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
    messages.push_back(message);
    return CListCtrl::WindowProc(message, wParam, lParam);
  }
};

void AddColumns(CListCtrl &list) {
  const wchar_t *headings[] = {L"angle", L"x", L"y", L"dx", L"dy", L"dash 1", L"dash 2"};
  for (int c = 0; c < 7; ++c) list.InsertColumn(c, headings[c]);
}

TEST(PatternList, UpdateShowsOneRowPerDataLine) {
  KyPats pats;
  pattest::ReadPats(pats, "*DASH, d\n0, 0,0, .125,.125, .125,-.125\n90,1,2,3,4\n");
  CListCtrl list;
  AddColumns(list);
  pats.GetPData(0).Update(list);
  ASSERT_EQ(list.GetItemCount(), 2);
  const wchar_t *first[] = {L"0", L" 0", L"0", L" .125", L".125", L" .125", L"-.125"};
  for (int c = 0; c < 7; ++c) EXPECT_EQ(list.GetItemText(0, c), CString(first[c])) << c;
  EXPECT_EQ(list.GetItemText(1, 0), CString(L"90"));
  EXPECT_EQ(list.GetItemText(1, 4), CString(L"4"));
  EXPECT_EQ(list.GetItemText(1, 5), CString(L""));
}

TEST(PatternList, FieldsFromTheEighthOnAreNotShown) {
  KyPats pats;
  pattest::ReadPats(pats, "*D,d\n0,0,0,1,1,1,-1,2,-2,3,-3\n");
  CListCtrl list;
  AddColumns(list);
  list.InsertColumn(7, L"extra");
  pats.GetPData(0).Update(list);
  EXPECT_EQ(list.GetItemText(0, 6), CString(L"-1"));
  EXPECT_EQ(list.GetItemText(0, 7), CString(L""));
}

TEST(PatternList, UpdateEmptiesTheListFirst) {
  KyPats pats;
  pattest::ReadPats(pats, "*A,a\n0,0,0,0,1\n*B,b\n45,0,0,0,1\n90,0,0,0,1\n");
  CListCtrl list;
  AddColumns(list);
  pats.GetPData(1).Update(list);
  pats.GetPData(0).Update(list);
  ASSERT_EQ(list.GetItemCount(), 1);
  EXPECT_EQ(list.GetItemText(0, 0), CString(L"0"));
  KyPat empty(L"*EMPTY");
  empty.Update(list);
  EXPECT_EQ(list.GetItemCount(), 0);
}

TEST(PatternList, MessagesAreDeleteAllThenCountInsertAndTextPerLine) {
  KyPats pats;
  pattest::ReadPats(pats, "*A,a\n0,0,0,0,1\n90,0,0,0,1,2,-2,3\n");
  RecordingList list;
  AddColumns(list);
  list.messages.clear();
  pats.GetPData(0).Update(list);
  std::vector<UINT> expected = {4105, 4100, LVM_INSERTITEMW};
  for (int i = 0; i < 5; ++i) expected.push_back(LVM_SETITEMTEXTW);
  expected.insert(expected.end(), {4100, LVM_INSERTITEMW});
  for (int i = 0; i < 7; ++i) expected.push_back(LVM_SETITEMTEXTW);
  EXPECT_EQ(list.messages, expected);
}

TEST(PatternList, RowsGoBehindRowsAlreadyThere) {
  KyPats pats;
  pattest::ReadPats(pats, "*A,a\n7,0,0,0,1\n");
  CListCtrl list;
  AddColumns(list);
  list.InsertItem(0, L"kept");
  pats.GetPData(0).m_lstData.GetPData(0).AppendListCtrl(list);
  ASSERT_EQ(list.GetItemCount(), 2);
  EXPECT_EQ(list.GetItemText(0, 0), CString(L"kept"));
  EXPECT_EQ(list.GetItemText(1, 0), CString(L"7"));
}

}  // namespace
