// An XML document on disk, in UTF-8.
//
// Paths are the system's (backslashes, drive letters) and reach the disk
// through tolv::MapPath, with its case-insensitive fallback. A saved file
// always starts with an XML declaration naming UTF-8, is indented for
// people to read, and is replaced atomically: a failed save leaves the old
// file as it was. Saving an unchanged document again gives the same bytes.
#pragma once

#include <memory>
#include <string>
#include <utility>

#include "platform/mfc/CString.h"
#include "platform/utility/AutoPtr.h"
#include "platform/utility/KyUtXMLDOMNode.h"
#include "platform/utility/KyUtXMLDOMNodes.h"

template <class T>
class KyArray;

// Handles taken from a document (GetRoot and what it leads to) must not be
// used after the document is freed or replaced by Open or CreateNewXMLDoc.
class KyUtXMLDOMFile {
 public:
  KyUtXMLDOMFile();
  ~KyUtXMLDOMFile();
  KyUtXMLDOMFile(const KyUtXMLDOMFile &) = delete;
  KyUtXMLDOMFile &operator=(const KyUtXMLDOMFile &) = delete;

  // Loads the file and remembers the path. False when it can't be read or
  // isn't well-formed; the document and the path are then as they were.
  // A UTF-8 byte order mark is accepted, as are UTF-16 files with one.
  bool Open(const wchar_t *path);
  // Whether a regular file is there.
  bool IsFileExist(const wchar_t *path);
  // A new document in memory (nothing is written) with the declaration, e.g.
  // "version='1.0' encoding='utf-8'", and a root element with the
  // attributes in order. Remembers the path. False, changing nothing, when
  // the root name or an attribute name can't stand in XML.
  bool CreateNewXMLDoc(const wchar_t *path, const wchar_t *declaration, const wchar_t *rootName,
                       const KyArray<std::pair<CString, CString>> &attributes);
  // The document's element; empty when there is no document.
  _auto_ptr<KyUtXMLDOMNode> GetRoot();
  // Writes the document to the path, or with a null path to the remembered
  // one (which a given path doesn't change).
  bool Save(const wchar_t *path);
  // The remembered path; empty text before Open or CreateNewXMLDoc.
  wchar_t *GetXMLFileName();

 private:
  struct Impl;
  std::unique_ptr<Impl> impl_;
};
