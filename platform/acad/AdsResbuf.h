// Result buffers: the host's linked lists of typed values, used for Lisp
// arguments and results, selection filters and extended data.
//
// A list made by acutBuildList or acutNewRb belongs to the caller, who frees
// the whole chain with acutRelRb. Text values are owned by their buffer.
#pragma once

#include <cstdint>

#include "platform/acad/AcAdesk.h"
#include "platform/acad/AdsCodes.h"

using ads_real = double;
using ads_point = ads_real[3];
using ads_name = std::int64_t[2];

struct ads_binary {
  short clen;
  char *buf;
};

union ads_u_val {
  ads_real rreal;
  ads_real rpoint[3];
  short rint;
  ACHAR *rstring;
  std::int32_t rlong;
  std::int64_t rlname[2];
  std::int64_t mnInt64;
  ads_binary rbinary;
  unsigned char ihandle[8];
};

struct resbuf {
  resbuf *rbnext;
  short restype;
  ads_u_val resval;
};

// Builds a list from pairs of a type (a RT* code or a group code) and its
// value, ending at a type of 0. Value by type: RTREAL, RTANG and real group
// codes take a double; RTSHORT and 16-bit group codes an int; RTLONG and
// 32-bit group codes an int32; RTSTR, RTDXF0 and text group codes a
// const ACHAR* (copied); RTPOINT, RT3DPOINT and point group codes a
// const double*; RTENAME and object group codes a const int64[2]; RTLB,
// RTLE, RTDOTE, RTNIL, RTT, RTVOID and RTNONE take no value. Null when a
// type is not known or memory runs out.
resbuf *acutBuildList(int rtype, ...);
// A single buffer of that type with a zero value.
resbuf *acutNewRb(int rtype);
// Frees a whole chain, with the texts it owns. Null is allowed.
int acutRelRb(resbuf *rb);
// Frees a text that an operation of the host allocated for the caller.
void acutDelString(ACHAR *&text);

namespace tolv {

// How the value of a buffer of this type is kept.
enum class RbValueKind { kNone, kReal, kPoint, kShort, kLong, kInt64, kText, kName, kBinary, kHandle };
RbValueKind RbKindOfType(int restype);

// A deep copy of a chain; null for null.
resbuf *CopyRbChain(const resbuf *rb);
// A text copied into memory that acutDelString or acutRelRb frees.
ACHAR *DupRbText(const ACHAR *text);

}  // namespace tolv
