#include "platform/acad/AcutWcMatch.h"

#include <string>
#include <vector>

#include "platform/acad/AdsCodes.h"

namespace {

// One position of a pattern; every kind but kStar stands for exactly one
// character, which lets the matcher run without deep backtracking.
struct Token {
  enum Kind { kLiteral, kAny, kDigit, kLetter, kOther, kStar, kSet } kind = kLiteral;
  wchar_t ch = 0;
  bool negated = false;
  std::vector<std::pair<wchar_t, wchar_t>> ranges;  // for kSet
};

bool IsDigit(wchar_t c) { return c >= L'0' && c <= L'9'; }

// Letters are the ASCII ones and every character beyond ASCII that is no
// space, punctuation or symbol, so that Chinese characters count as letters.
bool IsLetter(wchar_t c) {
  if ((c >= L'A' && c <= L'Z') || (c >= L'a' && c <= L'z')) return true;
  if (c < 0xC0) return false;
  if (c == 0xD7 || c == 0xF7) return false;
  if (c >= 0x2000 && c <= 0x2BFF) return false;  // punctuation, symbols, arrows, shapes
  if (c >= 0x3000 && c <= 0x303F) return false;  // CJK punctuation and the ideographic space
  if (c >= 0xFE30 && c <= 0xFE4F) return false;  // CJK compatibility forms
  if (c >= 0xFF00 && c <= 0xFF20) return false;  // full-width punctuation and digits
  if (c >= 0xFF3B && c <= 0xFF40) return false;
  if (c >= 0xFF5B && c <= 0xFF65) return false;
  return true;
}

bool TokenMatches(const Token &t, wchar_t c) {
  switch (t.kind) {
    case Token::kLiteral:
      return c == t.ch;
    case Token::kAny:
      return true;
    case Token::kDigit:
      return IsDigit(c);
    case Token::kLetter:
      return IsLetter(c);
    case Token::kOther:
      return !IsDigit(c) && !IsLetter(c);
    case Token::kSet: {
      bool in = false;
      for (const auto &r : t.ranges) {
        if (c >= r.first && c <= r.second) {
          in = true;
          break;
        }
      }
      return in != t.negated;
    }
    case Token::kStar:
      return true;
  }
  return false;
}

// Reads a bracket that opens at p[i]; on success `i` is past the ']'.
bool ParseSet(const std::wstring &p, std::size_t &i, Token &token) {
  std::size_t j = i + 1;
  token = Token();
  token.kind = Token::kSet;
  if (j < p.size() && p[j] == L'~') {
    token.negated = true;
    ++j;
  }
  std::vector<wchar_t> members;
  std::vector<bool> escaped;
  bool first = true;
  bool closed = false;
  while (j < p.size()) {
    wchar_t c = p[j];
    if (c == L']' && !first) {
      closed = true;
      ++j;
      break;
    }
    if (c == L'`' && j + 1 < p.size()) {
      members.push_back(p[j + 1]);
      escaped.push_back(true);
      j += 2;
    } else {
      members.push_back(c);
      escaped.push_back(false);
      ++j;
    }
    first = false;
  }
  if (!closed) return false;
  for (std::size_t k = 0; k < members.size(); ++k) {
    if (k + 2 < members.size() && members[k + 1] == L'-' && !escaped[k + 1]) {
      wchar_t lo = members[k];
      wchar_t hi = members[k + 2];
      if (lo > hi) std::swap(lo, hi);
      token.ranges.emplace_back(lo, hi);
      k += 2;
    } else {
      token.ranges.emplace_back(members[k], members[k]);
    }
  }
  i = j;
  return true;
}

std::vector<Token> Tokenize(const std::wstring &p) {
  std::vector<Token> tokens;
  std::size_t i = 0;
  while (i < p.size()) {
    Token t;
    wchar_t c = p[i];
    switch (c) {
      case L'*':
        t.kind = Token::kStar;
        ++i;
        break;
      case L'?':
        t.kind = Token::kAny;
        ++i;
        break;
      case L'#':
        t.kind = Token::kDigit;
        ++i;
        break;
      case L'@':
        t.kind = Token::kLetter;
        ++i;
        break;
      case L'.':
        t.kind = Token::kOther;
        ++i;
        break;
      case L'`':
        t.ch = (i + 1 < p.size()) ? p[i + 1] : L'`';
        i += (i + 1 < p.size()) ? 2 : 1;
        break;
      case L'[':
        if (!ParseSet(p, i, t)) {
          t = Token();
          t.ch = L'[';
          ++i;
        }
        break;
      default:
        t.ch = c;
        ++i;
        break;
    }
    if (t.kind == Token::kStar && !tokens.empty() && tokens.back().kind == Token::kStar) continue;
    tokens.push_back(std::move(t));
  }
  return tokens;
}

// Greedy match with a return point at the last star: linear in practice,
// never worse than text length times pattern length.
bool MatchTokens(const std::vector<Token> &tokens, const wchar_t *text, std::size_t n) {
  std::size_t ti = 0, pi = 0;
  std::size_t starPi = static_cast<std::size_t>(-1), starTi = 0;
  while (ti < n) {
    if (pi < tokens.size() && tokens[pi].kind == Token::kStar) {
      starPi = pi++;
      starTi = ti;
    } else if (pi < tokens.size() && TokenMatches(tokens[pi], text[ti])) {
      ++pi;
      ++ti;
    } else if (starPi != static_cast<std::size_t>(-1)) {
      pi = starPi + 1;
      ti = ++starTi;
    } else {
      return false;
    }
  }
  while (pi < tokens.size() && tokens[pi].kind == Token::kStar) ++pi;
  return pi == tokens.size();
}

// Cuts the pattern at commas that are neither escaped nor inside a bracket.
std::vector<std::wstring> SplitAlternatives(const std::wstring &p) {
  std::vector<std::wstring> parts;
  std::wstring current;
  std::size_t i = 0;
  while (i < p.size()) {
    wchar_t c = p[i];
    if (c == L'`' && i + 1 < p.size()) {
      current += p.substr(i, 2);
      i += 2;
    } else if (c == L'[') {
      std::size_t j = i;
      Token ignored;
      if (ParseSet(p, j, ignored)) {
        current += p.substr(i, j - i);
        i = j;
      } else {
        current += c;
        ++i;
      }
    } else if (c == L',') {
      parts.push_back(std::move(current));
      current.clear();
      ++i;
    } else {
      current += c;
      ++i;
    }
  }
  parts.push_back(std::move(current));
  return parts;
}

}  // namespace

int acutWcMatch(const ACHAR *text, const ACHAR *pattern) {
  if (!text || !pattern) return RTERROR;
  std::wstring subject(text);
  for (const std::wstring &alternative : SplitAlternatives(pattern)) {
    bool negate = !alternative.empty() && alternative[0] == L'~';
    std::vector<Token> tokens = Tokenize(negate ? alternative.substr(1) : alternative);
    if (MatchTokens(tokens, subject.data(), subject.size()) != negate) return RTNORM;
  }
  return RTNONE;
}
