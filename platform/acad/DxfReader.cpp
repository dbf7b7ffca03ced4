// Reading an ASCII drawing file into an empty database. The whole file is
// checked and turned into typed group codes first; only a file that holds
// together is put into the database, so a failed read leaves it empty.
#include <filesystem>
#include <map>
#include <set>
#include <unordered_map>

#include "platform/acad/AcDbDatabase.h"
#include "platform/acad/AcDbDictionary.h"
#include "platform/acad/AcDbLine.h"
#include "platform/acad/AcDbSymbolTables.h"
#include "platform/acad/AdsResbuf.h"
#include "platform/acad/CarriedObjects.h"
#include "platform/acad/DbInternals.h"
#include "platform/acad/DxfText.h"
#include "platform/windows/AtomicFile.h"
#include "platform/windows/PathMap.h"
#include "platform/windows/TextCodec.h"
#include "platform/windows/WinCrt.h"

namespace tolv {

namespace {

// Handles of a file above this are replaced: they would leave no room for
// the handles of new objects.
constexpr std::uint64_t kMaxFileHandle = std::uint64_t(1) << 60;

// Files beyond this size are refused rather than read into memory.
constexpr std::uintmax_t kMaxDxfBytes = 256u * 1024u * 1024u;

// A tag of the file; a pointer keeps the handle until objects exist.
struct FileTag {
  DxfTag tag;
  std::uint64_t handle = 0;
};

// Everything from one group 0 to the next.
struct Chunk {
  std::wstring name;
  std::vector<FileTag> tags;  // without the group 0
};

struct TableBlock {
  Chunk head;
  std::vector<Chunk> records;
};

struct BlockBlock {
  Chunk begin;
  std::vector<Chunk> entities;
  Chunk end;
};

struct ParsedFile {
  std::map<std::wstring, std::vector<DxfTag>> header;  // $NAME -> its values
  std::vector<DxfClassInfo> classes;
  std::vector<TableBlock> tables;
  std::vector<BlockBlock> blocks;
  std::vector<Chunk> entities;
  std::vector<Chunk> objects;
};

// Object types of later releases that a release 2000 file cannot hold.
bool IsLaterReleaseType(const std::wstring &name) {
  static const std::set<std::wstring> names = {
      L"MATERIAL", L"VISUALSTYLE", L"TABLESTYLE", L"MLEADERSTYLE", L"SCALE", L"CELLSTYLEMAP", L"SUN",
      L"SUNSTUDY", L"ACDBDETAILVIEWSTYLE", L"ACDBSECTIONVIEWSTYLE", L"MENTALRAYRENDERSETTINGS",
      L"RENDERSETTINGS", L"RENDERENVIRONMENT", L"RENDERGLOBAL", L"GEODATA", L"DBCOLOR", L"FIELD",
      L"FIELDLIST", L"LIGHTLIST", L"TABLEGEOMETRY", L"TABLECONTENT", L"ACAD_EVALUATION_GRAPH",
      L"MULTILEADER", L"MLEADER", L"MESH", L"HELIX", L"LIGHT", L"PLANESURFACE", L"EXTRUDEDSURFACE",
      L"LOFTEDSURFACE", L"REVOLVEDSURFACE", L"SWEPTSURFACE", L"NURBSURFACE", L"SECTIONOBJECT",
      L"PDFUNDERLAY", L"DWFUNDERLAY", L"DGNUNDERLAY", L"PDFDEFINITION", L"DWFDEFINITION", L"DGNDEFINITION",
      L"GEOPOSITIONMARKER", L"ACAD_TABLE"};
  return names.count(name) != 0;
}

// ------------------------------------------------------------ the parser

class Parser {
 public:
  explicit Parser(const std::string &bytes) : bytes_(bytes) {}

  bool Run(ParsedFile &file) {
    if (!SplitLines()) return false;
    DetectEncoding();
    if (!TypeTags()) return false;
    return ReadSections(file);
  }

 private:
  struct RawPair {
    int code;
    std::string_view value;
  };

