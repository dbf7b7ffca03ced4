#include "platform/platform/KyAdsEntSet.h"

#include <cmath>
#include <cwctype>
#include <string>

#include "platform/acad/AcDbBlockTableRecord.h"
#include "platform/acad/AcDbDxfFiler.h"
#include "platform/acad/AcutWcMatch.h"
#include "platform/acad/CarriedObjects.h"
#include "platform/platform/KyAdsRBList.h"

namespace {

std::wstring Upper(const wchar_t *text) {
  std::wstring out = text ? text : L"";
  for (wchar_t &c : out) c = static_cast<wchar_t>(std::towupper(static_cast<wint_t>(c)));
  return out;
}

// Names of the drawing compare without regard to case, as the host's
// filters do: both sides go to upper case before the wildcard match.
bool NameMatches(const wchar_t *name, const wchar_t *pattern) {
  if (!pattern) return false;
  const std::wstring text = Upper(name);
  const std::wstring pat = Upper(pattern);
  return acutWcMatch(text.c_str(), pat.c_str()) == RTNORM;
}

// Takes a text the host allocated for the caller, and frees it.
std::wstring TakeText(ACHAR *text) {
  std::wstring out = text ? text : L"";
  acutDelString(text);
  return out;
}

std::int64_t IntegerOf(const resbuf *rb) {
  switch (tolv::RbKindOfType(rb->restype)) {
    case tolv::RbValueKind::kShort:
      return rb->resval.rint;
    case tolv::RbValueKind::kLong:
      return rb->resval.rlong;
    case tolv::RbValueKind::kInt64:
      return rb->resval.mnInt64;
    default:
      return 0;
  }
}

bool RealEqual(double a, double b) { return std::fabs(a - b) <= 1e-10; }

// The entity's own value of a group code, as the drawing file would hold it.
bool MatchesOwnValue(const std::vector<tolv::DxfTag> &tags, const resbuf *rb) {
  const int code = rb->restype;
  for (std::size_t i = 0; i < tags.size(); ++i) {
    const tolv::DxfTag &tag = tags[i];
    if (tag.code != code) continue;
    switch (tolv::RbKindOfType(code)) {
      case tolv::RbValueKind::kText:
        return tolv::DxfKindOfCode(code) == tolv::DxfKind::kText && NameMatches(tag.text.c_str(), rb->resval.rstring);
      case tolv::RbValueKind::kReal:
        return RealEqual(tag.real, rb->resval.rreal);
      case tolv::RbValueKind::kShort:
      case tolv::RbValueKind::kLong:
      case tolv::RbValueKind::kInt64:
        return tag.integer == IntegerOf(rb);
      case tolv::RbValueKind::kPoint: {
        // x under the code, y and z under code + 10 and code + 20; a
        // missing z counts as 0.
        double xyz[3] = {tag.real, 0.0, 0.0};
        for (std::size_t j = i + 1; j < tags.size() && j <= i + 2; ++j) {
          if (tags[j].code == code + 10) xyz[1] = tags[j].real;
          if (tags[j].code == code + 20) xyz[2] = tags[j].real;
        }
        for (int k = 0; k < 3; ++k) {
          if (!RealEqual(xyz[k], rb->resval.rpoint[k])) return false;
        }
        return true;
      }
      default:
        return false;
    }
  }
  return false;
}

}  // namespace

bool KyAdsEntityMatches(const AcDbEntity *entity, const resbuf *filter) {
  if (!entity) return false;
  std::vector<tolv::DxfTag> ownTags;
  bool haveTags = false;
  for (const resbuf *rb = filter; rb; rb = rb->rbnext) {
    bool ok = false;
    switch (rb->restype) {
      case 0:
      case RTDXF0:
        ok = NameMatches(tolv::DxfNameOf(entity).c_str(), rb->resval.rstring);
        break;
      case 8:
        ok = NameMatches(TakeText(entity->layer()).c_str(), rb->resval.rstring);
        break;
      case 6:
        ok = NameMatches(TakeText(entity->linetype()).c_str(), rb->resval.rstring);
        break;
      case 62:
        ok = entity->colorIndex() == IntegerOf(rb);
        break;
      default:
        if (!haveTags) {
          AcDbDxfFiler filer;
          entity->dxfOutFields(&filer);
          ownTags = std::move(filer.tags());
          haveTags = true;
        }
        ok = MatchesOwnValue(ownTags, rb);
        break;
    }
    if (!ok) return false;
  }
  return true;
}

KyAdsEntSet::KyAdsEntSet(int mode) : mode_(mode) {}

KyAdsEntSet::~KyAdsEntSet() = default;

bool KyAdsEntSet::Add(AcDbObjectId id) {
  if (id.isNull() || !index_.insert(id).second) return false;
  members_.emplace_back(id);
  return true;
}

std::int32_t KyAdsEntSet::AddBlock(AcDbObjectId blockId) {
  AcDbBlockTableRecord *block = nullptr;
  if (acdbOpenObject(block, blockId, AcDb::kForRead) != Acad::eOk) return 0;
  const std::vector<AcDbObjectId> ids = block->entityIds();
  block->close();
  std::int32_t added = 0;
  members_.reserve(members_.size() + ids.size());
  for (AcDbObjectId id : ids) {
    if (Add(id)) ++added;
  }
  return added;
}

KyAdsEntSet &KyAdsEntSet::operator+=(const KyAdsEntSet &other) {
  if (this == &other) return *this;
  members_.reserve(members_.size() + other.members_.size());
  for (const KyAdsEnt &ent : other.members_) Add(ent.GetObjectId());
  return *this;
}

KyAdsEntSet &KyAdsEntSet::operator+=(AcDbObjectId id) {
  Add(id);
  return *this;
}

bool KyAdsEntSet::Remove(AcDbObjectId id) {
  if (index_.erase(id) == 0) return false;
  for (auto it = members_.begin(); it != members_.end(); ++it) {
    if (it->GetObjectId() == id) {
      members_.erase(it);
      break;
    }
  }
  return true;
}

void KyAdsEntSet::RemoveAll() {
  members_.clear();
  index_.clear();
}

std::int32_t KyAdsEntSet::Filter(const resbuf *filter) {
  if (!filter) return GetLength();
  std::vector<KyAdsEnt> kept;
  kept.reserve(members_.size());
  for (const KyAdsEnt &ent : members_) {
    AcDbEntity *entity = nullptr;
    if (ent.Open(entity) != Acad::eOk) {
      index_.erase(ent.GetObjectId());
      continue;
    }
    const bool ok = KyAdsEntityMatches(entity, filter);
    entity->close();
    if (ok) {
      kept.push_back(ent);
    } else {
      index_.erase(ent.GetObjectId());
    }
  }
  members_ = std::move(kept);
  return GetLength();
}

std::int32_t KyAdsEntSet::Filter(const KyAdsRBList &filter) { return Filter(filter.GetHead()); }

bool KyAdsEntSet::IsMatch(const resbuf *filter) const {
  if (members_.empty()) return false;
  for (const KyAdsEnt &ent : members_) {
    AcDbEntity *entity = nullptr;
    if (ent.Open(entity) != Acad::eOk) return false;
    const bool ok = KyAdsEntityMatches(entity, filter);
    entity->close();
    if (!ok) return false;
  }
  return true;
}

bool KyAdsEntSet::IsMatch(KyAdsRBList &filter) const { return IsMatch(filter.GetHead()); }
