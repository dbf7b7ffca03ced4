#include "platform/base/KyStringA.h"

#include "platform/windows/TextCodec.h"

KyStringA::KyStringA(const wchar_t *text) : s_(text ? tolv::ToGbk(text) : std::string()) {}

CString KyStringA::ToWide() const { return CString(tolv::FromGbk(s_)); }
