// tolv pattern: lists, checks, scales and draws hatch pattern files, for
// the people who keep them. The file is read and written by the module's
// pattern classes, exactly as the add-on reads and writes it.
#include <cmath>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "SiblingRegistry.h"
#include "TolvDataBase.h"
#include "patterns/PatternDrawing.h"
#include "patterns/PatternSvg.h"
#include "platform/mfc/AfxMessage.h"
#include "platform/mfc/CFileException.h"
#include "platform/windows/AtomicFile.h"
#include "platform/windows/TextCodec.h"

namespace fs = std::filesystem;
using namespace tolv::sibling::patterns;

namespace {

const char kUsage[] =
    "  pattern FILE [--check]           list the patterns of a hatch pattern file and mark\n"
    "                                   data lines over 80 characters (--check: exit 1 if any)\n"
    "  pattern FILE --scale F --out OUT scale every pattern by F and write OUT\n"
    "  pattern FILE --name NAME --svg OUT.svg [--size PX] [--extent UNITS]\n"
    "                                   draw one pattern over a square as SVG\n"
    "  pattern FILE --all --svg DIR [--size PX]\n"
    "                                   draw a sheet of every pattern, DIR/<file>.svg\n";

const char kHelp[] =
    "usage: tolv pattern FILE [options]\n"
    "\n"
    "Reads a hatch pattern file (\"*NAME, description\" heads, data lines\n"
    "\"angle, x, y, dx, dy[, dashes...]\", \";\" comments) as the add-on does.\n"
    "\n"
    "  (no option)        list each pattern: name, number of line families,\n"
    "                     description; comment-only entries; lines over 80\n"
    "                     characters, with their line numbers\n"
    "  --check            the same, and exit 1 when a line is over 80 characters\n"
    "  --scale F --out OUT\n"
    "                     scale every pattern by F (the angle stays; other\n"
    "                     numbers are written short, at most ten characters)\n"
    "                     and write OUT, with the line ends of FILE. Lines that\n"
    "                     end up over 80 characters are marked \";;?\" and the\n"
    "                     exit status is 1\n"
    "  --name NAME --svg OUT.svg\n"
    "                     draw the pattern NAME over a square; --size PX is the\n"
    "                     picture's width (default 200), --extent UNITS the\n"
    "                     square's side in pattern units (default: ten repeats)\n"
    "  --all --svg DIR    draw every pattern with its name on one sheet,\n"
    "                     DIR/<name of FILE>.svg\n"
    "\n"
    "Exit status: 0 done, 1 a check found problems, 2 bad usage or unreadable input.\n";

struct Options {
  std::string file;
  bool check = false;
  bool all = false;
  bool hasScale = false;
  double scale = 1;
  std::string out, name, svg;
  int size = 200;
  double extent = 0;
};

int Usage(const std::string &problem) {
  std::cerr << "tolv pattern: " << problem << "\n" << "usage: tolv pattern FILE [--check | --scale F --out OUT |"
            << " --name NAME --svg OUT.svg | --all --svg DIR]; tolv pattern --help\n";
  return 2;
}

bool ParseNumber(const std::string &text, double &value) {
  char *end = nullptr;
  value = std::strtod(text.c_str(), &end);
  return !text.empty() && *end == '\0' && std::isfinite(value);
}

// Parses the words; an empty problem means they are good.
std::string Parse(const std::vector<std::string> &args, Options &o) {
  for (std::size_t i = 0; i < args.size(); ++i) {
    const std::string &a = args[i];
    auto value = [&](std::string &into) {
      if (i + 1 >= args.size()) return false;
      into = args[++i];
      return true;
    };
    std::string v;
    if (a == "--check") {
      o.check = true;
    } else if (a == "--all") {
      o.all = true;
    } else if (a == "--scale") {
      if (!value(v) || !ParseNumber(v, o.scale) || o.scale <= 0) return "--scale needs a positive number";
      o.hasScale = true;
    } else if (a == "--out") {
      if (!value(o.out)) return "--out needs a file";
    } else if (a == "--name") {
      if (!value(o.name)) return "--name needs a pattern name";
    } else if (a == "--svg") {
      if (!value(o.svg)) return "--svg needs a file or folder";
    } else if (a == "--size") {
      double size = 0;
      if (!value(v) || !ParseNumber(v, size) || size < 16 || size > 10000) return "--size needs 16 to 10000 pixels";
      o.size = static_cast<int>(size);
    } else if (a == "--extent") {
      if (!value(v) || !ParseNumber(v, o.extent) || o.extent <= 0) return "--extent needs a positive number";
    } else if (a.size() > 1 && a[0] == '-') {
      return "unknown option " + a;
    } else if (o.file.empty()) {
      o.file = a;
    } else {
      return "one pattern file only (" + o.file + ", " + a + ")";
    }
  }
  if (o.file.empty()) return "no pattern file given";
  if (o.hasScale != !o.out.empty()) return "--scale and --out go together";
  if (!o.name.empty() && o.all) return "--name and --all exclude each other";
  if ((!o.name.empty() || o.all) && o.svg.empty()) return "drawing needs --svg";
  if (!o.svg.empty() && o.name.empty() && !o.all) return "--svg needs --name NAME or --all";
  if (o.hasScale && !o.svg.empty()) return "scale and draw in two runs";
  return "";
}

std::wstring Wide(const std::string &utf8) { return tolv::FromUtf8(utf8); }
std::string Utf8(const CString &text) { return tolv::ToUtf8(text.str()); }

// Reads the file with the module; false (and a message) when it can't.
bool ReadPatterns(const std::string &path, KyPats &pats) {
  if (fs::is_directory(path)) {
    std::cerr << "tolv pattern: " << path << ": is a folder, not a pattern file\n";
    return false;
  }
  CStdioFile file;
  CFileException error;
  if (!file.Open(Wide(path).c_str(), CFile::modeRead | CFile::typeText, &error)) {
    std::cerr << "tolv pattern: " << path << ": cannot be read (" << error.what() << ")\n";
    return false;
  }
  try {
    pats << file;
  } catch (const CFileException &e) {
    std::cerr << "tolv pattern: " << path << ": read failed (" << e.what() << ")\n";
    return false;
  }
  return true;
}

// The file's line numbers of the heads and of the data lines, in order, by
// the reader's own rule for which lines it keeps.
void KeptLineNumbers(const std::string &path, std::vector<int> &heads, std::vector<int> &data) {
  CStdioFile file;
  if (!file.Open(Wide(path).c_str(), CFile::modeRead | CFile::typeText)) return;
  CString line;
  for (int number = 1; file.ReadString(line); ++number) {
    if (line.Find(L';') >= 0 || line.Find(L'*') >= 0) {
      heads.push_back(number);
    } else if (line.Find(L',') >= 0) {
      data.push_back(number);
    }
  }
}

std::string Description(const CString &head) {
  int comma = head.Find(L',');
  if (comma < 0) return "";
  CString d = head.Mid(comma + 1);
  d.Trim();
  return Utf8(d);
}

std::string Pad(const std::string &text, std::size_t width) {
  return text.size() >= width ? text + " " : text + std::string(width - text.size(), ' ');
}

int List(const Options &o) {
  KyPats pats;
  if (!ReadPatterns(o.file, pats)) return 2;
  std::vector<int> headLines, dataLines;
  KeptLineNumbers(o.file, headLines, dataLines);
  std::size_t nextHead = 0, nextData = 0;

  int patterns = 0, comments = 0, overLong = 0;
  std::vector<std::string> rows, problems;
  for (std::int32_t i = 0; i < pats.GetLength(); ++i) {
    KyPat &pat = pats.GetPData(i);
    if (!pat.m_strHead.IsEmpty()) ++nextHead;
    const std::string name = Utf8(pat.FirstName());
    if (pat.IsPat()) {
      ++patterns;
      rows.push_back("  " + Pad(name, 20) + Pad(std::to_string(pat.m_lstData.GetLength()), 6) +
                     Description(pat.m_strHead));
    } else {
      ++comments;
      std::string row = "  " + Pad(Utf8(pat.m_strHead), 46) + "(comment";
      if (!pat.IsEmpty()) row += ", " + std::to_string(pat.m_lstData.GetLength()) + " data lines follow it";
      rows.push_back(row + ")");
    }
    for (KyPatData *const *p = pat.m_lstData.GetFirst(); p; p = pat.m_lstData.GetNext(p)) {
      int number = nextData < dataLines.size() ? dataLines[nextData] : 0;
      ++nextData;
      int length = (*p)->GetWrittenLength();
      if (length <= 80) continue;
      ++overLong;
      std::string where = o.file + (number ? ":" + std::to_string(number) : "");
      problems.push_back(where + ": " + (pat.IsPat() ? name : "(after a comment)") + ": data line of " +
                         std::to_string(length) + " characters, over 80");
    }
  }
  (void)nextHead;
  std::cout << o.file << ": " << patterns << (patterns == 1 ? " pattern" : " patterns") << ", " << comments
            << (comments == 1 ? " comment-only entry" : " comment-only entries") << "\n";
  if (patterns > 0) std::cout << "  " << Pad("NAME", 20) << Pad("LINES", 6) << "DESCRIPTION\n";
  for (const std::string &row : rows) std::cout << row << "\n";
  for (const std::string &p : problems) std::cout << "! " << p << "\n";
  if (overLong > 0) {
    std::cout << overLong << (overLong == 1 ? " data line is" : " data lines are")
              << " over 80 characters; the add-on marks such lines \";;?\" when it writes them\n";
  }
  return o.check && overLong > 0 ? 1 : 0;
}

bool UsesCrLf(const std::string &path) {
  std::string bytes;
  if (!tolv::ReadWholeFile(path, bytes)) return false;
  std::size_t lf = bytes.find('\n');
  return lf != std::string::npos && lf > 0 && bytes[lf - 1] == '\r';
}

int Scale(const Options &o) {
  KyPats pats;
  if (!ReadPatterns(o.file, pats)) return 2;
  for (std::int32_t i = 0; i < pats.GetLength(); ++i) pats.GetPData(i).Scale(o.scale);
  // The message box the writer raises for each over-long line is counted
  // and its text shown once.
  int marked = 0;
  std::wstring message;
  tolv::MessageBoxSink old = tolv::SetMessageBoxSink([&](const std::wstring &text, unsigned) {
    ++marked;
    message = text;
    return IDOK;
  });
  int status = 0;
  try {
    CStdioFile file;
    CFileException error;
    UINT mode = CFile::modeCreate | CFile::modeWrite | (UsesCrLf(o.file) ? CFile::typeText : CFile::typeBinary);
    if (!file.Open(Wide(o.out).c_str(), mode, &error)) {
      std::cerr << "tolv pattern: " << o.out << ": cannot be written (" << error.what() << ")\n";
      status = 2;
    } else {
      pats >> file;
      file.Close();
    }
  } catch (const CFileException &e) {
    std::cerr << "tolv pattern: " << o.out << ": write failed (" << e.what() << ")\n";
    status = 2;
  }
  tolv::SetMessageBoxSink(std::move(old));
  if (status != 0) return status;
  std::cout << o.file << " scaled by " << o.scale << ": " << pats.GetLength() << " entries written to " << o.out
            << "\n";
  if (marked > 0) {
    std::cerr << "tolv pattern: " << o.out << ": " << marked
              << (marked == 1 ? " data line is" : " data lines are") << " over 80 characters and marked \";;?\"\n"
              << "[message box] " << tolv::ToUtf8(message) << "\n";
    return 1;
  }
  return 0;
}

int DrawOne(const Options &o) {
  KyPats pats;
  if (!ReadPatterns(o.file, pats)) return 2;
  std::int32_t at = pats.Find(CString(Wide(o.name)));
  if (at < 0) {
    std::cerr << "tolv pattern: " << o.file << ": no pattern named " << o.name << "\n";
    return 2;
  }
  int unreadable = 0;
  std::vector<Family> families = ReadFamilies(pats.GetPData(at), &unreadable);
  double extent = o.extent > 0 ? o.extent : NaturalExtent(families);
  bool truncated = false;
  std::string svg = PatternSvg(o.name, families, extent, o.size, &truncated);
  if (!tolv::WriteFileAtomically(o.svg, svg)) {
    std::cerr << "tolv pattern: " << o.svg << ": cannot be written\n";
    return 2;
  }
  std::cout << o.name << ": " << families.size() << " line families over a square of " << extent
            << " units, drawn to " << o.svg << "\n";
  if (unreadable > 0) std::cout << "  " << unreadable << " data lines are not numbers and were left out\n";
  if (truncated) std::cout << "  the spacing is too fine for the square: the drawing stops early\n";
  return 0;
}

int DrawAll(const Options &o) {
  KyPats pats;
  if (!ReadPatterns(o.file, pats)) return 2;
  std::error_code ec;
  fs::create_directories(o.svg, ec);
  if (!fs::is_directory(o.svg)) {
    std::cerr << "tolv pattern: " << o.svg << ": not a folder\n";
    return 2;
  }
  std::vector<SheetEntry> entries;
  for (std::int32_t i = 0; i < pats.GetLength(); ++i) {
    KyPat &pat = pats.GetPData(i);
    if (!pat.IsPat()) continue;
    entries.push_back({Utf8(pat.FirstName()), ReadFamilies(pat)});
  }
  std::string stem = fs::path(o.file).stem().string();
  std::string out = (fs::path(o.svg) / (stem + ".svg")).string();
  if (!tolv::WriteFileAtomically(out, SheetSvg(fs::path(o.file).filename().string(), entries, o.size))) {
    std::cerr << "tolv pattern: " << out << ": cannot be written\n";
    return 2;
  }
  std::cout << entries.size() << " patterns of " << o.file << " drawn to " << out << "\n";
  return 0;
}

int PatternCommand(const std::vector<std::string> &args) {
  for (const std::string &a : args) {
    if (a == "--help" || a == "-h") {
      std::cout << kHelp;
      return 0;
    }
  }
  Options o;
  std::string problem = Parse(args, o);
  if (!problem.empty()) return Usage(problem);
  try {
    if (o.hasScale) return Scale(o);
    if (!o.name.empty()) return DrawOne(o);
    if (o.all) return DrawAll(o);
    return List(o);
  } catch (const std::exception &e) {
    std::cerr << "tolv pattern: " << o.file << ": " << e.what() << "\n";
    return 2;
  }
}

const tolv::sibling::Subcommand kPattern("pattern", kUsage, &PatternCommand);

}  // namespace
