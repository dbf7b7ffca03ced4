// The host's drawing database: the symbol tables, the named-object
// dictionary, the blocks with their entities, and the few header
// variables the add-on reads. It keeps every object it holds under a
// handle and deletes them when it dies.
//
// Drawing files are text DXF of release 2000 (AC1015), with handles and
// owners, in the drawing code page ANSI_936 (characters that code page
// lacks as \U+XXXX). saveAs and dxfOut write one; readDwgFile and dxfIn
// read one of any release that has the same text form (UTF-8 from
// AC1021). A path that names a ".DWG" drawing is served by the file of
// that name if it is DXF text, else by its ".dxf" sibling (same stem,
// extension in any case).
#pragma once

#include <memory>
#include <string>

#include "platform/acad/AcAdesk.h"
#include "platform/acad/AcDb.h"
#include "platform/acad/AcDbObjectId.h"
#include "platform/acad/AcadErrorStatus.h"

class AcDbObject;
class AcDbSymbolTable;
class AcDbBlockTable;
class AcDbLayerTable;
class AcDbLinetypeTable;
class AcDbTextStyleTable;
class AcDbDimStyleTable;
class AcDbRegAppTable;
class AcDbDictionary;

namespace tolv {
struct DatabaseState;
class ObjectAccess;
}  // namespace tolv

class AcDbDatabase {
 public:
  // With buildDefaultDrawing, the database holds what every drawing needs:
  // layer "0", line types ByBlock, ByLayer and Continuous, text style and
  // dimension style "Standard", application "ACAD", model and paper space
  // with their layouts, and the named-object dictionary with the host's
  // standard entries. Without it the database is empty until a file is read.
  explicit AcDbDatabase(bool buildDefaultDrawing = true, bool noDocument = false);
  ~AcDbDatabase();
  AcDbDatabase(const AcDbDatabase &) = delete;
  AcDbDatabase &operator=(const AcDbDatabase &) = delete;

  // Gives the object a handle and the database; it stays open for write.
  // The caller sets its owner. eAlreadyInDb if a database holds it already.
  Acad::ErrorStatus addAcDbObject(AcDbObjectId &objId, AcDbObject *obj);
  Acad::ErrorStatus addAcDbObject(AcDbObject *obj);
  // The id of the object under a handle; eUnknownHandle when there is none.
  Acad::ErrorStatus getAcDbObjectId(AcDbObjectId &retId, bool createIfNotFound, const AcDbHandle &objHandle,
                                    Adesk::UInt32 xRefId = 0);

  // The symbol tables, opened in the mode asked for.
  Acad::ErrorStatus getSymbolTable(AcDbBlockTable *&table, AcDb::OpenMode mode);
  Acad::ErrorStatus getSymbolTable(AcDbLayerTable *&table, AcDb::OpenMode mode);
  Acad::ErrorStatus getSymbolTable(AcDbLinetypeTable *&table, AcDb::OpenMode mode);
  Acad::ErrorStatus getSymbolTable(AcDbTextStyleTable *&table, AcDb::OpenMode mode);
  Acad::ErrorStatus getSymbolTable(AcDbDimStyleTable *&table, AcDb::OpenMode mode);
  Acad::ErrorStatus getSymbolTable(AcDbRegAppTable *&table, AcDb::OpenMode mode);
  Acad::ErrorStatus getBlockTable(AcDbBlockTable *&table, AcDb::OpenMode mode) { return getSymbolTable(table, mode); }
  Acad::ErrorStatus getLayerTable(AcDbLayerTable *&table, AcDb::OpenMode mode) { return getSymbolTable(table, mode); }
  Acad::ErrorStatus getLinetypeTable(AcDbLinetypeTable *&table, AcDb::OpenMode mode) {
    return getSymbolTable(table, mode);
  }
  Acad::ErrorStatus getTextStyleTable(AcDbTextStyleTable *&table, AcDb::OpenMode mode) {
    return getSymbolTable(table, mode);
  }
  Acad::ErrorStatus getDimStyleTable(AcDbDimStyleTable *&table, AcDb::OpenMode mode) {
    return getSymbolTable(table, mode);
  }
  Acad::ErrorStatus getRegAppTable(AcDbRegAppTable *&table, AcDb::OpenMode mode) { return getSymbolTable(table, mode); }
  AcDbObjectId blockTableId() const;
  AcDbObjectId layerTableId() const;
  AcDbObjectId linetypeTableId() const;
  AcDbObjectId textStyleTableId() const;
  AcDbObjectId dimStyleTableId() const;
  AcDbObjectId regAppTableId() const;

