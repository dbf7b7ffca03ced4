#include "platform/dbobject/KyDbCornerWin.h"

#include <cmath>

#include "platform/acad/AcDbDxfFiler.h"

ACRX_DXF_DEFINE_MEMBERS(KyDbCornerWin, KyDbOpeningBase, 0, 0, 0, TOLV_CORNER_WIN, TolvDbObject)

namespace {

const bool kRegistered = KyDbCornerWin::desc() != nullptr;

// The chain moved sideways by `d` (positive: to the left of its direction),
// corners mitred. Only straight chains come here.
KyGePolyline2d Offset(const std::vector<AcGePoint2d> &pts, double d) {
  KyGePolyline2d out;
  const std::size_t n = pts.size();
  auto normal = [&](std::size_t i) {
    AcGeVector2d dir = pts[i + 1] - pts[i];
    const double len = dir.length();
    return len > 0.0 ? AcGeVector2d(-dir.y / len * d, dir.x / len * d) : AcGeVector2d();
  };
  for (std::size_t i = 0; i < n; ++i) {
    if (i == 0) {
      out.AddVertex(pts[0] + normal(0));
    } else if (i == n - 1) {
      out.AddVertex(pts[i] + normal(i - 1));
    } else {
      // Where the two moved segments meet.
      const AcGeVector2d a = normal(i - 1);
      const AcGeVector2d b = normal(i);
      const AcGeVector2d sum = a + b;
      const double dot = (a.x * sum.x + a.y * sum.y);
      const double scale = std::fabs(dot) > 1e-12 ? (d * d) / dot : 1.0;
      out.AddVertex(pts[i] + sum * scale);
    }
  }
  return out;
}

void WriteLine(AcDbDxfFiler *filer, int countCode, const KyGePolyline2d &line) {
  filer->writeInt32(countCode, line.GetVertexNum());
  for (int i = 0; i < line.GetVertexNum(); ++i) {
    filer->writePoint2d(10, line.GetVertex(i).x, line.GetVertex(i).y);
    filer->writeDouble(42, line.GetBulge(i));
  }
}

}  // namespace

KyDbCornerWin::KyDbCornerWin() = default;
KyDbCornerWin::~KyDbCornerWin() = default;

bool KyDbCornerWin::SetFromLegs(const std::vector<double> &legs, double wallThickness) {
  if (legs.empty() || !(wallThickness >= 0.0)) return false;
  std::vector<AcGePoint2d> pts{AcGePoint2d(0.0, 0.0)};
  // Each leg turns left from the last: +x, +y, -x, -y, ...
  const double dx[4] = {1, 0, -1, 0};
  const double dy[4] = {0, 1, 0, -1};
  for (std::size_t i = 0; i < legs.size(); ++i) {
    if (!(legs[i] > 0.0) || !std::isfinite(legs[i])) return false;
    const AcGePoint2d &last = pts.back();
    pts.emplace_back(last.x + dx[i % 4] * legs[i], last.y + dy[i % 4] * legs[i]);
  }
  return SetLines(KyGePolyline2d(pts), Offset(pts, wallThickness / 2.0), Offset(pts, -wallThickness / 2.0)) ==
         Acad::eOk;
}

Acad::ErrorStatus KyDbCornerWin::SetLines(const KyGePolyline2d &base, const KyGePolyline2d &side1,
                                          const KyGePolyline2d &side2) {
  if (Acad::ErrorStatus es = checkWriteEnabled(); es != Acad::eOk) return es;
  base_.CopyFrom(base);
  side1_.CopyFrom(side1);
  side2_.CopyFrom(side2);
  return Acad::eOk;
}

double KyDbCornerWin::GetWinLength() const { return base_.Length(); }

KyGePolyline2d *KyDbCornerWin::GetBaseLine() const {
  auto *line = new KyGePolyline2d;
  line->CopyFrom(base_);
  return line;
}

void KyDbCornerWin::GetSideLines(KyGePolyline2d *&side1, KyGePolyline2d *&side2) const {
  side1 = new KyGePolyline2d;
  side1->CopyFrom(side1_);
  side2 = new KyGePolyline2d;
  side2->CopyFrom(side2_);
}

CString KyDbCornerWin::GetLayerKey() const {
  CString key = KyDbEntity::GetLayerKey();
  return key.IsEmpty() ? CString(L"WINDOW") : key;
}

Acad::ErrorStatus KyDbCornerWin::dxfOutFields(AcDbDxfFiler *filer) const {
  KyDbOpeningBase::dxfOutFields(filer);
  filer->writeString(100, L"KyDbCornerWin");
  WriteLine(filer, 90, base_);
  WriteLine(filer, 91, side1_);
  WriteLine(filer, 92, side2_);
  return Acad::eOk;
}

Acad::ErrorStatus KyDbCornerWin::dxfInFields(AcDbDxfFiler *filer) {
  if (Acad::ErrorStatus es = KyDbOpeningBase::dxfInFields(filer); es != Acad::eOk) return es;
  if (!filer->atSubclassData(L"KyDbCornerWin")) return Acad::eOk;
  KyGePolyline2d lines[3];
  KyGePolyline2d *current = nullptr;
  tolv::DxfTag tag;
  // The counts only say which line follows: vertices are taken as they
  // come, so a wrong count can't make anything large.
  while (filer->readTag(tag)) {
    if (tag.code >= 90 && tag.code <= 92) {
      current = &lines[tag.code - 90];
    } else if (tag.code == 10 && current) {
      const AcGePoint3d p = filer->readPointAfter(tag);
      current->AddVertex(AcGePoint2d(p.x, p.y));
    } else if (tag.code == 42 && current && current->GetVertexNum() > 0) {
      current->SetBulge(current->GetVertexNum() - 1, tag.real);
    }
  }
  base_.CopyFrom(lines[0]);
  side1_.CopyFrom(lines[1]);
  side2_.CopyFrom(lines[2]);
  return Acad::eOk;
}
