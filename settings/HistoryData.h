// The history data: values the add-on remembers from one run to the next,
// kept in "HistoryData.xml" and held in g_dictHistoryData.
#pragma once

// Start step: reads the file, makes sure COMMON\OUTPUT\EXPORT exists and
// takes the remembered export version from it.
void LoadHistoryData();

// Stop step: stores the export version and writes the whole dictionary back
// to the file that is found; no file is created.
void SaveHistoryData();
