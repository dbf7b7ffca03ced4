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
WINE_DIR=$PWD/build/wine-cache/root/usr/lib/x86_64-linux-gnu/wine/x86_64-windows
if [ -f "$WINE_DIR/notepad.exe" ]; then
  echo "== wine's notepad and winemine (fetched by the tests): a package exported from their"
  echo "   Chinese resources, filled from their English ones, translating their Chinese dialogs"
  WINE_SUPPORT="$RUN_DIR/wine-support"
  rm -rf "$WINE_SUPPORT" && cp -r "$SUPPORT" "$WINE_SUPPORT" && mkdir -p "$WINE_SUPPORT/modules" "$WINE_SUPPORT/sources"
  ln -s "$WINE_DIR/notepad.exe" "$WINE_SUPPORT/modules/Notepad.arx"
  ln -s "$WINE_DIR/winemine.exe" "$WINE_SUPPORT/modules/Winemine.arx"
  printf 'Notepad.arx\nWinemine.arx\n' > "$WINE_SUPPORT/modules/acad.rx"
  "$TOLV" lang show "$WINE_DIR/winemine.exe" --dialog 2
  "$TOLV" lang export --modules "$WINE_SUPPORT/modules/acad.rx" --sources "$WINE_SUPPORT/sources" \
    --out "$WINE_SUPPORT/wine-chinese.xml"
  "$TOLV" lang fill "$WINE_SUPPORT/wine-chinese.xml" --modules "$WINE_SUPPORT/modules/acad.rx" \
    --language 0x0409 --out "$WINE_SUPPORT/TolvLanguage.xml"
  "$TOLV" lang stats "$WINE_SUPPORT/TolvLanguage.xml"
  printf 'LANGDIALOG %s 2\nLANGDIALOG %s 400\n' "$WINE_SUPPORT/modules/Winemine.arx" \
    "$WINE_SUPPORT/modules/Notepad.arx" > "$RUN_DIR/wine-dialogs.scr"
  "$TOLV" host --main-dir "$WINE_SUPPORT" --script "$RUN_DIR/wine-dialogs.scr"
fi
