// Writing a database as an ASCII drawing file of release 2000 (AC1015).
#include <cstdio>
#include <map>
#include <set>
#include <unordered_set>

#include "platform/acad/AcDbDatabase.h"
#include "platform/acad/AcDbDictionary.h"
#include "platform/acad/AcDbSymbolTables.h"
#include "platform/acad/AdsResbuf.h"
#include "platform/acad/CarriedObjects.h"
#include "platform/acad/DbInternals.h"
#include "platform/acad/DxfText.h"
#include "platform/windows/AtomicFile.h"
#include "platform/windows/PathMap.h"

namespace tolv {

namespace {

struct ClassRow {
  std::wstring cppName;
  std::wstring appName;
  std::int64_t proxyFlags = 0;
  bool isEntity = false;
};

// Object types of release 2000 that a file declares in its CLASSES section.
const std::map<std::wstring, ClassRow> &DeclaredBuiltIns() {
  static const std::map<std::wstring, ClassRow> rows = {
      {L"ACDBDICTIONARYWDFLT", {L"AcDbDictionaryWithDefault", L"ObjectDBX Classes", 0, false}},
      {L"ACDBPLACEHOLDER", {L"AcDbPlaceHolder", L"ObjectDBX Classes", 0, false}},
      {L"LAYOUT", {L"AcDbLayout", L"ObjectDBX Classes", 0, false}},
      {L"DICTIONARYVAR", {L"AcDbDictionaryVar", L"ObjectDBX Classes", 0, false}},
  };
  return rows;
}

class Writer {
 public:
  explicit Writer(const AcDbDatabase *db) : db_(const_cast<AcDbDatabase *>(db)), ds_(ObjectAccess::Db(db)) {}

  std::string Run() {
    CollectWritten();
    WriteHeader();
    WriteClasses();
    WriteTables();
    WriteBlocks();
    WriteEntities();
    WriteObjects();
    Line(0, "EOF");
    return std::move(out_);
  }

 private:
  // ------------------------------------------------------------ primitives

  void Code(int code) {
    char buffer[16];
    std::snprintf(buffer, sizeof buffer, "%3d\n", code);
    out_ += buffer;
  }
  void Line(int code, const std::string &value) {
    Code(code);
    out_ += value;
    out_ += '\n';
  }
  void Text(int code, const std::wstring &value) { Line(code, EncodeDxfText(value)); }
  void Int(int code, std::int64_t value) { Line(code, std::to_string(value)); }
  void Real(int code, double value) { Line(code, FormatDxfReal(value)); }
  void Handle(int code, AcDbObjectId id) { Line(code, FormatDxfHandle(id.handle().value())); }
  void Point(int code, double x, double y, double z) {
    Real(code, x);
    Real(code + 10, y);
    Real(code + 20, z);
  }

  bool Written(AcDbObjectId id) const { return written_.count(id) != 0; }

  // Tags of a filer; pointers to what the file does not hold are left
  // out, and with them the key of a dictionary entry they belonged to.
  void Tags(const std::vector<DxfTag> &tags) {
    std::vector<const DxfTag *> kept;
    for (const DxfTag &t : tags) {
      if (IsDxfPointerCode(t.code)) {
        if (!Written(t.id)) {
          if ((t.code == 350 || t.code == 360) && !kept.empty() && kept.back()->code == 3) kept.pop_back();
          continue;
        }
      }
      kept.push_back(&t);
    }
    for (const DxfTag *t : kept) {
      switch (DxfKindOfCode(t->code)) {
        case DxfKind::kText:
          Text(t->code, t->text);
          break;
        case DxfKind::kReal:
          Real(t->code, t->real);
          break;
        case DxfKind::kInt:
          Int(t->code, t->integer);
          break;
        case DxfKind::kId:
          Handle(t->code, t->id);
          break;
      }
    }
  }

  void XData(const AcDbObject *obj) {
    std::vector<DxfTag> tags;
    for (const XDataGroup &g : ObjectAccess::State(obj).xdata) {
      tags.push_back(DxfTag::Text(1001, g.app));
      AppendRbAsTags(g.items, tags);
    }
    Tags(tags);
  }

