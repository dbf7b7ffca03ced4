// Runs the host program as a separate process and collects what it printed.
#pragma once

#include <string>
#include <vector>

struct HostRun {
  int status = -1;          // the exit status; -1 when it didn't exit normally
  std::string out;          // standard output
  std::string err;          // standard error
  std::vector<std::string> lines;  // standard output cut into lines
};

// Runs TOLV_HOST_PATH with the arguments (each quoted for the shell), with
// standard input from `inputFile` when it isn't empty. Output files go to
// `workDir`.
HostRun RunHostProgram(const std::vector<std::string> &args, const std::string &workDir,
                       const std::string &inputFile = "");

// The lines of the transcript from the first that begins with `from`.
std::vector<std::string> LinesFrom(const HostRun &run, const std::string &from);
