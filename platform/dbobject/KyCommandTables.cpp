#include "platform/dbobject/KyCommandTables.h"

#include "platform/acad/AcEdCommandStack.h"
#include "platform/acad/AcEdLisp.h"
#include "platform/acad/AcRxRegistry.h"
#include "platform/acad/AdsCodes.h"

void KyDefineCommand(const wchar_t *group, const KyCmdTable *table, int count, int flags) {
  AcEdCommandStack *commands = AcEdCommandStack::cast(acrxSysRegistry()->at(ACRX_COMMAND_DOCK));
  if (!commands || !table) return;
  for (int i = 0; i < count; ++i) {
    const KyCmdTable &row = table[i];
    commands->addCommand(group, row.name, row.localName ? row.localName : row.name,
                         ACRX_CMD_MODAL | flags, row.function);
  }
}

void KyDefineAdsFun(const KyFunTable *table, int count) {
  if (!table) return;
  for (int i = 0; i < count; ++i) acedDefun(table[i].name, i);
}

int KyCallAdsFun(const KyFunTable *table, int count) {
  int code = acedGetFunCode();
  if (!table || code < 0 || code >= count || !table[code].function) return RTERROR;
  return table[code].function();
}
