// The library kinds of the add-on: drawing (block), equipment and word
// libraries, and their groups. They differ only in their element names and
// in which library class their group makes.
#pragma once

#include "library/KyDmLibGroup.h"
#include "library/KyDtLib.h"

class KyDtDwgLib : public KyDtLib {
 public:
  CString GetXMLNodeName() const override;
};

class KyDtDwgLibGroup : public KyDmLibGroup {
 public:
  CString GetXMLNodeName() const override;
  KyDtLib *NewLib() const override;
};

class KyDtEquipLib : public KyDtDwgLib {
 public:
  CString GetXMLNodeName() const override;
};

class KyDtEquipLibGroup : public KyDtDwgLibGroup {
 public:
  CString GetXMLNodeName() const override;
  KyDtLib *NewLib() const override;
};

class KyDtWordLib : public KyDtLib {
 public:
  CString GetXMLNodeName() const override;
};

class KyDtWordLibGroup : public KyDmLibGroup {
 public:
  CString GetXMLNodeName() const override;
  KyDtLib *NewLib() const override;
};