  // Group 0, the handle, the owner, the class's fields, the extended data.
  void Object(const AcDbObject *obj, const std::wstring &dxfName, int handleCode = 5) {
    Text(0, dxfName);
    Handle(handleCode, obj->objectId());
    AcDbObjectId xdict = ObjectAccess::State(obj).extensionDictionary;
    if (Written(xdict)) {
      Line(102, "{ACAD_XDICTIONARY");
      Handle(360, xdict);
      Line(102, "}");
    }
    if (Written(obj->ownerId())) {
      Handle(330, obj->ownerId());
    } else {
      Line(330, "0");
    }
    AcDbDxfFiler filer;
    obj->dxfOutFields(&filer);
    Tags(filer.tags());
    XData(obj);
  }

  // ------------------------------------------------------- what goes out

  static bool Live(AcDbObjectId id) { return id.isValid() && !id.isErased(); }

  void CollectWritten() {
    for (AcDbObjectId id : ds_.objects) {
      AcDbObject *obj = ObjectAccess::Peek(id);
      if (!obj || obj->isErased() || obj->database() != db_) continue;
      if (AcDbSymbolTable::cast(obj) || AcDbSymbolTableRecord::cast(obj) || AcDbBlockBegin::cast(obj) ||
          AcDbBlockEnd::cast(obj)) {
        continue;  // below, by table
      }
      if (AcDbEntity::cast(obj)) continue;  // below, by block
      if (DxfNameOf(obj).empty()) continue;
      written_.insert(id);
    }
    for (AcDbObjectId tableId : TableOrder()) {
      auto *table = ObjectAccess::PeekAs<AcDbSymbolTable>(tableId);
      if (!table) continue;
      written_.insert(tableId);
      for (AcDbObjectId rec : ObjectAccess::Records(table)) {
        if (!Live(rec)) continue;
        written_.insert(rec);
        if (auto *block = ObjectAccess::PeekAs<AcDbBlockTableRecord>(rec)) {
          written_.insert(ObjectAccess::BlockBegin(block));
          written_.insert(ObjectAccess::BlockEnd(block));
          for (AcDbObjectId e : ObjectAccess::Entities(block)) {
            if (Live(e) && !DxfNameOf(ObjectAccess::Peek(e)).empty()) written_.insert(e);
          }
        }
      }
    }
  }

  std::vector<AcDbObjectId> TableOrder() const {
    return {ds_.viewportTable, ds_.linetypeTable, ds_.layerTable, ds_.textStyleTable, ds_.viewTable,
            ds_.ucsTable,      ds_.regAppTable,   ds_.dimStyleTable, ds_.blockTable};
  }

  std::wstring RecordName(AcDbObjectId id) const {
    auto *rec = ObjectAccess::PeekAs<AcDbSymbolTableRecord>(id);
    const ACHAR *name = nullptr;
    if (rec) rec->getName(name);
    return name ? name : L"";
  }

  // --------------------------------------------------------------- sections

  void WriteHeader() {
    Line(0, "SECTION");
    Line(2, "HEADER");
    Line(9, "$ACADVER");
    Line(1, "AC1015");
    Line(9, "$ACADMAINTVER");
    Int(70, 6);
    Line(9, "$DWGCODEPAGE");
    Line(3, "ANSI_936");
    Line(9, "$INSBASE");
    Point(10, 0.0, 0.0, 0.0);
    Line(9, "$EXTMIN");
    Point(10, 1e20, 1e20, 1e20);
    Line(9, "$EXTMAX");
    Point(10, -1e20, -1e20, -1e20);
    Line(9, "$LIMMIN");
    Real(10, 0.0);
    Real(20, 0.0);
    Line(9, "$LIMMAX");
    Real(10, 420.0);
    Real(20, 297.0);
    Line(9, "$LTSCALE");
    Real(40, 1.0);
    Line(9, "$TEXTSIZE");
    Real(40, 2.5);
    Line(9, "$CLAYER");
    Text(8, RecordName(db_->clayer()).empty() ? L"0" : RecordName(db_->clayer()));
    Line(9, "$CELTYPE");
    Text(6, RecordName(db_->celtype()).empty() ? L"ByLayer" : RecordName(db_->celtype()));
    Line(9, "$CECOLOR");
    Int(62, 256);
    Line(9, "$TEXTSTYLE");
    Text(7, RecordName(db_->textstyle()).empty() ? L"Standard" : RecordName(db_->textstyle()));
    Line(9, "$DIMSTYLE");
    Text(2, RecordName(db_->dimstyle()).empty() ? L"Standard" : RecordName(db_->dimstyle()));
    Line(9, "$TILEMODE");
    Int(70, db_->tileMode() ? 1 : 0);
    Line(9, "$INSUNITS");
    Int(70, db_->insunits());
    Line(9, "$MEASUREMENT");
    Int(70, 1);
    Line(9, "$HANDSEED");
    Line(5, FormatDxfHandle(ds_.nextHandle));
    Line(0, "ENDSEC");
  }