  bool SplitLines() {
    std::string_view all(bytes_);
    if (all.size() >= 3 && static_cast<unsigned char>(all[0]) == 0xEF && static_cast<unsigned char>(all[1]) == 0xBB &&
        static_cast<unsigned char>(all[2]) == 0xBF) {
      all.remove_prefix(3);
    }
    if (all.find('\0') != std::string_view::npos) return false;  // binary, not DXF text
    std::vector<std::string_view> lines;
    std::size_t start = 0;
    while (start < all.size()) {
      std::size_t end = all.find('\n', start);
      if (end == std::string_view::npos) end = all.size();
      std::string_view line = all.substr(start, end - start);
      if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
      lines.push_back(line);
      start = end + 1;
    }
    // A final empty line after the last newline is not a value.
    if (lines.size() % 2 == 1 && lines.back().empty()) lines.pop_back();
    if (lines.size() % 2 != 0 || lines.empty()) return false;
    pairs_.reserve(lines.size() / 2);
    for (std::size_t i = 0; i < lines.size(); i += 2) {
      std::int64_t code = 0;
      if (!ParseDxfInt(lines[i], code) || code < -32768 || code > 32767) return false;
      pairs_.push_back(RawPair{static_cast<int>(code), lines[i + 1]});
    }
    return true;
  }

  void DetectEncoding() {
    std::string version, codepage;
    for (std::size_t i = 0; i + 1 < pairs_.size() && i < 2000; ++i) {
      if (pairs_[i].code != 9) continue;
      std::string_view name = pairs_[i].value;
      while (!name.empty() && name.back() == ' ') name.remove_suffix(1);
      if (name == "$ACADVER") version = std::string(pairs_[i + 1].value);
      if (name == "$DWGCODEPAGE") codepage = std::string(pairs_[i + 1].value);
    }
    while (!version.empty() && version.back() == ' ') version.pop_back();
    utf8_ = version >= "AC1021";
    gbk_ = !utf8_ && (codepage.find("936") != std::string::npos || codepage.find("GB") != std::string::npos);
  }

  std::wstring Decode(std::string_view bytes) const {
    std::wstring text;
    if (utf8_) {
      text = FromUtf8(bytes);
    } else if (gbk_) {
      text = FromGbk(bytes);
    } else {
      text.reserve(bytes.size());
      for (char c : bytes) text += static_cast<wchar_t>(static_cast<unsigned char>(c));
    }
    return DecodeDxfEscapes(text);
  }

  bool TypeTags() {
    tags_.reserve(pairs_.size());
    for (const RawPair &p : pairs_) {
      FileTag t;
      t.tag.code = p.code;
      switch (DxfKindOfCode(p.code)) {
        case DxfKind::kText: {
          std::wstring text = Decode(p.value);
          // Names after group 0 and 2 may carry blanks of careless writers.
          if (p.code == 0 || p.code == 9) {
            while (!text.empty() && text.back() == L' ') text.pop_back();
            while (!text.empty() && text.front() == L' ') text.erase(0, 1);
          }
          t.tag.text = std::move(text);
          if (p.code == 5 || p.code == 105) ParseDxfHandle(t.tag.text, t.handle);
          break;
        }
        case DxfKind::kReal:
          if (!ParseDxfReal(p.value, t.tag.real)) return false;
          break;
        case DxfKind::kInt:
          if (!ParseDxfInt(p.value, t.tag.integer)) {
            // Some writers put a real where an integer stands.
            double real = 0.0;
            if (!ParseDxfReal(p.value, real)) return false;
            t.tag.integer = static_cast<std::int64_t>(real);
          }
          break;
        case DxfKind::kId: {
          std::wstring text = Decode(p.value);
          if (!ParseDxfHandle(text, t.handle)) t.handle = 0;
          break;
        }
      }
      tags_.push_back(std::move(t));
    }
    return true;
  }

  bool AtZero(const wchar_t *name) const {
    return pos_ < tags_.size() && tags_[pos_].tag.code == 0 && tags_[pos_].tag.text == name;
  }

  // Reads the chunk at a group 0.
  bool NextChunk(Chunk &chunk) {
    if (pos_ >= tags_.size() || tags_[pos_].tag.code != 0) return false;
    chunk.name = tags_[pos_].tag.text;
    chunk.tags.clear();
    ++pos_;
    while (pos_ < tags_.size() && tags_[pos_].tag.code != 0) chunk.tags.push_back(std::move(tags_[pos_++]));
    return true;
  }

  static std::wstring TextOf(const Chunk &chunk, int code) {
    for (const FileTag &t : chunk.tags) {
      if (t.tag.code == code) return t.tag.text;
    }
    return std::wstring();
  }

