#include "host/ScriptRunner.h"

#include <cctype>
#include <cstdio>
#include <sstream>
#include <vector>

#include "host/HostOutput.h"
#include "host/HostSession.h"
#include "platform/windows/PathMap.h"
#include "platform/windows/TextCodec.h"

namespace {

const char kPrompt[] = "Command: ";

std::string Trim(const std::string &text) {
  size_t first = text.find_first_not_of(" \t\r\n");
  if (first == std::string::npos) return "";
  size_t last = text.find_last_not_of(" \t\r\n");
  return text.substr(first, last - first + 1);
}

std::string Upper(std::string text) {
  for (char &c : text) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return text;
}

}  // namespace

int ScriptRunner::Run() {
  std::string line;
  for (;;) {
    if (interactive_) CommandLine(kPrompt);
    if (!std::getline(in_, line)) break;
    if (!ServeLine(line)) return errors_;
  }
  // The end of the input quits, as QUIT does.
  if (interactive_) CommandLine("\n");
  return errors_;
}

bool ScriptRunner::ServeLine(const std::string &raw) {
  const std::string line = Trim(raw);
  if (line.empty() || line[0] == ';') return true;
  if (!interactive_) CommandLine(std::string(kPrompt) + line + "\n");

  // The host's own words come first.
  const std::string word = Upper(line);
  if (word == "QUIT" || word == "EXIT") return false;
  if (word == "SAVE") {
    if (!session_.SaveDrawing()) ++errors_;
    return true;
  }
  if (word.rfind("SAVEAS", 0) == 0 && (word.size() == 6 || word[6] == ' ' || word[6] == '\t')) {
    const std::string path = Trim(line.substr(6));
    if (path.empty()) {
      CommandLine("; error: SAVEAS needs a file name\n");
      ++errors_;
    } else if (!session_.SaveDrawingAs(tolv::ToSystemPath(path))) {
      ++errors_;
    }
    return true;
  }

  if (word == "HELP") {
    CommandLine("The host's lines: SAVE, SAVEAS FILE, QUIT, (FUNCTION), COMMAND, and\n" +
                session_.SiblingLineUsage());
    return true;
  }
  if (line[0] != '(') {
    const int served = session_.ServeSiblingLine(line);
    if (served >= 0) {
      if (served) ++errors_;
      return true;
    }
  }

  if (line[0] == '(') {
    ServeLisp(line);
  } else {
    ServeCommand(line);
  }
  return true;
}

void ScriptRunner::ServeLisp(const std::string &form) {
  if (form.size() < 2 || form.back() != ')') {
    CommandLine("; error: malformed list on input\n");
    ++errors_;
    return;
  }
  std::istringstream words(form.substr(1, form.size() - 2));
  std::vector<std::string> parts;
  for (std::string w; words >> w;) parts.push_back(w);
  if (parts.empty()) {
    // The empty list evaluates to nil.
    CommandLine("nil\n");
    return;
  }
  if (parts.size() > 1) {
    CommandLine("; error: too many arguments: this host passes none to external functions\n");
    ++errors_;
    return;
  }
  tolv::LispResult result;
  if (!session_.InvokeLisp(tolv::FromUtf8(parts[0]), result)) {
    CommandLine("; error: no function definition: " + Upper(parts[0]) + "\n");
    ++errors_;
    return;
  }
  // A function that handed nothing back gives nil.
  std::string shown = tolv::ToUtf8(result.ToString());
  CommandLine((shown.empty() ? "nil" : shown) + "\n");
}

void ScriptRunner::ServeCommand(const std::string &line) {
  std::string name = line;
  // "_" asks for the global name and "." for the built-in command; both
  // name the same command here.
  while (!name.empty() && (name[0] == '_' || name[0] == '.')) name.erase(0, 1);
  if (name.find_first_of(" \t") != std::string::npos || name.empty() ||
      !session_.RunCommand(tolv::FromUtf8(name))) {
    CommandLine("Unknown command \"" + Upper(name) + "\".\n");
    ++errors_;
  }
}