  void WriteClasses() {
    std::map<std::wstring, ClassRow> rows;
    for (AcDbObjectId id : written_) {
      AcDbObject *obj = ObjectAccess::Peek(id);
      std::wstring name = DxfNameOf(obj);
      if (name.empty() || rows.count(name)) continue;
      auto builtin = DeclaredBuiltIns().find(name);
      if (builtin != DeclaredBuiltIns().end()) {
        rows[name] = builtin->second;
        continue;
      }
      bool found = false;
      for (const DxfClassInfo &c : ds_.fileClasses) {
        if (c.dxfName == name) {
          rows[name] = ClassRow{c.cppName, c.appName, c.proxyFlags, c.isEntity};
          found = true;
          break;
        }
      }
      if (found) continue;
      // A class of the add-on: declared with its own application name.
      const AcRxClass *cls = obj->isA();
      if (*cls->appName() && std::wstring(cls->appName()) != L"ACAD" && name == cls->dxfName()) {
        rows[name] = ClassRow{cls->name(), cls->appName(), cls->proxyFlags(), obj->isKindOf(AcDbEntity::desc())};
      }
    }
    Line(0, "SECTION");
    Line(2, "CLASSES");
    for (const auto &[name, row] : rows) {
      Line(0, "CLASS");
      Text(1, name);
      Text(2, row.cppName);
      Text(3, row.appName);
      Int(90, row.proxyFlags);
      Int(280, 0);
      Int(281, row.isEntity ? 1 : 0);
    }
    Line(0, "ENDSEC");
  }

  void WriteTables() {
    Line(0, "SECTION");
    Line(2, "TABLES");
    for (AcDbObjectId tableId : TableOrder()) {
      auto *table = ObjectAccess::PeekAs<AcDbSymbolTable>(tableId);
      if (!table) continue;
      std::vector<AcDbObjectId> records;
      for (AcDbObjectId rec : ObjectAccess::Records(table)) {
        if (Live(rec)) records.push_back(rec);
      }
      Line(0, "TABLE");
      Text(2, table->tableName());
      Handle(5, tableId);
      Line(330, "0");
      Line(100, "AcDbSymbolTable");
      Int(70, static_cast<std::int64_t>(records.size()));
      bool dimstyles = tableId == ds_.dimStyleTable;
      if (dimstyles) Line(100, "AcDbDimStyleTable");
      for (AcDbObjectId rec : records) {
        AcDbObject *obj = ObjectAccess::Peek(rec);
        Object(obj, DxfNameOf(obj), dimstyles ? 105 : 5);
      }
      Line(0, "ENDTAB");
    }
    Line(0, "ENDSEC");
  }

  void BlockMarker(AcDbBlockTableRecord *block, bool begin) {
    AcDbObjectId id = begin ? ObjectAccess::BlockBegin(block) : ObjectAccess::BlockEnd(block);
    AcDbObject *marker = ObjectAccess::Peek(id);
    Text(0, begin ? L"BLOCK" : L"ENDBLK");
    Handle(5, id);
    Handle(330, block->objectId());
    Line(100, "AcDbEntity");
    if (block->objectId() == ds_.paperSpace) Int(67, 1);
    auto *ent = AcDbEntity::cast(marker);
    std::wstring layer = ent ? RecordName(ent->layerId()) : L"";
    Text(8, layer.empty() ? L"0" : layer);
    if (!begin) {
      Line(100, "AcDbBlockEnd");
      if (marker) XData(marker);
      return;
    }
    std::wstring name = RecordName(block->objectId());
    int flags = ObjectAccess::BlockFlags(block) & ~(1 | 2);
    if (block->isAnonymous()) flags |= 1;
    for (AcDbObjectId e : block->entityIds()) {
      if (Written(e) && DxfNameOf(ObjectAccess::Peek(e)) == L"ATTDEF") flags |= 2;
    }
    Line(100, "AcDbBlockBegin");
    Text(2, name);
    Int(70, flags);
    Point(10, block->origin().x, block->origin().y, block->origin().z);
    Text(3, name);
    Line(1, "");
    const ACHAR *comments = nullptr;
    block->comments(comments);
    if (comments && *comments) Text(4, comments);
    if (marker) XData(marker);
  }

