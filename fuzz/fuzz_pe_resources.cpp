// Feeds arbitrary bytes to the PE resource reader and, for what it finds, to
// the dialog, menu, string-table and tool-bar readers, then makes the
// dialogs and menus as the language tools do. Nothing may crash, hang or
// allocate without bound.
#include <cstddef>
#include <cstdint>
#include <string>

#include "FuzzSeeds.h"
#include "TolvDataBase.h"

namespace {

tolv::ResName Id(std::uint16_t id) {
  tolv::ResName r;
  r.id = id;
  return r;
}

std::string SampleDialog(bool withFont) {
  tolv::DialogTemplate d;
  d.style = withFont ? 0x80C800C8u : 0x80C80088u;
  d.title = L"墙设置";
  d.typeface = L"宋体";
  for (std::uint16_t i = 0; i < 3; ++i) {
    tolv::DialogItemTemplate item;
    item.id = i + 1;
    item.windowClass.id = static_cast<std::uint16_t>(0x80 + i);
    item.title.text = i == 2 ? L"" : L"确定";
    d.items.push_back(item);
  }
  return tolv::WriteDialogTemplate(d);
}

std::string SampleMenu() {
  tolv::MenuTemplate m;
  tolv::MenuItemTemplate popup, item, separator;
  popup.popup = true;
  popup.text = L"文件";
  item.id = 11;
  item.text = L"打开";
  popup.items = {item, separator, item};
  m.items = {popup, item};
  return tolv::WriteMenuTemplate(m);
}

}  // namespace

std::vector<std::string> FuzzTargetSeeds() {
  std::array<std::wstring, 16> strings;
  strings[1] = L"墙体";
  strings[15] = L"柱";
  tolv::ResName named;
  named.text = L"NAMED";
  return {
      tolv::WritePeImage({{Id(5), Id(101), 0x0804, SampleDialog(true)},
                          {Id(5), Id(102), 0x0409, SampleDialog(false)},
                          {Id(4), Id(200), 0x0804, SampleMenu()},
                          {Id(6), Id(2), 0x0804, tolv::WriteStringBlock(strings)},
                          {Id(241), Id(300), 0, std::string("\x01\x00\x10\x00\x10\x00\x01\x00\x65\x00", 10)},
                          {named, named, 0, "data"},
                          {Id(240), Id(101), 0x0804, tolv::WriteDialogInit({{3, 0x0403, "\xD7\xF3"}, {3, 0x0403, "b"}})}}),
      tolv::WritePeImage({{Id(4), Id(1), 0, SampleMenu()}}),
  };
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
  tolv::PeImage image;
  std::string error;
  if (!image.Parse(std::vector<std::uint8_t>(data, data + size), error)) return 0;
  std::vector<tolv::RawResource> raw;
  for (const tolv::PeResource &r : image.Resources()) {
    const std::string bytes(image.Data(r));
    if (r.type.IsId() && r.type.id == 5) {
      tolv::DialogTemplate d;
      if (tolv::ParseDialogTemplate(bytes, d)) DestroyWindow(tolv::CreateDialogFromTemplate(d, nullptr));
    } else if (r.type.IsId() && r.type.id == 4) {
      tolv::MenuTemplate m;
      tolv::ParseMenuTemplate(bytes, m);
    } else if (r.type.IsId() && r.type.id == 6) {
      std::array<std::wstring, 16> strings;
      tolv::ParseStringBlock(bytes, strings);
    } else if (r.type.IsId() && r.type.id == 240) {
      std::vector<tolv::DialogInitRecord> records;
      tolv::ParseDialogInit(bytes, records);
    } else if (r.type.IsId() && r.type.id == 241) {
      tolv::ToolBarTemplate t;
      tolv::ParseToolBar(bytes, t);
    }
    if (r.type.IsId() && r.name.IsId() && raw.size() < 64)
      raw.push_back({MAKEINTRESOURCEW(r.type.id), MAKEINTRESOURCEW(r.name.id), r.language, bytes});
  }
  // The same resources through the module functions.
  HMODULE module = tolv::CreateResourceModule(L"C:\\fuzz\\TolvFuzz.dll", raw);
  for (const tolv::RawResource &r : raw) {
    const unsigned type = RESOURCE_ID(r.type), id = RESOURCE_ID(r.name);
    if (type == 4) DestroyMenu(LoadMenuW(module, r.name));
    if (type == 5) {
      DestroyWindow(CreateDialogParamW(module, r.name, nullptr, nullptr, 0));
      // The framework's dialog, which also runs the dialog's initial data.
      AfxSetResourceHandle(module);
      CDialog dialog;
      dialog.Create(id);
      AfxSetResourceHandle(nullptr);
    }
    if (type == 6) {
      wchar_t text[64];
      LoadStringW(module, (id - 1) * 16, text, 64);
    }
  }
  FreeLibrary(module);
  return 0;
}
