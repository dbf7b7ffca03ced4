// The host's wildcard match of a text against a pattern.
//
//   #  one digit            @  one letter           .  one character that
//   *  any run, also empty  ?  any one character       is neither
//   ~  at the start of a pattern or of an alternative: matches what the
//      rest of that alternative does not
//   [...]  one of the characters in brackets, ranges such as a-z allowed;
//   [~...] one character that is none of them; a '-' first or last, and
//      a ']' right after the opening '[' or '[~', stand for themselves; a
//      '[' that is never closed stands for itself
//   ,  separates alternative patterns; the text matches if any one does
//   `  the next character stands for itself, also inside brackets
//
// Letters compare with their case. RTNORM (5100) for a match, RTNONE (5000)
// for none, RTERROR for a null argument.
#pragma once

#include "platform/acad/AcAdesk.h"

int acutWcMatch(const ACHAR *text, const ACHAR *pattern);