  void Entities(AcDbBlockTableRecord *block) {
    for (AcDbObjectId id : ObjectAccess::Entities(block)) {
      if (!Written(id)) continue;
      AcDbObject *obj = ObjectAccess::Peek(id);
      Object(obj, DxfNameOf(obj));
    }
  }

  void WriteBlocks() {
    Line(0, "SECTION");
    Line(2, "BLOCKS");
    if (auto *table = ObjectAccess::PeekAs<AcDbSymbolTable>(ds_.blockTable)) {
      for (AcDbObjectId rec : ObjectAccess::Records(table)) {
        auto *block = ObjectAccess::PeekAs<AcDbBlockTableRecord>(rec);
        if (!block || block->isErased()) continue;
        BlockMarker(block, true);
        if (rec != ds_.modelSpace && rec != ds_.paperSpace) Entities(block);
        BlockMarker(block, false);
      }
    }
    Line(0, "ENDSEC");
  }

  void WriteEntities() {
    Line(0, "SECTION");
    Line(2, "ENTITIES");
    if (auto *ms = ObjectAccess::PeekAs<AcDbBlockTableRecord>(ds_.modelSpace)) Entities(ms);
    if (auto *ps = ObjectAccess::PeekAs<AcDbBlockTableRecord>(ds_.paperSpace)) Entities(ps);
    Line(0, "ENDSEC");
  }

  // The root dictionary first, then what each dictionary holds, depth
  // first, then objects that no dictionary reaches.
  void WriteObjects() {
    Line(0, "SECTION");
    Line(2, "OBJECTS");
    std::unordered_set<AcDbObjectId> done;
    std::vector<AcDbObjectId> stack;
    auto visit = [&](AcDbObjectId start) {
      stack.push_back(start);
      while (!stack.empty()) {
        AcDbObjectId id = stack.back();
        stack.pop_back();
        if (!Written(id) || done.count(id)) continue;
        AcDbObject *obj = ObjectAccess::Peek(id);
        if (AcDbEntity::cast(obj) || AcDbSymbolTable::cast(obj) || AcDbSymbolTableRecord::cast(obj)) continue;
        done.insert(id);
        Object(obj, DxfNameOf(obj));
        std::vector<AcDbObjectId> children;
        if (auto *dict = AcDbDictionary::cast(obj)) {
          for (const auto &e : ObjectAccess::Entries(dict)) children.push_back(e.second);
        } else if (auto *carried = CarriedObject::cast(obj)) {
          for (const DxfTag &t : carried->carriedTags()) {
            if ((t.code == 350 || t.code == 360) && ObjectAccess::Peek(t.id) &&
                ObjectAccess::Peek(t.id)->ownerId() == id) {
              children.push_back(t.id);
            }
          }
        }
        for (auto it = children.rbegin(); it != children.rend(); ++it) stack.push_back(*it);
      }
    };
    visit(ds_.namedObjects);
    for (AcDbObjectId id : ds_.objects) {
      if (Written(id) && !done.count(id) && !AcDbEntity::cast(ObjectAccess::Peek(id))) visit(id);
    }
    Line(0, "ENDSEC");
  }

  AcDbDatabase *db_;
  DatabaseState &ds_;
  std::unordered_set<AcDbObjectId> written_;
  std::string out_;
};

}  // namespace

}  // namespace tolv

Acad::ErrorStatus AcDbDatabase::dxfOutToText(std::string &text) const {
  for (AcDbObjectId id : state_->objects) {
    AcDbObject *obj = tolv::ObjectAccess::Peek(id);
    if (obj && tolv::ObjectAccess::State(obj).writing && obj->database() == this) {
      // An object open for write may be half changed; the host refuses too.
      if (!AcDbSymbolTable::cast(obj)) return Acad::eWasOpenForWrite;
    }
  }
  text = tolv::Writer(this).Run();
  return Acad::eOk;
}

Acad::ErrorStatus AcDbDatabase::dxfOut(const ACHAR *fileName, int, bool) {
  if (!fileName || !*fileName) return Acad::eInvalidInput;
  std::string text;
  Acad::ErrorStatus es = dxfOutToText(text);
  if (es != Acad::eOk) return es;
  if (!tolv::WriteFileAtomically(tolv::MapPath(fileName), text)) return Acad::eFileAccessErr;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbDatabase::saveAs(const ACHAR *fileName) {
  Acad::ErrorStatus es = dxfOut(fileName);
  if (es == Acad::eOk) state_->fileName = fileName;
  return es;
}
