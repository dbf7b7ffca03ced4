// Reads the host's command line from a script or a terminal and serves it
// line by line against a session:
//
//   NAME            runs the command of that name (a leading "_" or "." is
//                   dropped, as the host's command line does)
//   (NAME)          invokes the Lisp function and prints its result
//   SAVE            saves the document's drawing under its name
//   SAVEAS FILE     saves it as FILE (a POSIX path), the name it keeps
//   QUIT or EXIT    ends the input; so does its end
//   HELP            lists the lines the sibling module serves
//   WORD ARGS...    a line of the sibling module (LAYER KEY, ...), which
//                   calls the module as the add-on's other modules do
//   ; text          a comment; blank lines are passed over as well
//
// Every line read is echoed after the prompt "Command: " unless it comes
// from a terminal, where the user's typing shows already.
#pragma once

#include <istream>
#include <string>

class HostSession;

class ScriptRunner {
 public:
  ScriptRunner(HostSession &session, std::istream &in, bool interactive)
      : session_(session), in_(in), interactive_(interactive) {}

  // Serves lines until QUIT or the end of the input. Gives the number of
  // lines that failed (unknown commands and functions, malformed forms).
  int Run();

 private:
  // False when the line ends the input.
  bool ServeLine(const std::string &line);
  void ServeLisp(const std::string &form);
  void ServeCommand(const std::string &name);

  HostSession &session_;
  std::istream &in_;
  bool interactive_;
  int errors_ = 0;
};
