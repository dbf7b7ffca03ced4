#include "platform/acad/AdsResbuf.h"

#include <cstdarg>
#include <cstdlib>
#include <cstring>
#include <cwchar>

namespace tolv {

RbValueKind RbKindOfType(int t) {
  switch (t) {
    case RTREAL:
    case RTANG:
      return RbValueKind::kReal;
    case RTPOINT:
    case RT3DPOINT:
    case RTORINT:
      return RbValueKind::kPoint;
    case RTSHORT:
      return RbValueKind::kShort;
    case RTLONG:
      return RbValueKind::kLong;
    case RTSTR:
    case RTDXF0:
      return RbValueKind::kText;
    case RTENAME:
    case RTPICKS:
      return RbValueKind::kName;
    case RTLB:
    case RTLE:
    case RTDOTE:
    case RTNIL:
    case RTT:
    case RTVOID:
    case RTNONE:
      return RbValueKind::kNone;
    default:
      break;
  }
  // Group codes of drawing data.
  if (t == -3) return RbValueKind::kNone;
  if (t == -4) return RbValueKind::kText;
  if (t >= -5 && t <= -1) return RbValueKind::kName;
  if (t >= 0 && t <= 9) return RbValueKind::kText;
  if (t >= 10 && t <= 37) return RbValueKind::kPoint;
  if (t >= 38 && t <= 59) return RbValueKind::kReal;
  if (t >= 60 && t <= 79) return RbValueKind::kShort;
  if (t >= 90 && t <= 99) return RbValueKind::kLong;
  if ((t >= 100 && t <= 102) || t == 105) return RbValueKind::kText;
  if (t >= 110 && t <= 139) return RbValueKind::kPoint;
  if (t >= 140 && t <= 149) return RbValueKind::kReal;
  if (t >= 160 && t <= 169) return RbValueKind::kInt64;
  if (t >= 170 && t <= 179) return RbValueKind::kShort;
  if (t >= 210 && t <= 239) return RbValueKind::kPoint;
  if (t >= 270 && t <= 299) return RbValueKind::kShort;
  if (t >= 300 && t <= 309) return RbValueKind::kText;
  if (t >= 310 && t <= 319) return RbValueKind::kBinary;
  if (t >= 320 && t <= 329) return RbValueKind::kText;
  if (t >= 330 && t <= 369) return RbValueKind::kName;
  if (t >= 370 && t <= 389) return RbValueKind::kShort;
  if (t >= 390 && t <= 399) return RbValueKind::kName;
  if (t >= 400 && t <= 409) return RbValueKind::kShort;
  if (t >= 410 && t <= 419) return RbValueKind::kText;
  if (t >= 420 && t <= 429) return RbValueKind::kLong;
  if (t >= 430 && t <= 439) return RbValueKind::kText;
  if (t >= 440 && t <= 459) return RbValueKind::kLong;
  if (t >= 460 && t <= 469) return RbValueKind::kReal;
  if (t >= 470 && t <= 479) return RbValueKind::kText;
  if (t >= 480 && t <= 481) return RbValueKind::kName;
  if (t == 999) return RbValueKind::kText;
  if (t == 1004) return RbValueKind::kBinary;
  if (t >= 1000 && t <= 1009) return RbValueKind::kText;
  if (t >= 1010 && t <= 1039) return RbValueKind::kPoint;
  if (t >= 1040 && t <= 1059) return RbValueKind::kReal;
  if (t >= 1060 && t <= 1070) return RbValueKind::kShort;
  if (t == 1071) return RbValueKind::kLong;
  return RbValueKind::kNone;
}

namespace {

// Types that acutBuildList takes; the rest of the group-code range holds
// no value kind of its own and is refused.
bool IsKnownType(int t) {
  if (t >= RTNONE && t <= RTRESBUF) return RbKindOfType(t) != RbValueKind::kNone || t == RTLB || t == RTLE ||
                                           t == RTDOTE || t == RTNIL || t == RTT || t == RTVOID || t == RTNONE;
  if (t == -3) return true;
  return RbKindOfType(t) != RbValueKind::kNone;
}

}  // namespace

ACHAR *DupRbText(const ACHAR *text) {
  if (!text) text = L"";
  std::size_t n = std::wcslen(text) + 1;
  auto *copy = static_cast<ACHAR *>(std::malloc(n * sizeof(ACHAR)));
  if (copy) std::memcpy(copy, text, n * sizeof(ACHAR));
  return copy;
}

resbuf *CopyRbChain(const resbuf *rb) {
  resbuf *head = nullptr;
  resbuf **tail = &head;
  for (; rb; rb = rb->rbnext) {
    resbuf *copy = acutNewRb(rb->restype);
    if (!copy) {
      acutRelRb(head);
      return nullptr;
    }
    switch (RbKindOfType(rb->restype)) {
      case RbValueKind::kText:
        std::free(copy->resval.rstring);
        copy->resval.rstring = DupRbText(rb->resval.rstring);
        break;
      case RbValueKind::kBinary:
        copy->resval.rbinary.clen = 0;
        copy->resval.rbinary.buf = nullptr;
        if (rb->resval.rbinary.buf && rb->resval.rbinary.clen > 0) {
          copy->resval.rbinary.buf = static_cast<char *>(std::malloc(static_cast<std::size_t>(rb->resval.rbinary.clen)));
          if (copy->resval.rbinary.buf) {
            std::memcpy(copy->resval.rbinary.buf, rb->resval.rbinary.buf, static_cast<std::size_t>(rb->resval.rbinary.clen));
            copy->resval.rbinary.clen = rb->resval.rbinary.clen;
          }
        }
        break;
      default:
        copy->resval = rb->resval;
        break;
    }
    *tail = copy;
    tail = &copy->rbnext;
  }
  return head;
}

}  // namespace tolv