  bool ReadSections(ParsedFile &file) {
    // Comments (999) may stand before the first section.
    while (pos_ < tags_.size() && tags_[pos_].tag.code == 999) ++pos_;
    Chunk chunk;
    while (true) {
      if (pos_ >= tags_.size()) return false;  // no EOF: the file was cut short
      if (!NextChunk(chunk)) return false;
      if (chunk.name == L"EOF") return true;
      if (chunk.name != L"SECTION") return false;
      std::wstring section = TextOf(chunk, 2);
      bool ok = true;
      if (section == L"HEADER") {
        ok = ReadHeader(chunk, file);
      } else if (section == L"CLASSES") {
        ok = ReadClasses(file);
      } else if (section == L"TABLES") {
        ok = ReadTables(file);
      } else if (section == L"BLOCKS") {
        ok = ReadBlocks(file);
      } else if (section == L"ENTITIES") {
        ok = ReadList(file.entities);
      } else if (section == L"OBJECTS") {
        ok = ReadList(file.objects);
      } else {
        ok = SkipSection();
      }
      if (!ok) return false;
    }
  }

  bool ReadHeader(const Chunk &sectionChunk, ParsedFile &file) {
    // The header is one chunk: group 2 HEADER, then 9 $NAME and values.
    std::wstring current;
    bool first = true;
    for (const FileTag &t : sectionChunk.tags) {
      if (first && t.tag.code == 2) {
        first = false;
        continue;
      }
      if (t.tag.code == 9) {
        current = t.tag.text;
        file.header[current];
      } else if (!current.empty()) {
        file.header[current].push_back(t.tag);
      }
    }
    return AtEndSection();
  }

  bool AtEndSection() {
    Chunk chunk;
    if (!NextChunk(chunk)) return false;
    return chunk.name == L"ENDSEC";
  }

  bool SkipSection() {
    Chunk chunk;
    while (NextChunk(chunk)) {
      if (chunk.name == L"ENDSEC") return true;
      if (chunk.name == L"EOF" || chunk.name == L"SECTION") return false;
    }
    return false;
  }

  bool ReadClasses(ParsedFile &file) {
    Chunk chunk;
    while (NextChunk(chunk)) {
      if (chunk.name == L"ENDSEC") return true;
      if (chunk.name != L"CLASS") return false;
      DxfClassInfo info;
      for (const FileTag &t : chunk.tags) {
        switch (t.tag.code) {
          case 1: info.dxfName = t.tag.text; break;
          case 2: info.cppName = t.tag.text; break;
          case 3: info.appName = t.tag.text; break;
          case 90: info.proxyFlags = t.tag.integer; break;
          case 280: info.wasProxy = t.tag.integer != 0; break;
          case 281: info.isEntity = t.tag.integer != 0; break;
          default: break;
        }
      }
      if (!info.dxfName.empty()) file.classes.push_back(std::move(info));
    }
    return false;
  }

  bool ReadTables(ParsedFile &file) {
    Chunk chunk;
    while (NextChunk(chunk)) {
      if (chunk.name == L"ENDSEC") return true;
      if (chunk.name != L"TABLE") return false;
      TableBlock table;
      table.head = std::move(chunk);
      bool closed = false;
      while (NextChunk(chunk)) {
        if (chunk.name == L"ENDTAB") {
          closed = true;
          break;
        }
        if (chunk.name == L"TABLE" || chunk.name == L"ENDSEC" || chunk.name == L"EOF" || chunk.name == L"SECTION") {
          return false;
        }
        table.records.push_back(std::move(chunk));
      }
      if (!closed) return false;
      file.tables.push_back(std::move(table));
    }
    return false;
  }

  bool ReadBlocks(ParsedFile &file) {
    Chunk chunk;
    while (NextChunk(chunk)) {
      if (chunk.name == L"ENDSEC") return true;
      if (chunk.name != L"BLOCK") return false;
      BlockBlock block;
      block.begin = std::move(chunk);
      bool closed = false;
      while (NextChunk(chunk)) {
        if (chunk.name == L"ENDBLK") {
          block.end = std::move(chunk);
          closed = true;
          break;
        }
        if (chunk.name == L"BLOCK" || chunk.name == L"ENDSEC" || chunk.name == L"EOF" || chunk.name == L"SECTION") {
          return false;
        }
        block.entities.push_back(std::move(chunk));
      }
      if (!closed) return false;
      file.blocks.push_back(std::move(block));
    }
    return false;
  }

  bool ReadList(std::vector<Chunk> &list) {
    Chunk chunk;
    while (NextChunk(chunk)) {
      if (chunk.name == L"ENDSEC") return true;
      if (chunk.name == L"EOF" || chunk.name == L"SECTION") return false;
      list.push_back(std::move(chunk));
    }
    return false;
  }

