// The root of everything that lives in a drawing database.
//
// Open state. An object that no database holds yet is free to change. Once
// a database holds it, it is reached by opening its id (acdbOpenAcDbObject,
// acdbOpenObject): any number of readers at a time, or one writer, and each
// open is ended by close(). Setters of a database-resident object that is
// not open for write change nothing and answer eNotOpenForWrite. Adding an
// object to a database leaves it open for write, for its maker to close.
// The database deletes its objects; a caller deletes only an object that it
// made and never added.
//
// Extended data are kept per registered application name; see xData() and
// setXData().
#pragma once

#include <memory>

#include "platform/acad/AcAdesk.h"
#include "platform/acad/AcDb.h"
#include "platform/acad/AcDbObjectId.h"
#include "platform/acad/AcRxObject.h"
#include "platform/acad/AcadErrorStatus.h"

struct resbuf;
class AcDbDatabase;
class AcDbDxfFiler;

namespace tolv {
struct ObjectState;
class ObjectAccess;
}  // namespace tolv

class AcDbObject : public AcRxObject {
 public:
  ACRX_DECLARE_MEMBERS(AcDbObject);

  AcDbObject();
  ~AcDbObject() override;
  AcDbObject(const AcDbObject &) = delete;
  AcDbObject &operator=(const AcDbObject &) = delete;

  AcDbObjectId objectId() const;
  AcDbObjectId ownerId() const;
  virtual Acad::ErrorStatus setOwnerId(AcDbObjectId ownerId);
  AcDbDatabase *database() const;

  bool isReadEnabled() const;
  bool isWriteEnabled() const;
  // True until a database holds the object.
  bool isNewObject() const;
  bool isErased() const;

  // Ends one open. Nothing to do for an object no database holds.
  Acad::ErrorStatus close();
  // From read to write: fails with eHadMultipleReaders when others read it too.
  Acad::ErrorStatus upgradeOpen();
  Acad::ErrorStatus downgradeOpen();
  // Marks the object erased (or takes the mark off); needs write.
  Acad::ErrorStatus erase(bool erasing = true);

  // With an application name: a new list of that application's data, the
  // 1001 buffer with the name first; null when it has none. Without one: all
  // the extended data. The caller frees the list with acutRelRb.
  virtual resbuf *xData(const ACHAR *regappName = nullptr) const;
  // Replaces, per application, the data of each application whose 1001
  // group the list holds; a 1001 with nothing behind it removes that
  // application's data. Every name must be registered in the database that
  // holds the object (eRegappIdNotFound otherwise), the list must start
  // with a 1001 and hold only extended-data group codes (eInvalidInput).
  virtual Acad::ErrorStatus setXData(const resbuf *xdata);

  // The class's own fields in a drawing file. The handle, owner and
  // extended data are written and read by the database around these.
  virtual Acad::ErrorStatus dxfOutFields(AcDbDxfFiler *filer) const;
  virtual Acad::ErrorStatus dxfInFields(AcDbDxfFiler *filer);

 protected:
  // eOk when the object may be changed now, else eNotOpenForWrite.
  Acad::ErrorStatus checkWriteEnabled() const;

 private:
  friend class tolv::ObjectAccess;
  std::unique_ptr<tolv::ObjectState> state_;
};

// Opens the object of an id. eNullObjectId for the null id, eUnknownHandle
// when the object is gone, eWasErased for an erased one unless openErased,
// eWasOpenForWrite when someone writes it, eWasOpenForRead when a write is
// asked while someone reads it, eAtMaxReaders past 256 readers.
Acad::ErrorStatus acdbOpenAcDbObject(AcDbObject *&obj, AcDbObjectId id, AcDb::OpenMode mode,
                                     bool openErased = false);

// The same, for an object of class T; eNotThatKindOfClass (and nothing
// opened) when the object is of another class.
template <class T>
Acad::ErrorStatus acdbOpenObject(T *&obj, AcDbObjectId id, AcDb::OpenMode mode, bool openErased = false) {
  obj = nullptr;
  AcDbObject *raw = nullptr;
  Acad::ErrorStatus es = acdbOpenAcDbObject(raw, id, mode, openErased);
  if (es != Acad::eOk) return es;
  obj = T::cast(raw);
  if (!obj) {
    raw->close();
    return Acad::eNotThatKindOfClass;
  }
  return Acad::eOk;
}
