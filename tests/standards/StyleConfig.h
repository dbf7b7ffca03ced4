// Text and dimension style definitions for the style tests.
#pragma once

#include <string>

inline std::string StyleConfigBody() {
  return R"(<Directory name="TEXT_STYLE">
  <String name="DIM" chsfont="gbcbig.shx" enfont="gbenor.shx" xscale="0.7" ecxscale="0.9" ecyscale="1.1" color="3" textheight="2.5">S_DIM</String>
  <String name="PLAIN" color="0" textheight="-">S_PLAIN</String>
  <String name="NOHEIGHT" color="5">S_NOHEIGHT</String>
  <Directory name="GROUP"><String name="INNER" textheight="4" color="2">S_INNER</String></Directory>
  <Int name="NUMBER">3</Int>
</Directory>
<Directory name="DIM_STYLE">
  <String name="LINEAR" textstyle="DIM" dimblk="_ARCHTICK" arrowsize="1.2" dimdle="0.5" dimexo="2" dimexe="3" dimgap="0.8" dimpost="&lt;&gt;m">DIM</String>
  <String name="LINEAR2" textstyle="PLAIN" dimblk="" arrowsize="2.5">DIM2</String>
  <String name="LINEAR3" textstyle="MISSING" dimblk="_DOT">DIM3</String>
  <String name="ANGLE" textstyle="DIM">ANG</String>
  <String name="ANGLE2" textstyle="DIM">ANG2</String>
  <String name="ARC" textstyle="DIM">ARC</String>
  <String name="ARC2" textstyle="DIM">CHORD</String>
  <Directory name="LINEAR4"/>
</Directory>)";
}
