// Feeds arbitrary bytes, read as UTF-8 key lists, to the layer lookup over
// a fixed layer configuration: layer filters, names, line scales and
// weights. Any input gives some text or number; nothing may crash, hang or
// leak.
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <string>

#include "FuzzSeeds.h"
#include "module/TolvDataBase.h"
#include "platform/windows/AtomicFile.h"
#include "platform/windows/TextCodec.h"

namespace {

// Two standards with grouped fields, whole keys and items of other kinds.
const char *kConfig = R"(<?xml version="1.0" encoding="utf-8"?>
<TolvDictionary name=""><Directory name="LAYER"><String name="CUR_STD">S</String>
<Directory name="S"><Directory name="LAYER_FIELD_DEF"><Directory name="G">
<String name="WALL" localname="墙" color="7" linetype="CONTINUOUS" lw="50" linescale="2">WALL</String>
<String name="DOOR" color="4" lw="25">DOOR</String><String name="NUM" color="3" lineweight="0.35">NUMB</String>
<String name="A*" color="99999" lw="x">star</String><String name="[" color="red">bracket</String></Directory>
<Int name="N">1</Int><Directory name="EMPTY"/></Directory>
<Directory name="ASSEMBLY_LAYER_DEF"><String name="DOOR-NUM" color="3">WINDOW_TEXT</String>
<Directory name="D"><String name="WALL-*">wall_any</String><String name="~WALL">not_wall</String>
<String name="E"></String></Directory></Directory></Directory>
<Directory name="T"><String name="LAYER_FIELD_DEF">x</String></Directory></Directory></TolvDictionary>
)";

bool LoadConfiguration() {
  const std::string path = "/tmp/tolv-fuzz-layer-" + std::to_string(::getpid()) + ".xml";
  if (!tolv::WriteFileAtomically(path, kConfig)) return false;
  const bool ok = g_dictCfg.ReadFromXML(tolv::FromUtf8(path).c_str());
  ::unlink(path.c_str());
  return ok;
}

}  // namespace

std::vector<std::string> FuzzTargetSeeds() {
  return {"WALL", "DOOR-NUM", "WALL*DOOR-NUM", "-WALL-*-DOOR-,NUM", "WALL*X*DOOR", "A*,[,~WALL,*", "---",
          "WALL-DOOR-NUM-WALL-DOOR-NUM", "墙*门,门窗-*", "[~]-]*`,,@#.?"};
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
  static const bool loaded = LoadConfiguration();
  if (!loaded) return 0;
  const std::wstring keys = tolv::FromUtf8(std::string_view(reinterpret_cast<const char *>(data), size));
  const CString filter = KyDtGetLayerNameEx(keys.c_str());
  const CString name = KyDtGetLayerName(keys.c_str());
  volatile double scale = KyDtGetLayerLineScale(keys.c_str());
  volatile double weight = KyDtGetLayerLineWeight(keys.c_str());
  (void)scale;
  (void)weight;
  return filter.GetLength() + name.GetLength() >= 0 ? 0 : 1;
}
