// The host program's one open document: the drawing that the working
// database is while no one has set another.
//
// Documents are saved as DXF. A document opened under a ".dwg" name is
// read from that file if it is DXF text, else from its ".dxf" sibling, and
// is saved to the ".dxf" sibling, so that what is written is always a
// file other CAD programs open.
#pragma once

#include <string>

#include "platform/acad/AcadErrorStatus.h"

class AcDbDatabase;

namespace tolv {

// Opens a drawing as the document, replacing the one open: read when the
// file (or its ".dxf" sibling) exists, a new drawing to be saved under that
// name when neither does. On a read failure the old document stays open
// and the status tells why (eDxfReadAborted, eFileNotFound...).
Acad::ErrorStatus OpenDocument(const std::wstring &path);
// A new drawing without a file name.
void NewDocument();
// Saves the document under its name; eInvalidInput when it has none.
Acad::ErrorStatus SaveDocument();
// Saves under a new name, which the document keeps from then on.
Acad::ErrorStatus SaveDocumentAs(const std::wstring &path);
// Drops the document; the next request for the working database starts
// a new one.
void CloseDocument();
// The open document, or null; and the name it is saved under (empty for
// a new drawing without one).
AcDbDatabase *Document();
std::wstring DocumentPath();
// The path a drawing name is saved to: a ".dwg" name becomes its ".dxf"
// sibling; other names stay as given.
std::wstring DrawingSavePath(const std::wstring &path);

}  // namespace tolv
