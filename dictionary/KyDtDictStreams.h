// The XML and archive forms of a whole dictionary tree.
//
// A tree is walked with an explicit stack, never by recursion, because a
// file may nest dictionaries deeper than the call stack allows. Plain
// KyDtDictionary children are entered in place; every other kind (and any
// class derived from KyDtDictionary) reads or writes itself through its own
// stream operator.
#pragma once

#include <cstdint>

#include "platform/utility/AutoPtr.h"

class CArchive;
class KyDtDictionary;
class KyUtXMLDOMNode;

struct KyDtDictStreams {
  static void WriteXml(KyDtDictionary &root, _auto_ptr<KyUtXMLDOMNode> &node);
  // Gives how many reference items it read: when there are none, a reader
  // has no references to resolve. With `consume`, the elements of each
  // dictionary are removed from the document once it is read, so that a
  // large file's document shrinks as its tree grows; only a reader that owns
  // the document may ask for that.
  static std::int32_t ReadXml(KyDtDictionary &root, _auto_ptr<KyUtXMLDOMNode> &node, bool consume = false);
  static void WriteArchive(KyDtDictionary &root, CArchive &ar);
  // Reads behind the kind number. On an exception the children read so far
  // stay in their dictionaries, and nothing is leaked.
  static void ReadArchive(KyDtDictionary &root, CArchive &ar);
};
