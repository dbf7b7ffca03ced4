// The selection filter of a context menu: a comma-separated sequence of a
// group code and its value, e.g. `0,'LINE',8,'WALL*',62,1`. A text value
// stands in single quotes and may hold commas; a layer value is first
// widened from layer keys to layer names.
#pragma once

#include "platform/mfc/CString.h"

class KyAdsRBList;

namespace tolv::uiconfig {

// Appends one buffer per code and value to `list` (code 0 becomes the
// entity type's 5020). A code whose values travel as anything but a real,
// a short, a long or a text adds nothing, as does a code with no value.
void BuildContextFilter(const CString &filter, KyAdsRBList &list);

}  // namespace tolv::uiconfig
