// Messages to the user: the message box and the host's command line both go
// to replaceable sinks, which tests use to capture the text.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "platform/acad/AcutPrintf.h"
#include "platform/mfc/AfxMessage.h"

namespace {

struct Shown {
  std::wstring text;
  unsigned type;
};

TEST(MessageBoxSink, CapturesTextAndTypeAndGivesTheAnswer) {
  std::vector<Shown> shown;
  tolv::MessageBoxSink old = tolv::SetMessageBoxSink([&](const std::wstring &text, unsigned type) {
    shown.push_back({text, type});
    return IDNO;
  });
  EXPECT_EQ(AfxMessageBox(L" 楼层号重复!", 16, 0), IDNO);
  EXPECT_EQ(AfxMessageBox(L"second"), IDNO);
  EXPECT_EQ(AfxMessageBox(nullptr, MB_YESNO), IDNO);
  tolv::SetMessageBoxSink(std::move(old));
  ASSERT_EQ(shown.size(), 3u);
  EXPECT_EQ(shown[0].text, L" 楼层号重复!");
  EXPECT_EQ(shown[0].type, 16u);
  EXPECT_EQ(shown[1].text, L"second");
  EXPECT_EQ(shown[1].type, MB_OK);
  EXPECT_EQ(shown[2].text, L"");
  EXPECT_EQ(shown[2].type, MB_YESNO);
}

TEST(MessageBoxSink, SetGivesBackThePreviousSink) {
  int firstCalls = 0;
  tolv::MessageBoxSink original = tolv::SetMessageBoxSink([&](const std::wstring &, unsigned) {
    ++firstCalls;
    return IDOK;
  });
  tolv::MessageBoxSink first = tolv::SetMessageBoxSink([](const std::wstring &, unsigned) { return IDCANCEL; });
  EXPECT_EQ(AfxMessageBox(L"x"), IDCANCEL);
  ASSERT_TRUE(first);
  tolv::SetMessageBoxSink(std::move(first));
  EXPECT_EQ(AfxMessageBox(L"y"), IDOK);
  EXPECT_EQ(firstCalls, 1);
  tolv::SetMessageBoxSink(std::move(original));
}

TEST(MessageBoxSink, DefaultWritesAMarkedLineAndAnswersTheFirstButton) {
  tolv::MessageBoxSink old = tolv::SetMessageBoxSink(nullptr);
  testing::internal::CaptureStderr();
  int ok = AfxMessageBox(L"保存失败", MB_OK | MB_ICONERROR);
  int yes = AfxMessageBox(L"q?", MB_YESNO | MB_ICONQUESTION);
  int yesOfThree = AfxMessageBox(L"3", MB_YESNOCANCEL);
  int okOfTwo = AfxMessageBox(L"2", MB_OKCANCEL);
  int retry = AfxMessageBox(L"r", MB_RETRYCANCEL);
  int abortAnswer = AfxMessageBox(L"a", MB_ABORTRETRYIGNORE);
  std::string err = testing::internal::GetCapturedStderr();
  tolv::SetMessageBoxSink(std::move(old));
  EXPECT_EQ(ok, IDOK);
  EXPECT_EQ(yes, IDYES);
  EXPECT_EQ(yesOfThree, IDYES);
  EXPECT_EQ(okOfTwo, IDOK);
  EXPECT_EQ(retry, IDRETRY);
  EXPECT_EQ(abortAnswer, IDABORT);
  EXPECT_NE(err.find("[message box] \xE4\xBF\x9D\xE5\xAD\x98\xE5\xA4\xB1\xE8\xB4\xA5\n"), std::string::npos) << err;
  EXPECT_NE(err.find("[message box] q?\n"), std::string::npos) << err;
}

TEST(CommandLineSink, CapturesFormattedText) {
  std::wstring captured;
  tolv::CommandLineSink old = tolv::SetCommandLineSink([&](const std::wstring &text) { captured += text; });
  int n = acutPrintf(L"\n加载%s失败！%d", L"config.xml", 2);
  acutPrintf(L" %g|%ld", 1.5, static_cast<std::int32_t>(-3));
  tolv::SetCommandLineSink(std::move(old));
  EXPECT_EQ(captured, L"\n加载config.xml失败！2 1.5|-3");
  EXPECT_EQ(n, 17);
}

TEST(CommandLineSink, DefaultPrintsUtf8OnStandardOutput) {
  tolv::CommandLineSink old = tolv::SetCommandLineSink(nullptr);
  testing::internal::CaptureStdout();
  acutPrintf(L"\n导出完毕,%s", L"路径");
  std::string out = testing::internal::GetCapturedStdout();
  tolv::SetCommandLineSink(std::move(old));
  EXPECT_EQ(out, "\n\xE5\xAF\xBC\xE5\x87\xBA\xE5\xAE\x8C\xE6\xAF\x95,\xE8\xB7\xAF\xE5\xBE\x84");
}

}  // namespace
