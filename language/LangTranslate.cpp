#include "language/LangTranslate.h"

CString _TL(const wchar_t *text) {
  // The language switch is installed by the language start-up; until it
  // exists nothing is translated and the source text stands.
  return CString(text);
}
