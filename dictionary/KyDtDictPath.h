// KyDtDictPath: a path into a dictionary tree, parsed into one throw-away
// item per segment, of which only the names are read.
//
// The separator is the single backslash. There is no escape, trimming,
// case folding, root mark or "." and "..": `A\B` is A then B, the empty
// text is one empty segment, and `A\\B` has an empty middle segment. A
// path with any empty segment is not valid.
#pragma once

#include "containers/KyPDList.h"
#include "dictionary/KyDtDictItem.h"
#include "platform/mfc/CString.h"

class KyDtDictPath : public KyPDList<KyDtDictItem> {
 public:
  // Every segment but the last becomes a KyDtDictionary, the last a plain
  // item.
  KyDtDictPath(const CString &path);
  // Copies share the segment objects, as copies of an owning list do.
  KyDtDictPath(const KyDtDictPath &) = default;
  KyDtDictPath &operator=(const KyDtDictPath &) = default;
  ~KyDtDictPath() override = default;

  // At least one segment and no empty one.
  bool IsValid();
};
