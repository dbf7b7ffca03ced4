// Label rules for the label tests, with switches for the rule, rounding,
// the hyphen and the width position of corner windows.
#pragma once

#include <string>

inline std::string LabelConfigBody(bool sequence, bool round, bool unionLabel, int widthPos = 1,
                                   const std::string &skip = "") {
  auto item = [&](const std::string &name, const std::string &xml) { return name == skip ? std::string() : xml; };
  const std::string positions[] = {"外侧", "中线", "内侧", "其他"};
  return "<Directory name=\"LABEL\"><Directory name=\"OPENING\">" +
         item("DIVIDELABEL", "<Bool name=\"DIVIDELABEL\">FALSE</Bool>") +
         item("OPENINGRULE", std::string("<Option name=\"OPENINGRULE\" options=\"按尺寸 按顺序\">") +
                                 (sequence ? "按顺序" : "按尺寸") + "</Option>") +
         item("OPENINWIDTHPOS", "<Option name=\"OPENINWIDTHPOS\" options=\"外侧 中线 内侧 其他\">" +
                                    positions[widthPos] + "</Option>") +
         item("ROUND", std::string("<Bool name=\"ROUND\">") + (round ? "TRUE" : "FALSE") + "</Bool>") +
         item("UNIONLABEL", std::string("<Bool name=\"UNIONLABEL\">") + (unionLabel ? "TRUE" : "FALSE") + "</Bool>") +
         R"(<Directory name="DOOR"><String name="普通门" localname="M"/><String name="防火门" localname="FM"/></Directory>
<Directory name="WINDOW"><String name="普通窗" localname="C"/></Directory>
<Directory name="HOLE"><String name="墙洞" localname="D"/></Directory>
<Directory name="PRO_WIN"><String name="凸窗" localname="TC"/></Directory>
<Directory name="BAND_WIN"><String name="带形窗" localname="DC"/></Directory>
<Directory name="HALF_WIN"><String name="老虎窗" localname="LC"/></Directory>
</Directory></Directory>)";
}
