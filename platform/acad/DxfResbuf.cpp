#include <cstdlib>
#include <cstring>
#include <cwchar>

#include "platform/acad/AdsResbuf.h"
#include "platform/acad/DbInternals.h"

namespace tolv {

namespace {

bool IsPointXCode(int c) {
  return (c >= 10 && c <= 18) || (c >= 110 && c <= 112) || c == 210 || (c >= 1010 && c <= 1013);
}

std::wstring ToHex(const ads_binary &bin) {
  static const wchar_t kDigits[] = L"0123456789ABCDEF";
  std::wstring out;
  for (short i = 0; i < bin.clen; ++i) {
    auto b = static_cast<unsigned char>(bin.buf[i]);
    out += kDigits[b >> 4];
    out += kDigits[b & 15];
  }
  return out;
}

int HexValue(wchar_t c) {
  if (c >= L'0' && c <= L'9') return c - L'0';
  if (c >= L'A' && c <= L'F') return c - L'A' + 10;
  if (c >= L'a' && c <= L'f') return c - L'a' + 10;
  return -1;
}

}  // namespace

void AppendRbAsTags(const resbuf *rb, std::vector<DxfTag> &out) {
  for (; rb; rb = rb->rbnext) {
    int code = rb->restype;
    switch (RbKindOfType(code)) {
      case RbValueKind::kPoint:
        out.push_back(DxfTag::Real(code, rb->resval.rpoint[0]));
        if (IsPointXCode(code)) {
          out.push_back(DxfTag::Real(code + 10, rb->resval.rpoint[1]));
          out.push_back(DxfTag::Real(code + 20, rb->resval.rpoint[2]));
        }
        break;
      case RbValueKind::kReal:
        out.push_back(DxfTag::Real(code, rb->resval.rreal));
        break;
      case RbValueKind::kShort:
        out.push_back(DxfTag::Int(code, rb->resval.rint));
        break;
      case RbValueKind::kLong:
        out.push_back(DxfTag::Int(code, rb->resval.rlong));
        break;
      case RbValueKind::kInt64:
        out.push_back(DxfTag::Int(code, rb->resval.mnInt64));
        break;
      case RbValueKind::kText:
        out.push_back(DxfTag::Text(code, rb->resval.rstring ? rb->resval.rstring : L""));
        break;
      case RbValueKind::kBinary:
        out.push_back(DxfTag::Text(code, rb->resval.rbinary.buf ? ToHex(rb->resval.rbinary) : L""));
        break;
      case RbValueKind::kName: {
        AcDbObjectId id;
        id.setFromOldId(static_cast<std::uint64_t>(rb->resval.rlname[0]));
        if (id.isValid()) out.push_back(DxfTag::Id(code, id));
        break;
      }
      case RbValueKind::kNone:
      case RbValueKind::kHandle:
        break;
    }
  }
}

resbuf *TagsToRb(const std::vector<DxfTag> &tags, std::size_t begin, std::size_t end) {
  resbuf *head = nullptr;
  resbuf **tail = &head;
  for (std::size_t i = begin; i < end && i < tags.size(); ++i) {
    const DxfTag &t = tags[i];
    RbValueKind kind = RbKindOfType(t.code);
    if (kind == RbValueKind::kNone || t.code < 0 || t.code > 32767) continue;
    resbuf *rb = acutNewRb(t.code);
    if (!rb) break;
    switch (kind) {
      case RbValueKind::kPoint:
        rb->resval.rpoint[0] = t.real;
        if (IsPointXCode(t.code)) {
          if (i + 1 < end && tags[i + 1].code == t.code + 10) {
            rb->resval.rpoint[1] = tags[++i].real;
            if (i + 1 < end && tags[i + 1].code == t.code + 20) rb->resval.rpoint[2] = tags[++i].real;
          }
        }
        break;
      case RbValueKind::kReal:
        rb->resval.rreal = t.real;
        break;
      case RbValueKind::kShort:
        rb->resval.rint = static_cast<short>(t.integer);
        break;
      case RbValueKind::kLong:
        rb->resval.rlong = static_cast<std::int32_t>(t.integer);
        break;
      case RbValueKind::kInt64:
        rb->resval.mnInt64 = t.integer;
        break;
      case RbValueKind::kText:
        rb->resval.rstring = DupRbText(t.text.c_str());
        break;
      case RbValueKind::kBinary: {
        std::size_t bytes = t.text.size() / 2;
        if (bytes > 32767) bytes = 32767;
        rb->resval.rbinary.clen = 0;
        rb->resval.rbinary.buf = bytes ? static_cast<char *>(std::malloc(bytes)) : nullptr;
        if (rb->resval.rbinary.buf) {
          for (std::size_t k = 0; k < bytes; ++k) {
            int hi = HexValue(t.text[2 * k]);
            int lo = HexValue(t.text[2 * k + 1]);
            rb->resval.rbinary.buf[k] = static_cast<char>(((hi < 0 ? 0 : hi) << 4) | (lo < 0 ? 0 : lo));
          }
          rb->resval.rbinary.clen = static_cast<short>(bytes);
        }
        break;
      }
      case RbValueKind::kName:
        rb->resval.rlname[0] = static_cast<std::int64_t>(t.id.asOldId());
        rb->resval.rlname[1] = 0;
        break;
      case RbValueKind::kNone:
      case RbValueKind::kHandle:
        break;
    }
    *tail = rb;
    tail = &rb->rbnext;
  }
  return head;
}

}  // namespace tolv
