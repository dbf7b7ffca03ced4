#include "platform/acad/AcEdCommandStack.h"

#include "platform/windows/WinCrt.h"

ACRX_NO_CONS_DEFINE_MEMBERS(AcEdCommandStack, AcRxObject)

struct AcEdCommandStack::Group {
  std::wstring name;
  std::vector<std::unique_ptr<AcEdCommand>> commands;
};

namespace {

bool IsBlank(const wchar_t *text) { return !text || !*text; }

bool SameName(const wchar_t *a, const wchar_t *b) { return _wcsicmp(a, b) == 0; }

}  // namespace

AcEdCommandStack::AcEdCommandStack() = default;
AcEdCommandStack::~AcEdCommandStack() = default;

AcEdCommandStack::Group *AcEdCommandStack::findGroup(const wchar_t *name) const {
  if (IsBlank(name)) return nullptr;
  for (const auto &group : groups_)
    if (SameName(group->name.c_str(), name)) return group.get();
  return nullptr;
}

Acad::ErrorStatus AcEdCommandStack::addCommand(const wchar_t *groupName, const wchar_t *globalName,
                                               const wchar_t *localName, int flags,
                                               AcRxFunctionPtr function) {
  if (IsBlank(groupName) || IsBlank(globalName) || !function) return Acad::eInvalidInput;
  if (IsBlank(localName)) localName = globalName;
  Group *group = findGroup(groupName);
  if (!group) {
    groups_.push_back(std::make_unique<Group>());
    group = groups_.back().get();
    group->name = groupName;
  }
  for (const auto &cmd : group->commands) {
    if (SameName(cmd->globalName(), globalName) || SameName(cmd->localName(), localName))
      return Acad::eDuplicateKey;
  }
  group->commands.push_back(
      std::make_unique<AcEdCommand>(group->name, globalName, localName, flags, function));
  return Acad::eOk;
}

Acad::ErrorStatus AcEdCommandStack::removeCmd(const wchar_t *groupName, const wchar_t *globalName) {
  Group *group = findGroup(groupName);
  if (!group || IsBlank(globalName)) return Acad::eKeyNotFound;
  for (auto it = group->commands.begin(); it != group->commands.end(); ++it) {
    if (SameName((*it)->globalName(), globalName)) {
      group->commands.erase(it);
      return Acad::eOk;
    }
  }
  return Acad::eKeyNotFound;
}

Acad::ErrorStatus AcEdCommandStack::removeGroup(const wchar_t *groupName) {
  for (auto it = groups_.begin(); it != groups_.end(); ++it) {
    if (!IsBlank(groupName) && SameName((*it)->name.c_str(), groupName)) {
      groups_.erase(it);
      return Acad::eOk;
    }
  }
  return Acad::eKeyNotFound;
}

AcEdCommand *AcEdCommandStack::lookupCmd(const wchar_t *name, bool globalFlag) const {
  if (IsBlank(name)) return nullptr;
  for (auto group = groups_.rbegin(); group != groups_.rend(); ++group) {
    for (const auto &cmd : (*group)->commands) {
      if (SameName(globalFlag ? cmd->globalName() : cmd->localName(), name)) return cmd.get();
    }
  }
  return nullptr;
}

AcEdCommand *AcEdCommandStack::lookupGlobalCmd(const wchar_t *name) const { return lookupCmd(name, true); }
AcEdCommand *AcEdCommandStack::lookupLocalCmd(const wchar_t *name) const { return lookupCmd(name, false); }

std::vector<std::wstring> AcEdCommandStack::groupNames() const {
  std::vector<std::wstring> names;
  for (const auto &group : groups_) names.push_back(group->name);
  return names;
}

std::vector<const AcEdCommand *> AcEdCommandStack::commandsOf(const wchar_t *groupName) const {
  std::vector<const AcEdCommand *> found;
  if (Group *group = findGroup(groupName))
    for (const auto &cmd : group->commands) found.push_back(cmd.get());
  return found;
}
