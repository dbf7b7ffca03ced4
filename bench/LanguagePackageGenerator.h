// Writes a language package of the shape the add-on ships: one dictionary
// per module, each with the sections DIALOG, MENU, CODESTRING, STRING and
// TOOLBAR, holding string items whose names are Chinese source texts and
// whose "localname" is the translation, every entry marked with its
// "element_type". The text is laid out as the dictionary writer lays it out
// (tab indentation, attributes name, element_type, localname), so reading
// it costs what reading a shipped package costs.
//
// The content is pseudo-random from a seed, so every run measures the same
// file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <fstream>
#include <random>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "platform/windows/TextCodec.h"

namespace tolvbench {

class LanguagePackageGenerator {
 public:
  explicit LanguagePackageGenerator(std::uint32_t seed = 936) : seed_(seed) {}

  // The package text, scaled so that it comes close to `targetBytes`.
  std::string Generate(std::size_t targetBytes) {
    // One pass at scale 1 measures the size of the mix; the second pass
    // scales the number of entries to the target.
    const std::size_t unit = Build(1.0).size();
    return Build(static_cast<double>(targetBytes) / static_cast<double>(unit));
  }

  // Writes the package; false when the file can't be written.
  bool WriteFile(const std::string &path, std::size_t targetBytes) {
    const std::string text = Generate(targetBytes);
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out.write(text.data(), static_cast<std::streamsize>(text.size()));
    return static_cast<bool>(out);
  }

 private:
  static constexpr int kModules = 24;

  std::string Build(double scale) {
    random_.seed(seed_);
    std::string out;
    out.reserve(static_cast<std::size_t>(scale * 512 * 1024) + 4096);
    out += "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n";
    out += "<TolvDictionary localname=\"SenvarCAD Arch Language Package-English\" "
           "name=\"TOLV_LANGUAUE_PACKAGE\" autosort=\"FALSE\">\n";
    for (int module = 0; module < kModules; ++module) {
      const std::string key = ModuleKey(module);
      Open(out, 1, "Directory", key, "", key);
      BuildDialogs(out, scale);
      BuildMenus(out, scale);
      BuildStrings(out, 2, "CODESTRING", Scaled(300, 3000, scale), true);
      BuildStrings(out, 2, "STRING", Scaled(200, 1500, scale), false);
      Open(out, 2, "Directory", "TOOLBAR", "", "TOOLBAR");
      const int toolbars = 1 + Uniform(0, 4);
      for (int t = 0; t < toolbars; ++t) {
        const std::string id = std::to_string(130 + t);
        Leaf(out, 3, "Directory", id, "TOOLBAR", id);
      }
      Close(out, 2, "Directory");
      Close(out, 1, "Directory");
    }
    out += "</TolvDictionary>\n";
    return out;
  }

  void BuildDialogs(std::string &out, double scale) {
    Open(out, 2, "Directory", "DIALOG", "", "DIALOG");
    const int dialogs = Scaled(20, 80, scale);
    static const char *kControls[] = {"BUTTON", "STATIC", "BUTTON", "STATIC", "STATIC", "COMBOBOX", "LISTBOX"};
    for (int d = 0; d < dialogs; ++d) {
      const std::string id = std::to_string(2000 + d * 3);
      Open(out, 3, "Directory", id, "DIALOG", Translation(2, 5));
      std::set<std::string> used;
      const int controls = Uniform(5, 40);
      for (int c = 0; c < controls; ++c) {
        const char *kind = kControls[Uniform(0, 6)];
        std::string name;
        std::string local;
        if (std::string_view(kind) == "COMBOBOX" || std::string_view(kind) == "LISTBOX") {
          const int entries = Uniform(2, 6);
          for (int e = 0; e < entries; ++e) {
            if (e > 0) {
              name += ';';
              local += ';';
            }
            name += ChineseText(2, 6);
            local += Translation(1, 3);
          }
        } else {
          name = ChineseText(2, 10);
          if (Uniform(0, 4) == 0) name += "(&" + std::string(1, static_cast<char>('A' + Uniform(0, 25))) + ")";
          local = Translation(1, 5);
        }
        if (!used.insert(name).second) continue;
        Leaf(out, 4, "String", name, kind, local);
      }
      Close(out, 3, "Directory");
    }
    Close(out, 2, "Directory");
  }

