// The layer configuration the layer tests share: two standards, fields in
// nested groups, whole keys and a few items of the wrong kinds.
#pragma once

#include <string>

inline std::string LayerConfigBody() {
  return R"(<Directory name="LAYER">
  <String name="CUR_STD">TEST</String>
  <Directory name="TEST">
    <Directory name="LAYER_FIELD_DEF">
      <Directory name="MAJOR">
        <String name="A" localname="甲" color="1" linetype="DASHED" lw="25" linescale="2" width="100" type="x" comment="first">a</String>
        <String name="B" localname="乙" color="3" lineweight="0.35">b</String>
        <Directory name="DEEPER">
          <String name="C" localname="" color="0" linetype="" lw="30">c</String>
        </Directory>
      </Directory>
      <Int name="D">5</Int>
      <Directory name="GROUP"/>
      <String name="BADCOLOR" color="99999">bc</String>
      <String name="TEXTCOLOR" color="red" lw="thick">tc</String>
      <String name="NOLT" color="4" linetype="NO_SUCH_LINETYPE" lw="40">nolt</String>
    </Directory>
    <Directory name="ASSEMBLY_LAYER_DEF">
      <String name="B-A" color="5" localname="整体">BA_LAYER</String>
      <String name="A-X">ax</String>
      <String name="WALL" localname="墙" color="2" linetype="CENTER" lw="50" linescale="0">墙</String>
      <Directory name="ARCS">
        <String name="WALL-ARC" color="6">弧墙</String>
        <String name="WALL-EMPTY"></String>
      </Directory>
    </Directory>
  </Directory>
  <Directory name="OTHER">
    <Directory name="LAYER_FIELD_DEF">
      <String name="A" color="7">other_a</String>
    </Directory>
  </Directory>
  <Bool name="FLAG">TRUE</Bool>
</Directory>)";
}
