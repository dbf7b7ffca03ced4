#include "UiTestSupport.h"

#include "platform/acad/AcutPrintf.h"

UiTest::UiTest() {
  RegisterUIElementFactories();
  tolv::SetCommandLineSink([this](const std::wstring &text) { commandLine_ += text; });
}

UiTest::~UiTest() { tolv::SetCommandLineSink(nullptr); }

std::wstring UiTest::WriteFile(const std::string &name, const std::string &bytes) {
  tolvtest::WriteFileBytes(dir_.path() / name, bytes);
  return dir_.wide(name);
}

std::string UiTest::ReadFile(const std::string &name) const { return tolvtest::ReadFileBytes(dir_.path() / name); }

std::string UiTest::Document(const std::string &body) {
  return "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<TolvUIConfig localname=\"UI\">\n" + body +
         "\n</TolvUIConfig>\n";
}

void UiTest::Read(KyDtUIConfig &config, const std::string &body) {
  std::wstring path = WriteFile("read.xml", Document(body));
  ASSERT_TRUE(config.ReadFromXML(path.c_str()));
}

std::wstring UnboundMessage(const std::wstring &name) { return L"\nUIConfig.XML中引用错误<" + name + L">"; }