  void BuildMenus(std::string &out, double scale) {
    Open(out, 2, "Directory", "MENU", "", "MENU");
    const int menus = Scaled(2, 8, scale);
    for (int m = 0; m < menus; ++m) {
      const std::string id = std::to_string(500 + m);
      Open(out, 3, "Directory", id, "MENU", id);
      std::set<std::string> popups;
      const int count = Uniform(3, 8);
      for (int p = 0; p < count; ++p) {
        const std::string name = ChineseText(2, 4) + "(&" + std::string(1, static_cast<char>('A' + p)) + ")";
        if (!popups.insert(name).second) continue;
        Open(out, 4, "Directory", name, "MENUPOPUP", Translation(1, 2));
        std::set<std::string> items;
        const int entries = Uniform(5, 15);
        for (int i = 0; i < entries; ++i) {
          std::string item = ChineseText(2, 8);
          if (Uniform(0, 2) == 0) item += "...";
          if (!items.insert(item).second) continue;
          Leaf(out, 5, "String", item, "MENUITEM", Translation(1, 4));
        }
        Close(out, 4, "Directory");
      }
      Close(out, 3, "Directory");
    }
    Close(out, 2, "Directory");
  }

  void BuildStrings(std::string &out, int depth, const char *section, int count, bool code) {
    Open(out, depth, "Directory", section, "", section);
    std::set<std::string> used;
    for (int i = 0; i < count; ++i) {
      std::string name;
      if (code) {
        // Source literals: sentences, some with a format or a line end and
        // "\" turned into "#".
        name = ChineseText(3, 18);
        const int extra = Uniform(0, 9);
        if (extra == 0) name += "：%s";
        if (extra == 1) name = "#n" + name;
        if (extra == 2) name += "，" + ChineseText(2, 8) + "%d";
        if (extra == 3) name += "！";
      } else {
        name = std::to_string(61000 + i * 7);
      }
      if (!used.insert(name).second) continue;
      Leaf(out, depth + 1, "String", name, section, Translation(code ? 2 : 1, code ? 12 : 6));
    }
    Close(out, depth, "Directory");
  }

  // ---- Layout as the writer makes it ----

  static void Indent(std::string &out, int depth) { out.append(static_cast<std::size_t>(depth), '\t'); }

  static void Attributes(std::string &out, const std::string &name, const std::string &type,
                         const std::string &local) {
    out += " name=\"";
    Escape(out, name);
    out += '"';
    if (!type.empty()) {
      out += " element_type=\"";
      Escape(out, type);
      out += '"';
    }
    out += " localname=\"";
    Escape(out, local);
    out += '"';
  }

  static void Open(std::string &out, int depth, const char *tag, const std::string &name, const std::string &type,
                   const std::string &local) {
    Indent(out, depth);
    out += '<';
    out += tag;
    Attributes(out, name, type, local);
    out += ">\n";
  }

  static void Leaf(std::string &out, int depth, const char *tag, const std::string &name, const std::string &type,
                   const std::string &local) {
    Indent(out, depth);
    out += '<';
    out += tag;
    Attributes(out, name, type, local);
    out += " />\n";
  }

  static void Close(std::string &out, int depth, const char *tag) {
    Indent(out, depth);
    out += "</";
    out += tag;
    out += ">\n";
  }

  static void Escape(std::string &out, const std::string &text) {
    for (char c : text) {
      switch (c) {
        case '&': out += "&amp;"; break;
        case '<': out += "&lt;"; break;
        case '>': out += "&gt;"; break;
        case '"': out += "&quot;"; break;
        default: out += c;
      }
    }
  }

  // ---- Content ----

  int Uniform(int low, int high) { return std::uniform_int_distribution<int>(low, high)(random_); }
  int Scaled(int low, int high, double scale) {
    const int n = static_cast<int>(Uniform(low, high) * scale + 0.5);
    return n > 0 ? n : 1;
  }

