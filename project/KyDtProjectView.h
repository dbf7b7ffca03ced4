// The paper side of the project database: a view frames the model at a
// print scale and a direction; a drawing is a sheet that collects views.
//
//   (view), class "View"                (drawing), class "Drawing"
//     VIEW_MODEL                          FILE          reference
//     FILE, DRAWING     references        DRAWING_FRAME_ENT
//     PRINT_SCALE       100 when absent   SUB_VIEWS     references, in order
//     VIEW_TYPE, VIEW_FRAME_ENT
//     VIEW_DIRECTION\VIEW_VECTOR, VIEW_DIRECTION\UP_VECTOR  class "Vector"
//     BASE              class "Point"
#pragma once

#include <cstdint>

#include "containers/KyDList.h"
#include "platform/acad/AcGePoint3d.h"
#include "project/KyDtProjectDictProxy.h"

class KyDtDictReferenceItem;

// "VIEW_MODEL" of a view; kept for other modules of the add-on.
class KyDtProjectViewModel : public KyDtProjectDictProxy {};

class KyDtProjectView : public KyDtProjectDictProxy {
 public:
  // Also binds the view model, adding "VIEW_MODEL" when missing.
  bool BindDict(KyDtDictionary *dict) override;

  // The references "FILE" and "DRAWING", made when missing; null when
  // another kind of item holds the key.
  KyDtDictReferenceItem *File();
  KyDtDictReferenceItem *Drawing();

  // 100 when absent.
  double GetPrintScale() const;
  void SetPrintScale(double scale);
  CString GetViewType() const;
  void SetViewType(CString type);
  CString GetViewFrameHandle() const;
  void SetViewFrameHandle(CString handle);
  // The origin unless "BASE" is there.
  AcGePoint3d GetBasePoint() const;
  void SetBasePoint(AcGePoint3d point);

  // Reads "VIEW_VECTOR" into `view` and "UP_VECTOR" into `up`; a vector
  // that isn't stored leaves its argument as it came.
  void GetViewDirection(AcGeVector3d &view, AcGeVector3d &up);
  // Writes `view`, and then `up`, both under "VIEW_VECTOR": the stored view
  // vector is the up vector, and "UP_VECTOR" is never written. Other
  // modules of the add-on read the pair this way, so it stays.
  void SetViewDirection(AcGeVector3d view, AcGeVector3d up);

  KyDtProjectViewModel &ViewModel() { return m_viewModel; }

 private:
  KyDtProjectViewModel m_viewModel;
};

class KyDtProjectDrawing : public KyDtProjectDictProxy {
 public:
  // The reference "FILE", made when missing.
  KyDtDictReferenceItem *File();
  CString GetDrawingFrameHandle() const;
  void SetDrawingFrameHandle(CString handle);

  // A new reference at the end of "SUB_VIEWS", owned by it; null when
  // "SUB_VIEWS" can't be made.
  KyDtDictReferenceItem *AddViewDef();
  // The reference at `index` of "SUB_VIEWS", which must be a valid index;
  // null without "SUB_VIEWS" or when another kind of item stands there.
  KyDtDictReferenceItem *GetViewRef(std::int32_t index);
  void DelSubViewDef(std::int32_t index);
  void ClearSubViewDef();
  // Appends the references of "SUB_VIEWS" in order; the list doesn't own
  // them.
  void GetAllSubViewRef(KyDList<KyDtDictReferenceItem *> &list);
  // The number of items of "SUB_VIEWS", which must exist: ask only a
  // drawing that has had AddViewDef.
  std::int32_t GetSubViewRefNum();
};
