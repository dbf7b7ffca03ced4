#include "HostProcess.h"

#include <sys/wait.h>

#include <cstdlib>
#include <sstream>

#include "support/TestSupport.h"

namespace {

std::string Quote(const std::string &arg) {
  std::string out = "'";
  for (char c : arg) {
    if (c == '\'') out += "'\\''";
    else out += c;
  }
  return out + "'";
}

}  // namespace

HostRun RunHostProgram(const std::vector<std::string> &args, const std::string &workDir,
                       const std::string &inputFile) {
  const std::string outFile = workDir + "/host.out";
  const std::string errFile = workDir + "/host.err";
  std::string command = Quote(TOLV_HOST_PATH);
  for (const std::string &a : args) command += " " + Quote(a);
  command += " < " + Quote(inputFile.empty() ? "/dev/null" : inputFile);
  command += " > " + Quote(outFile) + " 2> " + Quote(errFile);

  HostRun run;
  int raw = std::system(command.c_str());
  if (raw != -1 && WIFEXITED(raw)) run.status = WEXITSTATUS(raw);
  run.out = tolvtest::ReadFileBytes(outFile);
  run.err = tolvtest::ReadFileBytes(errFile);
  std::istringstream in(run.out);
  for (std::string line; std::getline(in, line);) run.lines.push_back(line);
  return run;
}

std::vector<std::string> LinesFrom(const HostRun &run, const std::string &from) {
  for (size_t i = 0; i < run.lines.size(); ++i)
    if (run.lines[i].rfind(from, 0) == 0) return {run.lines.begin() + static_cast<long>(i), run.lines.end()};
  return {};
}