  static std::string ModuleKey(int index) {
    static const char *kKeys[kModules] = {
        "TOLVCOMCTRL",   "TOLVCOMMONTOOL", "TOLVCONVERT",    "TOLVDATABASE",   "TOLVDATAMANAGER", "TOLVELEVATION",
        "TOLVLOADER",    "TOLVLOADTOOL",   "TOLVOBJPROP",    "TOLVDBOBJECT",   "TOLVPLATFORM",    "TOLVUIANNOTATE",
        "TOLVUIBASE",    "TOLVUICOMMON",   "TOLVUIDIMENSION", "TOLVUIGLOBAL",  "TOLVUIHELPOBJ",   "TOLVUIMODEL",
        "TOLVUIMODELBASE", "TOLVUIROOF",   "TOLVUISPACE",    "TOLVUISTAIR",    "TOLVUTILITY",     "TOLVGEOMETRY"};
    return kKeys[index];
  }

  std::string ChineseText(int minChars, int maxChars) {
    static const std::wstring kPool =
        L"墙门窗柱梁板楼层标高尺寸文字样式图层颜色线型宽度设置选项确定取消应用帮助文件编辑视图插入格式工具绘图"
        L"标注修改窗口保存打开新建关闭退出复制粘贴剪切删除撤销重做查找替换选择全部对象属性参数类型名称数值单位"
        L"比例角度长度面积体积厚度材料结构建筑房间区域轴网楼梯台阶坡道屋顶阳台栏杆扶手幕墙洞口表统计计算生成更"
        L"新刷显示隐藏锁定解冻当前默认自定义系统用户项目工程图纸布局模型打印输出输入导出转换检查错误警告提示信"
        L"息无法找到路径不存在是否继续请输入选择第个次共已完成失败成功正在处理数据库配置语言中英简繁体国家地方"
        L"企业规范左右上下前后内外起点终点方向偏移距离间距数量最大最小自动手动对齐居中分布填充图案边界圆弧直线"
        L"多段矩形块定义参照外部链接缩放旋转镜像阵列拉伸修剪延伸打断合并分解倒角圆角";
    const int length = Uniform(minChars, maxChars);
    std::wstring text;
    for (int i = 0; i < length; ++i) text += kPool[static_cast<std::size_t>(Uniform(0, static_cast<int>(kPool.size()) - 1))];
    return tolv::ToUtf8(text);
  }

  std::string Translation(int minWords, int maxWords) {
    static const char *kWords[] = {
        "Wall",    "Door",     "Window", "Column",   "Beam",     "Slab",   "Floor",   "Level",   "Dimension",
        "Text",    "Style",    "Layer",  "Color",    "Linetype", "Width",  "Setting", "Option",  "OK",
        "Cancel",  "Apply",    "Help",   "File",     "Edit",     "View",   "Insert",  "Format",  "Tools",
        "Draw",    "Modify",   "Save",   "Open",     "New",      "Close",  "Exit",    "Copy",    "Paste",
        "Delete",  "Undo",     "Redo",   "Find",     "Replace",  "Select", "All",     "Object",  "Property",
        "Type",    "Name",     "Value",  "Unit",     "Scale",    "Angle",  "Length",  "Area",    "Height",
        "Material", "Room",    "Stair",  "Roof",     "Railing",  "Curtain", "Opening", "Table",  "Update",
        "Show",    "Hide",     "Lock",   "Current",  "Default",  "Custom", "Project", "Drawing", "Layout",
        "Print",   "Export",   "Import", "Check",    "Error",    "Warning", "cannot", "be",     "found",
        "please",  "enter",    "the",    "of",       "for",      "to",     "and",     "completed", "failed"};
    const int words = Uniform(minWords, maxWords);
    std::string text;
    for (int i = 0; i < words; ++i) {
      if (i > 0) text += ' ';
      text += kWords[Uniform(0, static_cast<int>(sizeof(kWords) / sizeof(kWords[0])) - 1)];
    }
    return text;
  }

  std::uint32_t seed_;
  std::mt19937 random_;
};

}  // namespace tolvbench
