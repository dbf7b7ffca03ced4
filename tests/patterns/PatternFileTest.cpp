// Whole pattern files: entries in file order, comments in their places, the
// head without data at the end, Find.
#include <gtest/gtest.h>

#include "PatternTestSupport.h"

namespace {

using pattest::ReadPats;
using pattest::WritePats;

const char *const kTwoPatterns =
    ";; office patterns\n"
    "*NET, square grid\n"
    "0, 0,0, 0,.125\n"
    "90, 0,0, 0,.125\n"
    "*DASH, dashed lines\n"
    "0, 0,0, .125,.125, .125,-.125\n";

TEST(PatternFile, ReadsEntriesInFileOrder) {
  KyPats pats;
  ReadPats(pats, kTwoPatterns);
  ASSERT_EQ(pats.GetLength(), 3);
  EXPECT_EQ(pats.GetPData(0).m_strHead, CString(L";; office patterns"));
  EXPECT_EQ(pats.GetPData(1).FirstName(), CString(L"NET"));
  EXPECT_EQ(pats.GetPData(1).m_lstData.GetLength(), 2);
  EXPECT_EQ(pats.GetPData(2).FirstName(), CString(L"DASH"));
  EXPECT_EQ(pats.GetPData(2).m_lstData.GetPData(0).GetLength(), 7);
}

TEST(PatternFile, CommentBeforeAHeaderIsAnEntryOfItsOwn) {
  KyPats pats;
  ReadPats(pats, kTwoPatterns);
  const KyPat &comment = pats.GetPData(0);
  EXPECT_FALSE(comment.IsPat());
  EXPECT_TRUE(comment.IsEmpty());
  EXPECT_TRUE(pats.GetPData(1).IsPat());
}

TEST(PatternFile, CommentBetweenTwoDataLinesSplitsThePattern) {
  KyPats pats;
  ReadPats(pats, "*NET, grid\n0,0,0,0,1\n; the crossing lines\n90,0,0,0,1\n");
  ASSERT_EQ(pats.GetLength(), 2);
  EXPECT_EQ(pats.GetPData(0).FirstName(), CString(L"NET"));
  EXPECT_EQ(pats.GetPData(0).m_lstData.GetLength(), 1);
  const KyPat &second = pats.GetPData(1);
  EXPECT_EQ(second.m_strHead, CString(L"; the crossing lines"));
  EXPECT_FALSE(second.IsPat());
  ASSERT_EQ(second.m_lstData.GetLength(), 1);
  EXPECT_EQ(second.m_lstData.GetPData(0).GetLine(), CString(L"90,0,0,0,1"));
}

TEST(PatternFile, CommentsAreWrittenBackInTheirPlaces) {
  const std::string text =
      "; first\n*NET, grid\n0,0,0,0,1\n; between\n90,0,0,0,1\n; before dash\n*DASH,d\n0,0,0,1,1,1,-1\n";
  KyPats pats;
  ReadPats(pats, text);
  EXPECT_EQ(WritePats(pats), text);
}

TEST(PatternFile, HeadWithoutDataAtTheEndIsDropped) {
  KyPats pats;
  ReadPats(pats, "*NET, grid\n0,0,0,0,1\n*EMPTY, nothing follows\n");
  ASSERT_EQ(pats.GetLength(), 1);
  EXPECT_EQ(WritePats(pats), "*NET, grid\n0,0,0,0,1\n");
}

TEST(PatternFile, CommentsAtTheEndAreDroppedAllButTheFirst) {
  // Each comment is an entry; all but the last were closed by the next
  // line, and the last, having no data, is dropped.
  KyPats pats;
  ReadPats(pats, "*NET, grid\n0,0,0,0,1\n; end one\n; end two\n");
  ASSERT_EQ(pats.GetLength(), 2);
  EXPECT_EQ(pats.GetPData(1).m_strHead, CString(L"; end one"));
}

TEST(PatternFile, HeadWithoutDataInTheMiddleIsKept) {
  KyPats pats;
  ReadPats(pats, "*SOLID, no lines\n*NET, grid\n0,0,0,0,1\n");
  ASSERT_EQ(pats.GetLength(), 2);
  EXPECT_TRUE(pats.GetPData(0).IsEmpty());
  EXPECT_EQ(pats.GetPData(0).FirstName(), CString(L"SOLID"));
}

TEST(PatternFile, BlankLinesAndLinesWithoutCommaAreNotKept) {
  KyPats pats;
  ReadPats(pats, "*NET, grid\n\n   \n0,0,0,0,1\nstray words\n90,0,0,0,1\n");
  EXPECT_EQ(WritePats(pats), "*NET, grid\n0,0,0,0,1\n90,0,0,0,1\n");
}

TEST(PatternFile, ReadsCrLfLinesAndWritesThemBackInTextMode) {
  const std::string text = "*NET, grid\r\n0,0,0,0,1\r\n90,0,0,0,1\r\n";
  KyPats pats;
  ReadPats(pats, text);
  ASSERT_EQ(pats.GetLength(), 1);
  EXPECT_EQ(pats.GetPData(0).m_lstData.GetPData(1).GetLine(), CString(L"90,0,0,0,1"));
  tolvtest::ScratchDir dir("patterns-crlf");
  {
    CStdioFile file(dir.wide("out.pat").c_str(), CFile::modeCreate | CFile::modeWrite | CFile::typeText);
    pats >> file;
    file.Close();
  }
  EXPECT_EQ(tolvtest::ReadFileBytes(dir.path() / "out.pat"), text);
}

TEST(PatternFile, ReadingAppendsToWhatIsHeld) {
  KyPats pats;
  ReadPats(pats, "*A,a\n0,0,0,0,1\n");
  ReadPats(pats, "*B,b\n0,0,0,0,1\n");
  ASSERT_EQ(pats.GetLength(), 2);
  EXPECT_EQ(pats.Find(L"B"), 1);
}

TEST(PatternFile, FindGivesTheIndexOfTheFirstPatternOfThatName) {
  KyPats pats;
  ReadPats(pats, std::string(kTwoPatterns) + "*NET, a second net\n0,0,0,0,2\n");
  EXPECT_EQ(pats.Find(L"NET"), 1);
  EXPECT_EQ(pats.Find(L"DASH"), 2);
}

TEST(PatternFile, FindIsExactAndGivesMinusOneWhenMissing) {
  KyPats pats;
  ReadPats(pats, kTwoPatterns);
  EXPECT_EQ(pats.Find(L"net"), -1);
  EXPECT_EQ(pats.Find(L"NE"), -1);
  EXPECT_EQ(pats.Find(L"NET "), -1);
  EXPECT_EQ(pats.Find(L"MISSING"), -1);
  EXPECT_EQ(KyPats().Find(L"NET"), -1);
}

TEST(PatternFile, FindMatchesACommentEntryByItsWholeText) {
  KyPats pats;
  ReadPats(pats, kTwoPatterns);
  EXPECT_EQ(pats.Find(L";; office patterns"), 0);
}

TEST(PatternFile, MissingFileCannotBeOpened) {
  tolvtest::ScratchDir dir("patterns-missing");
  CStdioFile file;
  EXPECT_FALSE(file.Open(dir.wide("absent.pat").c_str(), CFile::modeRead | CFile::typeText));
}

}  // namespace
