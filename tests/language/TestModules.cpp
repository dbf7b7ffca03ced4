#include "TestModules.h"

#include "support/TestSupport.h"

namespace langtest {

std::string Dialog(const std::wstring &caption, std::initializer_list<Control> controls, bool withFont) {
  tolv::DialogTemplate d;
  d.style = 0x80C800C0u & (withFont ? 0xFFFFFFFFu : ~0x40u);
  d.cx = 200;
  d.cy = 100;
  d.title = caption;
  d.pointSize = 9;
  d.typeface = L"宋体";
  for (const Control &c : controls) {
    tolv::DialogItemTemplate item;
    item.style = 0x50000000u;
    item.id = c.id;
    std::wstring cls = c.className;
    if (cls == L"Button") item.windowClass.id = 0x80;
    else if (cls == L"Edit") item.windowClass.id = 0x81;
    else if (cls == L"Static") item.windowClass.id = 0x82;
    else if (cls == L"ListBox") item.windowClass.id = 0x83;
    else if (cls == L"ComboBox") item.windowClass.id = 0x85;
    else item.windowClass.text = cls;
    item.title.text = c.text;
    d.items.push_back(item);
  }
  return tolv::WriteDialogTemplate(d);
}

namespace {

std::string Menu(const wchar_t *file, const wchar_t *open, const wchar_t *path, const wchar_t *help) {
  tolv::MenuTemplate m;
  tolv::MenuItemTemplate popup;
  popup.popup = true;
  popup.text = file;
  tolv::MenuItemTemplate a;
  a.id = 11;
  a.text = open;
  tolv::MenuItemTemplate separator;
  tolv::MenuItemTemplate b;
  b.id = 12;
  b.text = path;
  popup.items = {a, separator, b};
  tolv::MenuItemTemplate h;
  h.id = 20;
  h.text = help;
  m.items = {popup, h};
  return tolv::WriteMenuTemplate(m);
}

std::string Strings(const wchar_t *first, const wchar_t *second) {
  std::array<std::wstring, 16> block;
  block[1] = first;
  block[2] = second;
  return tolv::WriteStringBlock(block);
}

tolv::ResName Id(std::uint16_t id) {
  tolv::ResName r;
  r.id = id;
  return r;
}

}  // namespace

std::string SampleModule() {
  std::string toolBar("\x01\x00\x10\x00\x10\x00\x02\x00\x65\x00\x00\x00", 12);
  return tolv::WritePeImage({
      {Id(5), Id(101), 0x0804,
       Dialog(L"墙设置", {{L"Button", L"确定", 1}, {L"Static", L"墙高", 2}, {L"Edit", L"输入", 3},
                          {L"ComboBox", L"", 4}, {L"Static", L"", 5}})},
      {Id(5), Id(101), 0x0409,
       Dialog(L"Wall settings", {{L"Button", L"OK", 1}, {L"Static", L"Wall height", 2}, {L"Edit", L"Input", 3},
                                 {L"ComboBox", L"", 4}, {L"Static", L"", 5}})},
      {Id(4), Id(200), 0x0804, Menu(L"文件", L"打开", L"路径\\设置", L"帮助")},
      {Id(4), Id(200), 0x0409, Menu(L"File", L"Open", L"Path\\Settings", L"Help")},
      {Id(6), Id(2), 0x0804, Strings(L"墙体\n名称", L"柱子")},
      {Id(6), Id(2), 0x0409, Strings(L"Wall\nname", L"Column")},
      {Id(241), Id(300), 0x0804, toolBar},
      // The combo box's entries, as code-page-936 text in the Chinese data.
      {Id(240), Id(101), 0x0804,
       tolv::WriteDialogInit({{4, 0x0403, "\xD7\xF3"}, {4, 0x0403, "\xD6\xD0"}, {4, 0x0403, "\xD3\xD2"}})},
      {Id(240), Id(101), 0x0409, tolv::WriteDialogInit({{4, 0x0403, "Left"}, {4, 0x0403, "Centre"}, {4, 0x0403, "Right"}})},
  });
}

void WriteBytes(const std::filesystem::path &path, const std::string &bytes) { tolvtest::WriteFileBytes(path, bytes); }

}  // namespace langtest