  const std::string &bytes_;
  std::vector<RawPair> pairs_;
  std::vector<FileTag> tags_;
  std::size_t pos_ = 0;
  bool utf8_ = false;
  bool gbk_ = false;
};

// -------------------------------------------------------------- the builder

class Builder {
 public:
  Builder(AcDbDatabase *db, ParsedFile &file) : db_(db), ds_(ObjectAccess::Db(db)), file_(file) {}

  void Run() {
    ds_.nextHandle = MaxHandle() + 1;
    ds_.fileClasses = file_.classes;
    MakeTables();
    EnsureLayoutBlocks();
    MakeBlocks();
    MakeEntities();
    MakeObjects();
    FillAll();
    ReadHeaderVariables();
    CompleteDatabase(db_);
    RegisterXDataApps();
  }

 private:
  struct Pending {
    AcDbObject *obj;
    const Chunk *chunk;
    enum Kind { kRecord, kEntity, kObject, kBlockBegin, kBlockEnd, kTable } kind;
    AcDbBlockTableRecord *block = nullptr;
  };

  static std::uint64_t ChunkHandle(const Chunk &c) {
    for (const FileTag &t : c.tags) {
      if (t.tag.code == 5 || t.tag.code == 105) return t.handle;
      if (t.tag.code == 100) break;
    }
    return 0;
  }

  static std::uint64_t ChunkOwnerHandle(const Chunk &c) {
    int depth = 0;
    for (const FileTag &t : c.tags) {
      if (t.tag.code == 102) {
        depth = (!t.tag.text.empty() && t.tag.text[0] == L'{') ? 1 : 0;
        continue;
      }
      if (depth) continue;
      if (t.tag.code == 100) break;
      if (t.tag.code == 330) return t.handle;
    }
    return 0;
  }

  static std::wstring ChunkText(const Chunk &c, int code) {
    for (const FileTag &t : c.tags) {
      if (t.tag.code == code) return t.tag.text;
    }
    return std::wstring();
  }

  static std::int64_t ChunkInt(const Chunk &c, int code, std::int64_t fallback) {
    for (const FileTag &t : c.tags) {
      if (t.tag.code == code) return t.tag.integer;
    }
    return fallback;
  }

  std::uint64_t MaxHandle() const {
    std::uint64_t max = 0;
    auto see = [&](const Chunk &c) {
      std::uint64_t h = ChunkHandle(c);
      if (h <= kMaxFileHandle) max = std::max(max, h);
    };
    for (const TableBlock &t : file_.tables) {
      see(t.head);
      for (const Chunk &c : t.records) see(c);
    }
    for (const BlockBlock &b : file_.blocks) {
      see(b.begin);
      see(b.end);
      for (const Chunk &c : b.entities) see(c);
    }
    for (const Chunk &c : file_.entities) see(c);
    for (const Chunk &c : file_.objects) see(c);
    return max > kMaxFileHandle ? 0 : max;
  }

  AcDbObjectId Register(AcDbObject *obj, const Chunk *chunk, AcDbObjectId owner) {
    AcDbObjectId id;
    std::uint64_t handle = chunk ? ChunkHandle(*chunk) : 0;
    // A duplicate, or a handle so large it leaves no room above it, gets a new one.
    if (handle > kMaxFileHandle || (handle && ds_.byHandle.count(handle))) handle = 0;
    if (ObjectAccess::Add(db_, obj, owner, handle, false, &id) != Acad::eOk) {
      ObjectAccess::Add(db_, obj, owner, 0, false, &id);
    }
    if (chunk) {
      std::uint64_t fileHandle = ChunkHandle(*chunk);
      if (fileHandle && !fileIds_.count(fileHandle)) fileIds_[fileHandle] = id;
    }
    return id;
  }

  AcDbObjectId *TableSlot(const std::wstring &name) {
    if (name == L"VPORT") return &ds_.viewportTable;
    if (name == L"LTYPE") return &ds_.linetypeTable;
    if (name == L"LAYER") return &ds_.layerTable;
    if (name == L"STYLE") return &ds_.textStyleTable;
    if (name == L"VIEW") return &ds_.viewTable;
    if (name == L"UCS") return &ds_.ucsTable;
    if (name == L"APPID") return &ds_.regAppTable;
    if (name == L"DIMSTYLE") return &ds_.dimStyleTable;
    if (name == L"BLOCK_RECORD") return &ds_.blockTable;
    return nullptr;
  }

