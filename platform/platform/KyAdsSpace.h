// Which space of a drawing the user works in.
#pragma once

class AcDbDatabase;

// True when paper space is current (the drawing's tile mode is off). A null
// database means the host's working drawing; false when there is none.
bool IsCurrentPaperSpace(AcDbDatabase *db = nullptr);
