// How the add-on's modules give the host their commands and Lisp functions:
// each keeps a table of rows and hands it over in one call.
#pragma once

// One command: the name typed at the command line and the function it runs.
struct KyCmdTable {
  const wchar_t *name;
  void (*function)();
  // The name in the user's language; null means the global name.
  const wchar_t *localName;
};

// One Lisp function: its name and the function that serves it. The function
// takes its arguments from the interpreter and ends with one of the acedRet
// calls, whose result it gives back.
struct KyFunTable {
  const wchar_t *name;
  int (*function)();
};

// Adds each command of the table to the host's command stack under the
// group, as modal commands with the extra flags.
void KyDefineCommand(const wchar_t *group, const KyCmdTable *table, int count, int flags);

// Defines each function of the table with the host's Lisp interpreter for
// the current document; its number is the row's index.
void KyDefineAdsFun(const KyFunTable *table, int count);

// Serves an invocation: finds the row of the function being invoked and
// gives its result; RTERROR when no row of the table is being invoked.
int KyCallAdsFun(const KyFunTable *table, int count);
