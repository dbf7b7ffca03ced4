// What the database classes of the host share behind their public faces:
// the process-wide table of object ids, the open state of each object, and
// the database's own bookkeeping. Not for code outside platform/acad/.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "platform/acad/AcDbDatabase.h"
#include "platform/acad/AcDbDxfFiler.h"
#include "platform/acad/AcDbObject.h"

struct resbuf;
class AcDbEntity;
class AcDbSymbolTable;
class AcDbSymbolTableRecord;
class AcDbBlockTableRecord;
class AcDbDictionary;

namespace tolv {

// Extended data of one application: the buffers behind its 1001.
struct XDataGroup {
  std::wstring app;
  resbuf *items = nullptr;
};

struct ObjectState {
  AcDbObjectId id;
  AcDbObjectId owner;
  AcDbDatabase *db = nullptr;
  int readers = 0;
  bool writing = false;
  bool erased = false;
  std::vector<XDataGroup> xdata;
  // Entity properties read from a file that this stand-in does not model,
  // written back as they came.
  std::vector<DxfTag> entityExtras;
  // The object's extension dictionary, as a file gave it.
  AcDbObjectId extensionDictionary;
  ~ObjectState();
};

// A class of the CLASSES section of a drawing file.
struct DxfClassInfo {
  std::wstring dxfName;
  std::wstring cppName;
  std::wstring appName;
  std::int64_t proxyFlags = 0;
  bool wasProxy = false;
  bool isEntity = false;
};

struct DatabaseState {
  std::uint64_t nextHandle = 1;
  std::map<std::uint64_t, AcDbObjectId> byHandle;
  std::vector<AcDbObjectId> objects;  // in the order the database took them
  AcDbObjectId blockTable, layerTable, linetypeTable, textStyleTable, dimStyleTable, regAppTable;
  AcDbObjectId viewportTable, viewTable, ucsTable;
  AcDbObjectId namedObjects;
  AcDbObjectId clayer, textstyle, dimstyle, celtype;
  AcDbObjectId modelSpace, paperSpace;
  bool tileMode = true;
  int insunits = 4;
  std::wstring fileName;
  std::vector<DxfClassInfo> fileClasses;  // classes a file declared, for objects carried through
};

class ObjectAccess {
 public:
  static ObjectState &State(const AcDbObject *obj) { return *obj->state_; }
  static DatabaseState &Db(const AcDbDatabase *db) { return *db->state_; }
  // The object of an id without opening it; null for a stale or null id.
  static AcDbObject *Peek(AcDbObjectId id);
  template <class T>
  static T *PeekAs(AcDbObjectId id) {
    return T::cast(Peek(id));
  }
  // Puts the object into the database under `handle` (0: the next free
  // one), with its owner. With leaveOpen the object stays open for write.
  static Acad::ErrorStatus Add(AcDbDatabase *db, AcDbObject *obj, AcDbObjectId owner, std::uint64_t handle,
                               bool leaveOpen, AcDbObjectId *id = nullptr);
  static void SetOwner(AcDbObject *obj, AcDbObjectId owner) { obj->state_->owner = owner; }
  static void SetEntityLayer(AcDbEntity *ent, AcDbObjectId layer);
  static void SetEntityLinetype(AcDbEntity *ent, AcDbObjectId linetype);
  static std::vector<AcDbObjectId> &Records(AcDbSymbolTable *table);
  static std::vector<AcDbObjectId> &Entities(AcDbBlockTableRecord *block);
  static std::vector<DxfTag> &Extras(AcDbSymbolTableRecord *record);
  static void SetRecordName(AcDbSymbolTableRecord *record, const std::wstring &name);
  // Makes the BLOCK and ENDBLK objects of a block that joined a database.
  static void AddBlockMarkers(AcDbBlockTableRecord *block);
  static void SetBlockMarkers(AcDbBlockTableRecord *block, AcDbObjectId begin, AcDbObjectId end);
  static AcDbObjectId BlockBegin(const AcDbBlockTableRecord *block);
  static AcDbObjectId BlockEnd(const AcDbBlockTableRecord *block);
  static int &BlockFlags(AcDbBlockTableRecord *block);
  static std::vector<std::pair<std::wstring, AcDbObjectId>> &Entries(AcDbDictionary *dict);
};

// Result buffers to the group codes of a file and back: a point becomes
// its x, y and z codes, binary data hexadecimal text, an object pointer an
// id (kept in rlname[0] as the id's number).
void AppendRbAsTags(const resbuf *rb, std::vector<DxfTag> &out);
// Turns the tags from `begin` to `end` into a list; null for none.
resbuf *TagsToRb(const std::vector<DxfTag> &tags, std::size_t begin, std::size_t end);

// The "Normal" plot style of a database, which layers point at; null when
// the database has none.
AcDbObjectId NormalPlotStyleId(AcDbDatabase *db);
// Layer of a database by name, made with the host's defaults if missing
// (drawing files may use layers their table lacks).
AcDbObjectId EnsureLayer(AcDbDatabase *db, const std::wstring &name);
// Line type of a database by name, ByLayer and ByBlock included.
AcDbObjectId FindLinetype(AcDbDatabase *db, const std::wstring &name);
// Called by a database that dies, so the host does not keep it as the
// working database.
void ForgetWorkingDatabase(AcDbDatabase *db);
// Fills an empty database with what every drawing needs; what it has of it
// already stays. Used for new drawings and after reading a file.
void CompleteDatabase(AcDbDatabase *db);
// Named object of a database table by name, found without opening anything.
AcDbObjectId FindRecord(AcDbObjectId tableId, const std::wstring &name);
// Compares names as the host does: without regard to case.
bool SameName(const std::wstring &a, const std::wstring &b);
std::wstring UpperName(const std::wstring &text);

}  // namespace tolv