  static AcDbSymbolTable *NewTable(const std::wstring &name) {
    if (name == L"VPORT") return new AcDbViewportTable;
    if (name == L"LTYPE") return new AcDbLinetypeTable;
    if (name == L"LAYER") return new AcDbLayerTable;
    if (name == L"STYLE") return new AcDbTextStyleTable;
    if (name == L"VIEW") return new AcDbViewTable;
    if (name == L"UCS") return new AcDbUCSTable;
    if (name == L"APPID") return new AcDbRegAppTable;
    if (name == L"DIMSTYLE") return new AcDbDimStyleTable;
    if (name == L"BLOCK_RECORD") return new AcDbBlockTable;
    return nullptr;
  }

  static AcDbSymbolTableRecord *NewRecord(const std::wstring &table) {
    if (table == L"VPORT") return new AcDbViewportTableRecord;
    if (table == L"LTYPE") return new AcDbLinetypeTableRecord;
    if (table == L"LAYER") return new AcDbLayerTableRecord;
    if (table == L"STYLE") return new AcDbTextStyleTableRecord;
    if (table == L"VIEW") return new AcDbViewTableRecord;
    if (table == L"UCS") return new AcDbUCSTableRecord;
    if (table == L"APPID") return new AcDbRegAppTableRecord;
    if (table == L"DIMSTYLE") return new AcDbDimStyleTableRecord;
    if (table == L"BLOCK_RECORD") return new AcDbBlockTableRecord;
    return nullptr;
  }

  void MakeTables() {
    // Line types first: layers name theirs when their fields are read.
    for (const TableBlock &t : file_.tables) {
      std::wstring name = ChunkText(t.head, 2);
      AcDbObjectId *slot = TableSlot(name);
      if (!slot || slot->isValid()) continue;  // unknown or repeated table
      AcDbSymbolTable *table = NewTable(name);
      *slot = Register(table, &t.head, AcDbObjectId());
      for (const Chunk &c : t.records) {
        std::wstring recordName = ChunkText(c, 2);
        if (recordName.empty()) continue;
        AcDbObjectId existing;
        if (table->getAt(recordName.c_str(), existing) == Acad::eOk) continue;  // a repeated name
        AcDbSymbolTableRecord *rec = NewRecord(name);
        ObjectAccess::SetRecordName(rec, recordName);
        AcDbObjectId id = Register(rec, &c, *slot);
        ObjectAccess::Records(table).push_back(id);
        pending_.push_back(Pending{rec, &c, Pending::kRecord});
      }
    }
    // The tables a file of an old kind may lack.
    for (const wchar_t *name : {L"VPORT", L"LTYPE", L"LAYER", L"STYLE", L"VIEW", L"UCS", L"APPID", L"DIMSTYLE",
                                L"BLOCK_RECORD"}) {
      AcDbObjectId *slot = TableSlot(name);
      if (!slot->isValid()) *slot = Register(NewTable(name), nullptr, AcDbObjectId());
    }
  }

  AcDbBlockTableRecord *BlockNamed(const std::wstring &name) {
    return ObjectAccess::PeekAs<AcDbBlockTableRecord>(FindRecord(ds_.blockTable, name));
  }

  AcDbBlockTableRecord *EnsureBlock(const std::wstring &name) {
    if (AcDbBlockTableRecord *b = BlockNamed(name)) return b;
    auto *rec = new AcDbBlockTableRecord;
    ObjectAccess::SetRecordName(rec, name);
    AcDbObjectId id = Register(rec, nullptr, ds_.blockTable);
    ObjectAccess::Records(ObjectAccess::PeekAs<AcDbSymbolTable>(ds_.blockTable)).push_back(id);
    return rec;
  }

  void EnsureLayoutBlocks() {
    ds_.modelSpace = EnsureBlock(L"*Model_Space")->objectId();
    ds_.paperSpace = EnsureBlock(L"*Paper_Space")->objectId();
  }

  AcDbEntity *NewEntity(const std::wstring &name) {
    AcRxClass *cls = FindRxClassByDxfName(name.c_str());
    if (cls && cls->isDerivedFrom(AcDbEntity::desc()) && !cls->isDerivedFrom(AcDbBlockBegin::desc()) &&
        !cls->isDerivedFrom(AcDbBlockEnd::desc())) {
      AcRxObject *made = cls->create();
      if (auto *ent = AcDbEntity::cast(made)) return ent;
      delete made;
    }
    return new CarriedEntity(name);
  }

