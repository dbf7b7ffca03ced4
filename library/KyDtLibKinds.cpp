#include "library/KyDtLibKinds.h"

CString KyDtDwgLib::GetXMLNodeName() const { return L"TolvDwgLib"; }
CString KyDtDwgLibGroup::GetXMLNodeName() const { return L"TolvDwgLibGroup"; }
KyDtLib *KyDtDwgLibGroup::NewLib() const { return new KyDtDwgLib; }

CString KyDtEquipLib::GetXMLNodeName() const { return L"TolvEquipLib"; }
CString KyDtEquipLibGroup::GetXMLNodeName() const { return L"TolvEquipLibGroup"; }
KyDtLib *KyDtEquipLibGroup::NewLib() const { return new KyDtEquipLib; }

CString KyDtWordLib::GetXMLNodeName() const { return L"TolvWordLib"; }
CString KyDtWordLibGroup::GetXMLNodeName() const { return L"TolvWordLibGroup"; }
KyDtLib *KyDtWordLibGroup::NewLib() const { return new KyDtWordLib; }
