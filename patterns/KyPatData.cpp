#include "patterns/KyPatData.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <string>

#include "language/LangTranslate.h"
#include "platform/mfc/AfxMessage.h"
#include "platform/mfc/CListCtrl.h"
#include "platform/mfc/CStdioFile.h"
#include "platform/windows/WinCrt.h"

namespace {

// What the user is told when a line is too long for the host.
constexpr const wchar_t *kLineTooLong =
    L"一个数据行的长度超过了80个字符,该行起始处已加上“;;?”标志,\t\t\t\t\t \n"
    L"请找到出现“;;?”标志的数据行，手动调整数据精度使长度不超过80个字符,\t\t\t\t\t \n"
    L"最后去掉“;;?”标志!";

// The columns of a pattern line in a list: angle, origin x and y, offset
// dx and dy, and the first two dash lengths.
constexpr int kShownFields = 7;

// v times factor in "%.10f", shortened as a hand-written pattern file
// would have it: trailing zeros (and a bare point) dropped, and at most ten
// characters unless the value read was 1e10 or more. Written into the
// field's own buffer.
void FormatScaled(double v, double factor, CString &field) {
  // Room for the 309 digits of the largest double, its point and ten places.
  char buffer[400];
  const double scaled = v * factor;
  int length = 0;
  if (std::isfinite(scaled)) {
    // The same correctly rounded digits as printf's "%.10f", without its
    // multi-precision arithmetic.
    std::to_chars_result r = std::to_chars(buffer, buffer + sizeof buffer, scaled, std::chars_format::fixed, 10);
    length = r.ec == std::errc() ? static_cast<int>(r.ptr - buffer) : 0;
  } else {
    length = std::snprintf(buffer, sizeof buffer, "%.10f", scaled);
    if (length < 0) length = 0;
  }
  int n = length - 1;
  while (n >= 1) {
    if (buffer[n] == '.') {
      --n;
      break;
    }
    if (buffer[n] != '0') break;
    --n;
  }
  if (n > 9 && v < 1e10) n = 9;
  if (n < length - 1) length = n + 1;
  wchar_t *text = field.GetBufferSetLength(length);
  for (int k = 0; k < length; ++k) text[k] = static_cast<unsigned char>(buffer[k]);
  field.ReleaseBuffer(length);
}

}  // namespace

void KyPatData::operator<<(CString const &line) {
  SetLength(0, true);
  std::wstring_view text = line.view();
  std::size_t start = 0;
  for (;;) {
    std::size_t comma = text.find(L',', start);
    if (comma == std::wstring_view::npos) {
      Append(CString(text.substr(start)));
      break;
    }
    Append(CString(text.substr(start, comma - start)));
    start = comma + 1;
  }
}

int KyPatData::GetWrittenLength() const {
  long long length = GetLength() - 1;
  for (CString const *p = GetFirst(); p; p = GetNext(p)) length += p->GetLength();
  return length > 0x7fffffff ? 0x7fffffff : static_cast<int>(length);
}

CString KyPatData::GetLine() const {
  std::wstring line;
  int length = GetWrittenLength();
  if (length > 0) line.reserve(static_cast<std::size_t>(length));
  for (CString const *p = GetFirst(); p; p = GetNext(p)) {
    if (p != GetFirst()) line += L',';
    line.append(p->view());
  }
  return CString(line);
}

void KyPatData::CheckLength() {
  if (GetWrittenLength() < 81) return;
  if (IsEmpty()) return;
  MoveToFirst();
  GetCurData() = L";;?" + GetCurData();
  AfxMessageBox(_TL(kLineTooLong));
}

void KyPatData::operator>>(CStdioFile &file) {
  CheckLength();
  CString line = GetLine();
  line += L'\n';
  file.WriteString(line);
}

void KyPatData::Scale(double factor) {
  MoveTo(1);
  while (!IsOut()) {
    CString &field = GetCurData();
    FormatScaled(_wtof(field), factor, field);
    MoveToNext();
  }
}

void KyPatData::AppendListCtrl(CListCtrl &list) {
  int row = list.GetItemCount();
  LVITEMW item{};
  item.mask = LVIF_TEXT;
  item.iItem = row;
  item.iSubItem = 0;
  item.pszText = const_cast<wchar_t *>(L"");
  list.InsertItem(&item);
  int column = 0;
  for (CString const *p = GetFirst(); p && column < kShownFields; p = GetNext(p), ++column)
    list.SetItemText(row, column, *p);
}
