// The host's services to database code: above all the working database,
// the drawing that commands act on.
//
// The host program has one document open at a time and that is the
// working database (see HostDocument.h). A test or tool may set another
// database as working; setting null goes back to the document. When no
// document was ever opened, the host starts an empty new one on first
// request, as the host always shows a drawing.
#pragma once

class AcDbDatabase;

class AcDbHostApplicationServices {
 public:
  AcDbDatabase *workingDatabase() const;
  // The database is not owned; it must outlive its time as working database.
  void setWorkingDatabase(AcDbDatabase *db);
};

AcDbHostApplicationServices *acdbHostApplicationServices();