resbuf *acutNewRb(int rtype) {
  auto *rb = static_cast<resbuf *>(std::calloc(1, sizeof(resbuf)));
  if (!rb) return nullptr;
  rb->restype = static_cast<short>(rtype);
  if (tolv::RbKindOfType(rtype) == tolv::RbValueKind::kText) rb->resval.rstring = nullptr;
  return rb;
}

int acutRelRb(resbuf *rb) {
  while (rb) {
    resbuf *next = rb->rbnext;
    switch (tolv::RbKindOfType(rb->restype)) {
      case tolv::RbValueKind::kText:
        std::free(rb->resval.rstring);
        break;
      case tolv::RbValueKind::kBinary:
        std::free(rb->resval.rbinary.buf);
        break;
      default:
        break;
    }
    std::free(rb);
    rb = next;
  }
  return RTNORM;
}

void acutDelString(ACHAR *&text) {
  std::free(text);
  text = nullptr;
}

resbuf *acutBuildList(int rtype, ...) {
  va_list args;
  va_start(args, rtype);
  resbuf *head = nullptr;
  resbuf **tail = &head;
  bool failed = false;
  for (int type = rtype; type != 0; type = va_arg(args, int)) {
    if (!tolv::IsKnownType(type) || type < -32768 || type > 32767) {
      failed = true;
      break;
    }
    resbuf *rb = acutNewRb(type);
    if (!rb) {
      failed = true;
      break;
    }
    *tail = rb;
    tail = &rb->rbnext;
    switch (tolv::RbKindOfType(type)) {
      case tolv::RbValueKind::kReal:
        rb->resval.rreal = va_arg(args, double);
        break;
      case tolv::RbValueKind::kPoint: {
        const double *p = va_arg(args, const double *);
        for (int i = 0; i < 3; ++i) rb->resval.rpoint[i] = p ? p[i] : 0.0;
        break;
      }
      case tolv::RbValueKind::kShort:
        rb->resval.rint = static_cast<short>(va_arg(args, int));
        break;
      case tolv::RbValueKind::kLong:
        rb->resval.rlong = static_cast<std::int32_t>(va_arg(args, int));
        break;
      case tolv::RbValueKind::kInt64:
        rb->resval.mnInt64 = va_arg(args, long long);
        break;
      case tolv::RbValueKind::kText:
        rb->resval.rstring = tolv::DupRbText(va_arg(args, const ACHAR *));
        if (!rb->resval.rstring) failed = true;
        break;
      case tolv::RbValueKind::kName: {
        const std::int64_t *name = va_arg(args, const std::int64_t *);
        rb->resval.rlname[0] = name ? name[0] : 0;
        rb->resval.rlname[1] = name ? name[1] : 0;
        break;
      }
      case tolv::RbValueKind::kBinary: {
        const ads_binary *bin = va_arg(args, const ads_binary *);
        rb->resval.rbinary.clen = 0;
        rb->resval.rbinary.buf = nullptr;
        if (bin && bin->buf && bin->clen > 0) {
          rb->resval.rbinary.buf = static_cast<char *>(std::malloc(static_cast<std::size_t>(bin->clen)));
          if (!rb->resval.rbinary.buf) {
            failed = true;
            break;
          }
          std::memcpy(rb->resval.rbinary.buf, bin->buf, static_cast<std::size_t>(bin->clen));
          rb->resval.rbinary.clen = bin->clen;
        }
        break;
      }
      case tolv::RbValueKind::kNone:
      case tolv::RbValueKind::kHandle:
        break;
    }
    if (failed) break;
  }
  va_end(args);
  if (failed) {
    acutRelRb(head);
    return nullptr;
  }
  return head;
}
