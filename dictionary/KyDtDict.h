// The typed dictionary in one include: the item kinds, the tree and paths.
#pragma once

#include "dictionary/KyDtDictItem.h"
#include "dictionary/KyDtDictOptionItem.h"
#include "dictionary/KyDtDictPath.h"
#include "dictionary/KyDtDictStringItem.h"
#include "dictionary/KyDtDictValueItems.h"
#include "dictionary/KyDtDictionary.h"