  void AddEntity(AcDbBlockTableRecord *block, const Chunk &c) {
    if (IsLaterReleaseType(c.name) || c.name.empty()) return;
    AcDbEntity *ent = NewEntity(c.name);
    AcDbObjectId id = Register(ent, &c, block->objectId());
    ObjectAccess::Entities(block).push_back(id);
    pending_.push_back(Pending{ent, &c, Pending::kEntity, block});
  }

  void MakeBlocks() {
    for (const BlockBlock &b : file_.blocks) {
      std::wstring name = ChunkText(b.begin, 2);
      if (name.empty()) name = ChunkText(b.begin, 3);
      if (name.empty()) continue;
      // Old files spell the layout blocks in capitals, some with '$'.
      if (SameName(name, L"$MODEL_SPACE")) name = L"*Model_Space";
      if (SameName(name, L"$PAPER_SPACE")) name = L"*Paper_Space";
      AcDbBlockTableRecord *block = EnsureBlock(name);
      if (ObjectAccess::BlockBegin(block).isValid()) continue;  // a block defined twice keeps the first
      auto *begin = new AcDbBlockBegin;
      auto *end = new AcDbBlockEnd;
      AcDbObjectId beginId = Register(begin, &b.begin, block->objectId());
      AcDbObjectId endId = Register(end, &b.end, block->objectId());
      ObjectAccess::SetBlockMarkers(block, beginId, endId);
      pending_.push_back(Pending{begin, &b.begin, Pending::kBlockBegin, block});
      pending_.push_back(Pending{end, &b.end, Pending::kBlockEnd, block});
      for (const Chunk &c : b.entities) AddEntity(block, c);
    }
  }

  void MakeEntities() {
    auto *ms = ObjectAccess::PeekAs<AcDbBlockTableRecord>(ds_.modelSpace);
    auto *ps = ObjectAccess::PeekAs<AcDbBlockTableRecord>(ds_.paperSpace);
    for (const Chunk &c : file_.entities) {
      AcDbBlockTableRecord *target = ChunkInt(c, 67, 0) ? ps : ms;
      auto owner = fileIds_.find(ChunkOwnerHandle(c));
      if (owner != fileIds_.end()) {
        if (auto *block = ObjectAccess::PeekAs<AcDbBlockTableRecord>(owner->second)) target = block;
      }
      AddEntity(target, c);
    }
  }

  void MakeObjects() {
    for (const Chunk &c : file_.objects) {
      if (c.name.empty() || IsLaterReleaseType(c.name)) continue;
      AcDbObject *obj = nullptr;
      AcRxClass *cls = FindRxClassByDxfName(c.name.c_str());
      if (cls && !cls->isDerivedFrom(AcDbEntity::desc()) && !cls->isDerivedFrom(AcDbSymbolTable::desc()) &&
          !cls->isDerivedFrom(AcDbSymbolTableRecord::desc())) {
        AcRxObject *made = cls->create();
        obj = AcDbObject::cast(made);
        if (!obj) delete made;
      }
      if (!obj) obj = new CarriedObject(c.name);
      AcDbObjectId id = Register(obj, &c, AcDbObjectId());
      if (!ds_.namedObjects.isValid() && AcDbDictionary::cast(obj)) ds_.namedObjects = id;
      pending_.push_back(Pending{obj, &c, Pending::kObject});
    }
  }

  AcDbObjectId Resolve(std::uint64_t handle) const {
    auto it = fileIds_.find(handle);
    return it == fileIds_.end() ? AcDbObjectId() : it->second;
  }

