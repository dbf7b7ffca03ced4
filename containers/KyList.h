// The cursor lists of the container family: the singly linked KyList<T>, the
// doubly linked KyDList<T>, their nodes, and the list-backed queue
// KyListQuene<T>. Includes the array members as well, since the lists share
// their root and vocabulary.
#pragma once

#include "containers/KyDList.h"
#include "containers/KyDynArray.h"
#include "containers/KyLinkedList.h"
#include "containers/KyListNode.h"
#include "containers/KyListQuene.h"
