#!/usr/bin/env bash
# The language switch and its tools: the module runs in English from the
# bundled Set.ini and TolvLanguage.xml; the replace and export tools work on
# a small source tree and module list; `tolv lang` shows the package.
set -euo pipefail
LANG_SUPPORT="$RUN_DIR/language-support"
rm -rf "$LANG_SUPPORT" && cp -r "$SUPPORT" "$LANG_SUPPORT"
# Without its history data the module says so, in English.
rm -f "$LANG_SUPPORT/HistoryData.xml"
mkdir -p "$LANG_SUPPORT/sources/TolvDataBase" "$LANG_SUPPORT/modules"
# The module's own sources, and one new message.
cp settings/*.cpp language/*.cpp dictionary/*.cpp "$LANG_SUPPORT/sources/TolvDataBase/"
cat > "$LANG_SUPPORT/sources/TolvDataBase/Sample.cpp" <<'CPP'
void Warn() { acutPrintf(_T("\n墙体高度无效")); }
void Plain() { acutPrintf(_T("no Chinese here")); }
CPP
printf 'TolvDataBase.arx\nTolvLoader.arx\n' > "$LANG_SUPPORT/modules/acad.rx"
"$TOLV" host --main-dir "$LANG_SUPPORT" --script tools/scripts/language.scr
echo "== the bundled package"
"$TOLV" lang stats "$SUPPORT/TolvLanguage.xml"
echo "== the package after KyExLang merged the sample source into it"
"$TOLV" lang stats "$LANG_SUPPORT/TolvLanguage.xml"
WINE_DIR=build/wine-cache/root/usr/lib/x86_64-linux-gnu/wine/x86_64-windows
if [ -f "$WINE_DIR/notepad.exe" ]; then
  echo "== a menu of wine's notepad, in Chinese and in English (tests fetched the modules)"
  "$TOLV" lang show "$WINE_DIR/notepad.exe" --menu 513 | head -8
  "$TOLV" lang show "$WINE_DIR/notepad.exe" --menu 513 --language 0x0409 | head -8
fi
