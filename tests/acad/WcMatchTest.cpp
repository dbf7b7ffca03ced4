// The host's wildcard language, case by case from its definition.
#include <gtest/gtest.h>

#include "platform/acad/AcutWcMatch.h"
#include "platform/acad/AdsCodes.h"

namespace {

struct Case {
  const wchar_t *text;
  const wchar_t *pattern;
  bool match;
};

const Case kCases[] = {
    // Literal text, compared with case.
    {L"WALL", L"WALL", true},
    {L"WALL", L"wall", false},
    {L"wall", L"WALL", false},
    {L"WALL", L"WAL", false},
    {L"WAL", L"WALL", false},
    {L"", L"", true},
    {L"A", L"", false},
    {L"", L"A", false},
    // # one digit.
    {L"A1", L"A#", true},
    {L"AB", L"A#", false},
    {L"A12", L"A#", false},
    {L"A12", L"A##", true},
    {L"7", L"#", true},
    {L"", L"#", false},
    // @ one letter.
    {L"Ax", L"A@", true},
    {L"A1", L"A@", false},
    {L"A-", L"A@", false},
    {L"墙", L"@", true},
    {L"Z", L"@", true},
    // . one character that is neither digit nor letter.
    {L"A-B", L"A.B", true},
    {L"A_B", L"A.B", true},
    {L"A B", L"A.B", true},
    {L"A1B", L"A.B", false},
    {L"AxB", L"A.B", false},
    {L"A.B", L"A.B", true},
    // * any run, also empty.
    {L"WALL", L"*", true},
    {L"", L"*", true},
    {L"WALL", L"W*", true},
    {L"W", L"W*", true},
    {L"WALL", L"*L", true},
    {L"WALL", L"*A*", true},
    {L"WALL", L"*X*", false},
    {L"WALL-1", L"W*-#", true},
    {L"WALL-12", L"W*-#", false},
    {L"ABCABD", L"*AB?", true},
    {L"AXXBXXC", L"A*B*C", true},
    {L"AXXBXX", L"A*B*C", false},
    {L"AAAAAAAAAAAAAAAAAAAAAAAAAAAAAB", L"*A*A*A*A*A*A*C", false},
    // ? any one character.
    {L"WALL", L"W?LL", true},
    {L"W", L"?", true},
    {L"", L"?", false},
    {L"WAL", L"W??L", false},
    {L"门窗", L"门?", true},
    // ~ at the start negates.
    {L"WALL", L"~WALL", false},
    {L"DOOR", L"~WALL", true},
    {L"WALL", L"~W*", false},
    {L"DOOR", L"~W*", true},
    {L"", L"~", false},
    {L"X", L"~", true},
    {L"A~B", L"A~B", true},
    // [...] one of the listed characters, with ranges.
    {L"WALL1", L"WALL[123]", true},
    {L"WALL4", L"WALL[123]", false},
    {L"WALLb", L"WALL[a-c]", true},
    {L"WALLd", L"WALL[a-c]", false},
    {L"WALLB", L"WALL[a-c]", false},
    {L"W5", L"W[0-9A-F]", true},
    {L"WE", L"W[0-9A-F]", true},
    {L"WG", L"W[0-9A-F]", false},
    {L"A-", L"A[-x]", true},
    {L"A-", L"A[x-]", true},
    {L"A]", L"A[]]", true},
    // [~...] one character that is none of them.
    {L"WALL4", L"WALL[~123]", true},
    {L"WALL2", L"WALL[~123]", false},
    {L"WALLz", L"WALL[~a-c]", true},
    {L"WALLa", L"WALL[~a-c]", false},
    {L"WALL", L"WALL[~a-c]", false},
    // A bracket never closed stands for itself.
    {L"A[B", L"A[B", true},
    {L"AB", L"A[B", false},
    // , separates alternatives.
    {L"DOOR", L"WALL,DOOR", true},
    {L"WALL", L"WALL,DOOR", true},
    {L"WINDOW", L"WALL,DOOR", false},
    {L"WINDOW", L"WALL,DOOR,W*", true},
    {L"DOOR", L"~WALL,WALL", true},
    {L"WALL", L"~WALL,WALL", true},
    {L"A", L"X,", false},
    {L"", L"X,", true},
    {L"A,B", L"[,]", false},
    {L",", L"[,]", true},
    // ` escapes the next character.
    {L"A*B", L"A`*B", true},
    {L"AXB", L"A`*B", false},
    {L"A,B", L"A`,B", true},
    {L"A", L"A`,B", false},
    {L"#1", L"`##", true},
    {L"11", L"`##", false},
    {L"~X", L"`~X", true},
    {L"Y", L"`~X", false},
    {L"a]", L"a[`]]", true},
    {L"A`", L"A`", true},
    {L"A.", L"A`.", true},
    {L"A-", L"A`.", false},
    {L"A?", L"A`?", true},
    {L"AB", L"A`?", false},
};

}  // namespace

TEST(WildcardMatch, EveryCaseOfTheTable) {
  ASSERT_GE(sizeof(kCases) / sizeof(kCases[0]), 60u);
  for (const Case &c : kCases) {
    int expected = c.match ? RTNORM : RTNONE;
    EXPECT_EQ(acutWcMatch(c.text, c.pattern), expected) << "text \"" << testing::PrintToString(std::wstring(c.text))
                                                        << "\" pattern " << testing::PrintToString(std::wstring(c.pattern));
  }
}

TEST(WildcardMatch, MatchIsTheHostsNormalResult) {
  EXPECT_EQ(RTNORM, 5100);
  EXPECT_EQ(acutWcMatch(L"LAYER", L"LAY*"), 5100);
}

TEST(WildcardMatch, NullArgumentsAreAnError) {
  EXPECT_EQ(acutWcMatch(nullptr, L"*"), RTERROR);
  EXPECT_EQ(acutWcMatch(L"A", nullptr), RTERROR);
}

TEST(WildcardMatch, LongTextsAgainstManyStarsStayQuick) {
  std::wstring text(20000, L'A');
  std::wstring pattern;
  for (int i = 0; i < 200; ++i) pattern += L"*A";
  pattern += L"*B";
  EXPECT_EQ(acutWcMatch(text.c_str(), pattern.c_str()), RTNONE);
  text += L'B';
  EXPECT_EQ(acutWcMatch(text.c_str(), pattern.c_str()), RTNORM);
}
