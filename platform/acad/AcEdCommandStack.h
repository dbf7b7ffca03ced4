// The host's command stack: commands registered by applications, in named
// groups, found by name when the user types one.
//
// Names are matched without regard to case, as the host's command line does.
// A name may stand in several groups; the group registered last wins.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/acad/AcRxObject.h"
#include "platform/acad/AcadErrorStatus.h"

using AcRxFunctionPtr = void (*)();

// Command flags.
constexpr int ACRX_CMD_MODAL = 0x00000000;
constexpr int ACRX_CMD_TRANSPARENT = 0x00000001;
constexpr int ACRX_CMD_USEPICKSET = 0x00000002;
constexpr int ACRX_CMD_REDRAW = 0x00000004;
constexpr int ACRX_CMD_NOPERSPECTIVE = 0x00000008;
constexpr int ACRX_CMD_NOTILEMODE = 0x00000020;
constexpr int ACRX_CMD_NOPAPERSPACE = 0x00000040;
constexpr int ACRX_CMD_SESSION = 0x00200000;

class AcEdCommand {
 public:
  AcEdCommand(std::wstring group, std::wstring globalName, std::wstring localName, int flags,
              AcRxFunctionPtr function)
      : group_(std::move(group)),
        globalName_(std::move(globalName)),
        localName_(std::move(localName)),
        flags_(flags),
        function_(function) {}

  const wchar_t *groupName() const { return group_.c_str(); }
  const wchar_t *globalName() const { return globalName_.c_str(); }
  const wchar_t *localName() const { return localName_.c_str(); }
  int commandFlags() const { return flags_; }
  AcRxFunctionPtr functionAddr() const { return function_; }
  void commandExecute() const {
    if (function_) function_();
  }

 private:
  std::wstring group_;
  std::wstring globalName_;
  std::wstring localName_;
  int flags_;
  AcRxFunctionPtr function_;
};

class AcEdCommandStack : public AcRxObject {
 public:
  ACRX_DECLARE_MEMBERS(AcEdCommandStack);

  AcEdCommandStack();
  ~AcEdCommandStack() override;
  AcEdCommandStack(const AcEdCommandStack &) = delete;
  AcEdCommandStack &operator=(const AcEdCommandStack &) = delete;

  // eInvalidInput for an empty group, name or function; eDuplicateKey when
  // the group already has a command of either name. A null local name means
  // the global one.
  Acad::ErrorStatus addCommand(const wchar_t *groupName, const wchar_t *globalName,
                               const wchar_t *localName, int flags, AcRxFunctionPtr function);
  // eKeyNotFound when the group or the command isn't there.
  Acad::ErrorStatus removeCmd(const wchar_t *groupName, const wchar_t *globalName);
  // Removes the group with all its commands; eKeyNotFound when it isn't there.
  Acad::ErrorStatus removeGroup(const wchar_t *groupName);

  // The command of that name, searching the groups from the last registered;
  // null when none has it.
  AcEdCommand *lookupGlobalCmd(const wchar_t *name) const;
  AcEdCommand *lookupLocalCmd(const wchar_t *name) const;
  AcEdCommand *lookupCmd(const wchar_t *name, bool globalFlag) const;

  // The groups in the order they were registered, and a group's commands.
  std::vector<std::wstring> groupNames() const;
  std::vector<const AcEdCommand *> commandsOf(const wchar_t *groupName) const;

 private:
  struct Group;
  Group *findGroup(const wchar_t *name) const;
  std::vector<std::unique_ptr<Group>> groups_;
};