  // The fields of one chunk, with handles turned into ids; the head
  // (handle, owner, reactor and extension dictionary groups) and the
  // extended data are taken apart here.
  void Fill(const Pending &p) {
    ObjectState &st = ObjectAccess::State(p.obj);
    std::vector<DxfTag> body;
    std::size_t i = 0;
    const std::vector<FileTag> &tags = p.chunk->tags;
    bool ownerSeen = false;
    bool inBody = false;
    for (; i < tags.size(); ++i) {
      const FileTag &t = tags[i];
      int code = t.tag.code;
      if (code == 1001) break;
      if (!inBody && (code == 5 || code == 105)) continue;
      if (code == 102 && !t.tag.text.empty() && t.tag.text[0] == L'{') {
        bool xdict = t.tag.text == L"{ACAD_XDICTIONARY";
        for (++i; i < tags.size() && !(tags[i].tag.code == 102); ++i) {
          if (xdict && tags[i].tag.code == 360) st.extensionDictionary = Resolve(tags[i].handle);
        }
        continue;
      }
      if (code == 100) inBody = true;
      if (!inBody && code == 330 && !ownerSeen) {
        ownerSeen = true;
        AcDbObjectId owner = Resolve(t.handle);
        if (p.kind == Pending::kObject) st.owner = owner;
        if (p.kind == Pending::kEntity && AcDbEntity::cast(ObjectAccess::Peek(owner))) st.owner = owner;
        continue;
      }
      DxfTag tag = t.tag;
      if (IsDxfPointerCode(code)) tag.id = Resolve(t.handle);
      body.push_back(std::move(tag));
    }
    // Extended data: 1001 groups to the end.
    std::vector<DxfTag> xdata;
    for (; i < tags.size(); ++i) {
      DxfTag tag = tags[i].tag;
      if (IsDxfPointerCode(tag.code)) tag.id = Resolve(tags[i].handle);
      xdata.push_back(std::move(tag));
    }
    for (std::size_t k = 0; k < xdata.size();) {
      std::size_t end = k + 1;
      while (end < xdata.size() && xdata[end].code != 1001) ++end;
      if (xdata[k].code == 1001 && !xdata[k].text.empty()) {
        resbuf *items = TagsToRb(xdata, k + 1, end);
        bool merged = false;
        for (XDataGroup &g : st.xdata) {
          if (SameName(g.app, xdata[k].text)) {
            acutRelRb(g.items);
            g.items = items;
            merged = true;
          }
        }
        if (!merged) st.xdata.push_back(XDataGroup{xdata[k].text, items});
      }
      k = end;
    }
    if (p.kind == Pending::kBlockBegin) {
      FillBlockBegin(p, body);
      return;
    }
    if (p.kind == Pending::kBlockEnd) {
      AcDbDxfFiler filer(std::move(body));
      p.obj->dxfInFields(&filer);
      return;
    }
    AcDbDxfFiler filer(std::move(body));
    p.obj->dxfInFields(&filer);
  }

  void FillBlockBegin(const Pending &p, std::vector<DxfTag> &body) {
    AcDbBlockTableRecord *block = p.block;
    // The marker's own entity fields (its layer), then the block's.
    AcDbDxfFiler filer(body);
    p.obj->dxfInFields(&filer);
    ObjectState &bs = ObjectAccess::State(block);
    bs.writing = true;
    for (std::size_t i = 0; i < body.size(); ++i) {
      const DxfTag &t = body[i];
      if (t.code == 70) {
        ObjectAccess::BlockFlags(block) = static_cast<int>(t.integer);
      } else if (t.code == 10) {
        AcGePoint3d origin(t.real, 0.0, 0.0);
        if (i + 1 < body.size() && body[i + 1].code == 20) origin.y = body[++i].real;
        if (i + 1 < body.size() && body[i + 1].code == 30) origin.z = body[++i].real;
        block->setOrigin(origin);
      } else if (t.code == 4) {
        block->setComments(t.text.c_str());
      }
    }
    bs.writing = false;
  }

  void FillAll() {
    // Records first (entities look layers and line types up by name), line
    // types before layers.
    auto order = [](const Pending &p) {
      if (p.kind != Pending::kRecord) return 2;
      return AcDbLinetypeTableRecord::cast(p.obj) ? 0 : 1;
    };
    for (int pass = 0; pass < 3; ++pass) {
      for (const Pending &p : pending_) {
        if (order(p) == pass) Fill(p);
      }
    }
  }

  AcDbObjectId HeaderRecord(const wchar_t *var, int code, AcDbObjectId table) {
    auto it = file_.header.find(var);
    if (it == file_.header.end()) return AcDbObjectId();
    for (const DxfTag &t : it->second) {
      if (t.code == code) return FindRecord(table, t.text);
    }
    return AcDbObjectId();
  }

  void ReadHeaderVariables() {
    ds_.clayer = HeaderRecord(L"$CLAYER", 8, ds_.layerTable);
    ds_.textstyle = HeaderRecord(L"$TEXTSTYLE", 7, ds_.textStyleTable);
    ds_.dimstyle = HeaderRecord(L"$DIMSTYLE", 2, ds_.dimStyleTable);
    ds_.celtype = HeaderRecord(L"$CELTYPE", 6, ds_.linetypeTable);
    auto tile = file_.header.find(L"$TILEMODE");
    if (tile != file_.header.end() && !tile->second.empty()) ds_.tileMode = tile->second[0].integer != 0;
    auto units = file_.header.find(L"$INSUNITS");
    if (units != file_.header.end() && !units->second.empty() && units->second[0].integer >= 0 &&
        units->second[0].integer <= 20) {
      ds_.insunits = static_cast<int>(units->second[0].integer);
    }
  }

