// The language start-up: reads the language from "Set.ini" and, for any
// language but the home one ("Chs"), loads the package "TolvLanguage.xml"
// into g_curDictLang and installs the switch. Runs once at module start,
// after the settings, the UI definition and the history data.
#pragma once

void InitLanguage();