  Acad::ErrorStatus getNamedObjectsDictionary(AcDbDictionary *&dict, AcDb::OpenMode mode);
  AcDbObjectId namedObjectsDictionaryId() const;

  // Current layer, text style, dimension style and line type.
  AcDbObjectId clayer() const;
  Acad::ErrorStatus setClayer(AcDbObjectId id);
  AcDbObjectId textstyle() const;
  Acad::ErrorStatus setTextstyle(AcDbObjectId id);
  AcDbObjectId dimstyle() const;
  Acad::ErrorStatus setDimstyle(AcDbObjectId id);
  AcDbObjectId celtype() const;
  Acad::ErrorStatus setCeltype(AcDbObjectId id);
  // The ids of the special line types, null in a database without them.
  AcDbObjectId byLayerLinetype() const;
  AcDbObjectId byBlockLinetype() const;
  AcDbObjectId continuousLinetype() const;

  // Model space, and the space that takes new entities: model space unless
  // tileMode is false (paper space is current).
  AcDbObjectId modelSpaceId() const;
  AcDbObjectId paperSpaceId() const;
  AcDbObjectId currentSpaceId() const;
  bool tileMode() const;
  Acad::ErrorStatus setTileMode(bool tileMode);

  AcDb::UnitsValue insunits() const;
  Acad::ErrorStatus setInsunits(AcDb::UnitsValue units);

  // Reads a drawing into a database made without default drawing. `shmode`
  // and the rest are accepted for the host's signature. eFileNotFound when
  // neither the file nor its ".dxf" sibling exists, eDxfReadAborted when
  // the file is no readable DXF (nothing of it is kept then), eAlreadyInDb
  // when the database holds objects already.
  Acad::ErrorStatus readDwgFile(const ACHAR *fileName, int shmode = 0x20, bool bAllowCPConversion = false,
                                const wchar_t *password = nullptr);
  // Reads a DXF file into this database; like readDwgFile without the
  // sibling rule.
  Acad::ErrorStatus dxfIn(const ACHAR *dxfFilename, const ACHAR *logFilename = nullptr);
  // Writes the database as DXF to the path (mapped to the disk, written
  // atomically); the file name is remembered. eFileAccessErr if writing
  // failed, eWasOpenForWrite while an object of the database is open for
  // write.
  Acad::ErrorStatus saveAs(const ACHAR *fileName);
  Acad::ErrorStatus dxfOut(const ACHAR *fileName, int precision = 16, bool saveThumbnailImage = false);
  // The DXF text of the database, as saveAs writes it.
  Acad::ErrorStatus dxfOutToText(std::string &text) const;
  // Reads DXF text into a database made without default drawing.
  Acad::ErrorStatus dxfInFromText(const std::string &text);
  // The file read or last saved; empty for a new drawing.
  Acad::ErrorStatus getFilename(const ACHAR *&fileName) const;

  // Makes the model space of `pDb` a block named `pBlockName` in this
  // database and gives its id. The entities are copied, and with them the
  // layers, line types, styles, applications and blocks they use that this
  // database lacks; records of the same name here are used as they are.
  // eDuplicateRecordName if a block of the name exists, eInvalidInput for
  // an empty name or a null source.
  Acad::ErrorStatus insert(AcDbObjectId &blockId, const ACHAR *pBlockName, AcDbDatabase *pDb,
                           bool preserveSourceDatabase = true);

 private:
  friend class tolv::ObjectAccess;
  std::unique_ptr<tolv::DatabaseState> state_;
};