  // Every application named by extended data gets its record, as the host
  // demands of a drawing.
  void RegisterXDataApps() {
    std::set<std::wstring> seen;
    for (AcDbObjectId id : ds_.objects) {
      AcDbObject *obj = ObjectAccess::Peek(id);
      if (!obj) continue;
      for (const XDataGroup &g : ObjectAccess::State(obj).xdata) {
        std::wstring key = UpperName(g.app);
        if (seen.insert(key).second && FindRecord(ds_.regAppTable, g.app).isNull()) {
          auto *app = new AcDbRegAppTableRecord;
          ObjectAccess::SetRecordName(app, g.app);
          AcDbObjectId appId = Register(app, nullptr, ds_.regAppTable);
          ObjectAccess::Records(ObjectAccess::PeekAs<AcDbSymbolTable>(ds_.regAppTable)).push_back(appId);
        }
      }
    }
  }

  AcDbDatabase *db_;
  DatabaseState &ds_;
  ParsedFile &file_;
  std::unordered_map<std::uint64_t, AcDbObjectId> fileIds_;
  std::vector<Pending> pending_;
};

}  // namespace

}  // namespace tolv

Acad::ErrorStatus AcDbDatabase::dxfInFromText(const std::string &text) {
  if (!state_->objects.empty()) return Acad::eAlreadyInDb;
  tolv::ParsedFile file;
  if (!tolv::Parser(text).Run(file)) return Acad::eDxfReadAborted;
  tolv::Builder(this, file).Run();
  return Acad::eOk;
}

namespace {

bool ReadDrawingBytes(const std::wstring &path, std::string &bytes) {
  std::string posix = tolv::MapPath(path);
  std::error_code ec;
  if (!std::filesystem::is_regular_file(posix, ec)) return false;
  std::uintmax_t size = std::filesystem::file_size(posix, ec);
  if (ec || size > tolv::kMaxDxfBytes) return false;
  return tolv::ReadWholeFile(posix, bytes);
}

// A text drawing starts with a group code line; a binary drawing starts
// with its version ("AC10..") or the binary DXF sentinel.
bool LooksLikeDxfText(const std::string &bytes) {
  if (bytes.rfind("AC10", 0) == 0 || bytes.rfind("AC1.", 0) == 0) return false;
  if (bytes.rfind("AutoCAD Binary DXF", 0) == 0) return false;
  return bytes.find('\0') == std::string::npos;
}

}  // namespace

Acad::ErrorStatus AcDbDatabase::dxfIn(const ACHAR *dxfFilename, const ACHAR *) {
  if (!dxfFilename || !*dxfFilename) return Acad::eInvalidInput;
  if (!state_->objects.empty()) return Acad::eAlreadyInDb;
  std::string bytes;
  if (!ReadDrawingBytes(dxfFilename, bytes)) return Acad::eFileNotFound;
  Acad::ErrorStatus es = dxfInFromText(bytes);
  if (es == Acad::eOk) state_->fileName = dxfFilename;
  return es;
}

Acad::ErrorStatus AcDbDatabase::readDwgFile(const ACHAR *fileName, int, bool, const wchar_t *) {
  if (!fileName || !*fileName) return Acad::eInvalidInput;
  if (!state_->objects.empty()) return Acad::eAlreadyInDb;
  std::wstring path(fileName);
  std::vector<std::wstring> candidates{path};
  if (path.size() > 4 && tolv::SameName(path.substr(path.size() - 4), L".dwg")) {
    candidates.push_back(path.substr(0, path.size() - 4) + L".dxf");
  }
  Acad::ErrorStatus result = Acad::eFileNotFound;
  for (const std::wstring &candidate : candidates) {
    std::string bytes;
    if (!ReadDrawingBytes(candidate, bytes)) continue;
    if (!LooksLikeDxfText(bytes)) {
      result = Acad::eDxfReadAborted;  // a binary drawing this host cannot read
      continue;
    }
    result = dxfInFromText(bytes);
    if (result == Acad::eOk) {
      state_->fileName = candidate;
      return result;
    }
  }
  return result;
}
