// Helpers of the project tests: XML documents from text, project files in
// scratch folders, captured message boxes.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "module/TolvDataBase.h"
#include "platform/mfc/AfxMessage.h"
#include "platform/utility/KyUtXMLDOMFile.h"
#include "platform/windows/PathMap.h"
#include "support/TestSupport.h"

namespace prjtest {

// A document read from text written into `dir` under `name`.
inline std::unique_ptr<KyUtXMLDOMFile> Document(const tolvtest::ScratchDir &dir, const std::string &name,
                                                const std::string &xml) {
  tolvtest::WriteFileBytes(dir.path() / name, xml);
  auto document = std::make_unique<KyUtXMLDOMFile>();
  if (!document->Open(dir.wide(name).c_str())) return nullptr;
  return document;
}

// The first child element of the document's root.
inline _auto_ptr<KyUtXMLDOMNode> FirstChild(KyUtXMLDOMFile &document) {
  _auto_ptr<KyUtXMLDOMNode> root = document.GetRoot();
  _auto_ptr<KyUtXMLDOMNodes> children = root->GetChildrenNodes();
  return children->GetItem(0);
}

// The system's (backslash) form of a file in the scratch folder.
inline std::wstring SystemPath(const tolvtest::ScratchDir &dir, const std::string &name) {
  return tolv::ToSystemPath((dir.path() / name).string());
}

inline std::string Narrow(const CString &text) {
  std::string out;
  for (wchar_t ch : text.view()) out += static_cast<char>(ch < 128 ? ch : '?');
  return out;
}

// Collects message boxes while it lives.
class MessageCapture {
 public:
  MessageCapture() {
    old_ = tolv::SetMessageBoxSink([this](const std::wstring &text, unsigned type) {
      texts.push_back(text);
      types.push_back(type);
      return IDOK;
    });
  }
  ~MessageCapture() { tolv::SetMessageBoxSink(old_); }
  std::vector<std::wstring> texts;
  std::vector<unsigned> types;

 private:
  tolv::MessageBoxSink old_;
};

// A project file whose floor table holds floors with these numbers, named
// F0.dwg, F1.dwg, ...
inline std::string FloorTableXml(const std::vector<std::string> &numbers) {
  std::string xml = "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<TolvProject name=\"P\">\n"
                    "<Directory name=\"FLOOR_TABLE\">\n";
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    xml += "<Floor name=\"F" + std::to_string(i) + ".dwg\" number=\"" + numbers[i] +
           "\" height=\"3000\" ptbase=\"0,0,0\"/>\n";
  }
  xml += "</Directory>\n</TolvProject>\n";
  return xml;
}

}  // namespace prjtest
