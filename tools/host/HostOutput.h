// What the host program shows: the module's command-line output and message
// boxes, and its own report lines, all on standard output in the order they
// happen.
#pragma once

#include <string>

// Sends the module's command-line text and message boxes to standard
// output; message boxes appear as lines marked "[message box]".
void InstallHostOutput();
// Puts the previous outputs back.
void RemoveHostOutput();

// A line of the host's own report: "host: <text>", on a line of its own.
void HostLine(const std::string &text);
// Text of the command line itself (prompts, echoed input, results), from
// the start of a line.
void CommandLine(const std::string &text);
