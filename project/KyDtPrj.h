// The project: the item tree with its project file, and the project
// database with its proxies.
#pragma once

#include "project/KyDtProject.h"
#include "project/KyDtProjectDb.h"
#include "project/KyDtProjectDict.h"
#include "project/KyDtProjectDirectoryItem.h"
#include "project/KyDtProjectFloor.h"
#include "project/KyDtProjectGroups.h"
#include "project/KyDtProjectItem.h"
#include "project/KyDtProjectModels.h"
#include "project/KyDtProjectView.h"

// The project file in use.
extern KyDtProject g_curProject;
// The project database in use.
extern KyDtProjectDb g_curProjectDb;
