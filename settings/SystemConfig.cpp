#include "settings/SystemConfig.h"

#include "dictionary/KyDtDictionary.h"
#include "language/LangTranslate.h"
#include "module/ModuleGlobals.h"
#include "platform/acad/AcutPrintf.h"
#include "platform/dbobject/DbObjectSettings.h"
#include "platform/geometry/GeTolerance.h"
#include "platform/mfc/AfxMessage.h"
#include "platform/morv/MorvSettings.h"
#include "platform/utility/SupportFiles.h"

namespace {

const wchar_t kConfigFileName[] = L"config.xml";

// The chord angle of arc division for each choice of "DIVIDE_CIRCLE":
// pi / N for N = 4, 6, 8, 10, 12, 14, 16, 18, 24, 32, 48. These ten-place
// decimals are the values the drawing code has always used, so they are
// stored as written rather than computed.
const double kCircleDivisions[] = {
    0.7853981634, 0.5235987756, 0.3926990817, 0.3141592654, 0.2617993878, 0.2243994753,
    0.1963495409, 0.1745329252, 0.1308996939, 0.0981747705, 0.065449847,
};
constexpr unsigned int kCircleDivisionCount = sizeof kCircleDivisions / sizeof kCircleDivisions[0];

// A Bool key onto an int flag: 0 or 1, untouched when the key is missing.
void ReadIntFlag(KyDtDictionary *dict, const wchar_t *key, int &target) {
  bool value = false;
  if (dict->GetValue(key, value)) target = value ? 1 : 0;
}

// A Bool key onto an int flag that becomes 0 when the key is missing.
void ReadIntFlagOrZero(KyDtDictionary *dict, const wchar_t *key, int &target) {
  bool value = false;
  dict->GetValue(key, value);
  target = value ? 1 : 0;
}

// An Int key onto a colour number: its low 16 bits, untouched when missing.
void ReadColor(KyDtDictionary *dict, const wchar_t *key, unsigned short &target) {
  int value = 0;
  if (dict->GetValue(key, value)) target = static_cast<unsigned short>(value);
}

// An option index onto a byte: its low 8 bits, untouched when missing.
void ReadIndexByte(KyDtDictionary *dict, const wchar_t *key, unsigned char &target) {
  unsigned int index = 0;
  if (dict->GetValue(key, index)) target = static_cast<unsigned char>(index);
}

// An option index that says yes with its first choice; a missing key counts
// as the first choice.
bool FirstChoiceOrMissing(KyDtDictionary *dict, const wchar_t *key) {
  unsigned int index = 0;
  dict->GetValue(key, index);
  return index == 0;
}

void ReadPrecision(KyDtDictionary *precision) {
  precision->GetValue(L"FLOAT_PRECI", g_fZero);
  precision->GetValue(L"DIST_PRECI", g_distZero);
  precision->GetValue(L"ANGLE_PRECI", g_angleZero);
  precision->GetValue(L"AREA_PRECI", g_areaZero);
  precision->GetValue(L"VOLUME_PRECI", g_volumeZero);
  unsigned int division = 2;
  precision->GetValue(L"DIVIDE_CIRCLE", division);
  if (division < kCircleDivisionCount) g_dCircleMLinePreci = kCircleDivisions[division];
  precision->GetValue(L"LINEAR_PRECI", g_dLinearDistPrec);
  precision->GetValue(L"WALL_PRECI", g_dWallDistZero);
  precision->GetValue(L"PIPE_PRECI", g_dPipeDistZero);
}

void ReadModelSteps(KyDtDictionary *modelNum) {
  ReadIntFlag(modelNum, L"MODELSWITCH", g_bModelSwitch);
  modelNum->GetValue(L"WALLSTEP", g_dWallStep);
  modelNum->GetValue(L"WINSTEP", g_dWinStep);
}

void ReadSaving(KyDtDictionary *save) {
  // Proxy graphics stay on only if they were on and the file doesn't say
  // otherwise.
  bool proxy = g_bSaveProxyGraph == 1;
  save->GetValue(L"PROXY", proxy);
  g_bSaveProxyGraph = proxy ? 1 : 0;

  unsigned int saveType = 0;
  if (save->GetValue(L"ENTITY_SAVE", saveType)) g_nSaveType = static_cast<int>(saveType);

  // The choices are listed newest first.
  unsigned int version = 1;
  save->GetValue(L"MORV_VERSION", version);
  switch (version) {
    case 0: g_nSaveMorvVer = 8; break;
    case 1: g_nSaveMorvVer = 7; break;
    case 2: g_nSaveMorvVer = 6; break;
    default: g_nSaveMorvVer = 3; break;
  }
}

void ReadEntityBehaviour(KyDtDictionary *entity) {
  entity->GetValue(L"RELATE_MODIFY", g_bUserRelateModify);
  entity->GetValue(L"RELATE_MODIFY_MODE", g_nRelateMoveMode);
  ReadColor(entity, L"BASE_COLOR", g_nBaseCurveColor);
  entity->GetValue(L"AUTO_BREAK", g_bAutoBreak);
  entity->GetValue(L"AUTO_MERGE", g_bAutoMerge);
  g_bUseLayerStd = FirstChoiceOrMissing(entity, L"ENTITY_LAYER");
}

void ReadLineTypeScale(KyDtDictionary *autoScale) {
  autoScale->GetValue(L"ENABLE_AUTOLTSCALE", g_bAutoLTScale);
  autoScale->GetValue(L"MODEL_LTSCALE", g_nLtMScale);
  autoScale->GetValue(L"LAYOUT_LTSCALE", g_nLtPScale);
}

void ReadSystem(KyDtDictionary *system) {
  if (KyDtDictionary *precision = system->FindDict(L"PRECISION")) ReadPrecision(precision);
  if (KyDtDictionary *modelNum = system->FindDict(L"MODELNUM")) ReadModelSteps(modelNum);
  if (KyDtDictionary *entity = system->FindDict(L"ENTITY")) {
    if (KyDtDictionary *save = entity->FindDict(L"SAVE")) ReadSaving(save);
    ReadEntityBehaviour(entity);
  }
  if (KyDtDictionary *lineType = system->FindDict(L"LINETYPE")) {
    if (KyDtDictionary *autoScale = lineType->FindDict(L"AUTOLTSCALE")) ReadLineTypeScale(autoScale);
  }
}

void ReadEntityDefaults(KyDtDictionary *entity) {
  if (KyDtDictionary *text = entity->FindDict(L"TEXT_SHEET")) {
    text->GetValue(L"EXPLODE_TYPE", g_nTextExplodeType);
    g_bUseQuickTextSize = FirstChoiceOrMissing(text, L"USE_QUICK_TEXT_SIZE");
    g_bQuickCircleText = FirstChoiceOrMissing(text, L"USE_QUICK_CIRCLE_TEXT");
  }
  if (KyDtDictionary *axisNum = entity->FindDict(L"AXIS_NUM")) {
    ReadColor(axisNum, L"AXIS_HIDENUM_COLOR", g_nHidedAxisLabelColor);
  }
  if (KyDtDictionary *opening = entity->FindDict(L"OPENING")) {
    if (KyDtDictionary *winLine = opening->FindDict(L"WIN_LINE")) {
      winLine->GetValue(L"WIN_LINE_TYPE", g_nWinLineType);
      winLine->GetValue(L"THREE_WIN_LINE_SCALE", g_dThreeWinLineScale);
    }
  }
  if (KyDtDictionary *dimension = entity->FindDict(L"DIMENSION")) {
    dimension->GetValue(L"LINEAR_DIM_TYPE", g_nLinearDimType);
    dimension->GetValue(L"ARC_DIM_TYPE", g_nArcDimType);
    dimension->GetValue(L"ADJUST_MODE", g_nDimAdjust);
  }
  if (KyDtDictionary *cut = entity->FindDict(L"CUT")) {
    g_bSingleLine = FirstChoiceOrMissing(cut, L"DUAL_STYLE");
  }
}

void ReadCommands(KyDtDictionary *command) {
  if (KyDtDictionary *axisColumn = command->FindDict(L"AXIS_COLUMN")) {
    if (KyDtDictionary *wallToAxis = axisColumn->FindDict(L"WALL_TO_AXIS")) {
      wallToAxis->GetValue(L"MIN_WALL_LEN", g_dMinWallLen);
    }
    axisColumn->GetValue(L"AXIS_EXTEND", g_dAxisextend);
  }
  if (KyDtDictionary *space = command->FindDict(L"SPACE")) {
    if (KyDtDictionary *searchRoom = space->FindDict(L"SEARCH_ROOM")) {
      searchRoom->GetValue(L"BREAK_WALL", g_bAutoBreakWall);
    }
  }
  if (KyDtDictionary *sizeDim = command->FindDict(L"SIZE_DIM")) {
    if (KyDtDictionary *doorAndWin = sizeDim->FindDict(L"DIMDOORANDWIN")) {
      doorAndWin->GetValue(L"DIM_XREF", g_bOpeningDimXRef);
    }
  }
}

void ReadProjectManager(KyDtDictionary *manager) {
  manager->GetValue(L"LOADPROJECT", g_bLoadProject);
  if (KyDtDictionary *floorTable = manager->FindDict(L"FLOOR_TABLE")) {
    if (KyDtDictionary *frame = floorTable->FindDict(L"FLOOR_FRAME")) {
      frame->GetValue(L"VISIBLE", g_bFloorDefShow);
    }
  }
  if (KyDtDictionary *floorLine = manager->FindDict(L"FLOOR_LINE")) {
    floorLine->GetValue(L"FLOOR_LINE_LEN", g_dFloorLineLen);
  }
}

void ReadCommonDefaults(KyDtDictionary *common) {
  if (KyDtDictionary *axisNum = common->FindDict(L"AXIS_NUM")) {
    // The file names it a radius; the drawing code has always taken it as
    // the diameter of the label circle.
    axisNum->GetValue(L"AXIS_CIRCLE_RADIUS", g_dAxisLabelDiameter);
  }
  if (KyDtDictionary *text = common->FindDict(L"TEXT")) {
    if (KyDtDictionary *circleText = text->FindDict(L"CIRCLE_TEXT")) {
      unsigned int style = 1;
      circleText->GetValue(L"STYLE", style);
      switch (style) {
        case 0: g_nInitCircleTextOldStyle = 1; break;
        case 1: g_nInitCircleTextOldStyle = 0; break;
        default: g_nInitCircleTextOldStyle = 3; break;
      }
      circleText->GetValue(L"HEIGHT_FACTOR", g_dInitCircleTextHeightFactor);
    }
    text->GetValue(L"TEXT2BASE", g_dInitText2BaseFactor);
  }
  if (KyDtDictionary *elevation = common->FindDict(L"SYMB_ELEV")) {
    elevation->GetValue(L"TRG_SIZE", g_dInitEleTriangleSize);
    elevation->GetValue(L"DOT_SIZE", g_dInitEleDoteSize);
    ReadIndexByte(elevation, L"PRECISION", g_nInitSymbElevPrecision);
  }
  if (KyDtDictionary *coordinate = common->FindDict(L"SYMB_COORD")) {
    ReadIndexByte(coordinate, L"PRECISION", g_nInitSymbCoordPrecision);
  }

  unsigned int displayMode = 0;
  common->GetValue(L"DISPLAY_MODE", displayMode);
  g_nInitDisplayMode = static_cast<KyDbSetting::DisplayMode>(displayMode);
  common->GetValue(L"PRINT_SCALE", g_dInitPlotScale);
  common->GetValue(L"DETAIL_SCALE", g_dInitDetailScale);
  common->GetValue(L"FLOOR_HEIGHT", g_dInitFloorHeight);
  unsigned int drawUnit = 0;
  common->GetValue(L"DRAW_UNIT", drawUnit);
  g_nInitDrawUnit = static_cast<unsigned char>(drawUnit);
  ReadIntFlagOrZero(common, L"DYNAMIC_DIM", g_bInitDynamicDim);
  common->GetValue(L"UCS_AS_LAYOUTANGLE", g_bUcsAsLayoutAngle);

  // Whether a viewport's scale and angle drive new objects: off, both,
  // scale only, angle only.
  unsigned int viewport = 0;
  common->GetValue(L"VIEWPORT_CTRL", viewport);
  switch (viewport) {
    case 0: g_bInitByVPScale = false; g_bInitByVPAngle = false; break;
    case 1: g_bInitByVPScale = true; g_bInitByVPAngle = true; break;
    case 2: g_bInitByVPScale = true; g_bInitByVPAngle = false; break;
    default: g_bInitByVPScale = false; g_bInitByVPAngle = true; break;
  }
}

// What a room label shows, as the bits of g_nInitSpaceDispMode.
constexpr unsigned char kShowArea = 1;
constexpr unsigned char kShowAreaUnit = 2;
constexpr unsigned char kShowCode = 4;          // "NAME_AND_CODE" choice 1
constexpr unsigned char kShowNameAndCode = 8;   // "NAME_AND_CODE" choice 2

void ReadSpaceDefaults(KyDtDictionary *space) {
  g_nInitSpaceDispMode = 0;
  unsigned int nameAndCode = 0;
  space->GetValue(L"NAME_AND_CODE", nameAndCode);
  bool area = true;
  space->GetValue(L"DIM_AREA", area);
  bool unit = false;
  space->GetValue(L"DIM_UNIT", unit);
  if (area) g_nInitSpaceDispMode |= kShowArea;
  if (unit) g_nInitSpaceDispMode |= kShowAreaUnit;
  if (nameAndCode == 1) g_nInitSpaceDispMode |= kShowCode;
  if (nameAndCode == 2) g_nInitSpaceDispMode |= kShowNameAndCode;
  ReadIndexByte(space, L"PRECISION", g_nInitSpaceAreaPrecision);
}

void ReadBuildingPartDefaults(KyDtDictionary *orlan) {
  if (KyDtDictionary *wall = orlan->FindDict(L"WALL")) {
    ReadIntFlagOrZero(wall, L"FILL", g_bInitSolidFill);
    ReadIntFlagOrZero(wall, L"BOLD", g_bInitBoldLine);
    ReadIntFlagOrZero(wall, L"BASE", g_bInitShowBaseCurve);
  }
  if (KyDtDictionary *space = orlan->FindDict(L"SPACE")) ReadSpaceDefaults(space);
  if (KyDtDictionary *stair = orlan->FindDict(L"STAIR")) {
    ReadIntFlagOrZero(stair, L"SINGLE_SECT", g_bInitStairSingleSect);
  }
}

void ReadDefaults(KyDtDictionary *defaults) {
  if (KyDtDictionary *common = defaults->FindDict(L"COMMON")) ReadCommonDefaults(common);
  if (KyDtDictionary *orlan = defaults->FindDict(L"ORLAN")) ReadBuildingPartDefaults(orlan);
}

}  // namespace

void LoadConfig() {
  CString path;
  if (!FindFile(kConfigFileName, path)) {
    acutPrintf(L"%s", _TL(L"\n加载选项配置文件失败！未找到配置文件config.xml。").GetString());
    return;
  }
  // A file that can't be read leaves the dictionary empty, and then every
  // lookup below misses and every setting stays as it was.
  g_dictCfg.ReadFromXML(path);

  // Each group is looked up level by level; a missing group skips only what
  // lies under it. Nothing is added to the dictionary on the way.
  KyDtDictionary *advance = g_dictCfg.FindDict(L"ADVANCE");
  if (!advance) return;
  if (KyDtDictionary *system = advance->FindDict(L"SYSTEM")) ReadSystem(system);
  if (KyDtDictionary *entity = advance->FindDict(L"ENTITY")) ReadEntityDefaults(entity);
  if (KyDtDictionary *command = advance->FindDict(L"COMMAND")) ReadCommands(command);
  if (KyDtDictionary *manager = advance->FindDict(L"PROJECT_MANAGER")) ReadProjectManager(manager);
  if (KyDtDictionary *defaults = advance->FindDict(L"DEFAULT")) ReadDefaults(defaults);
}

void SaveConfig() {
  CString path;
  if (!FindFile(kConfigFileName, path)) {
    AfxMessageBox(_TL(L"\n保存选项配置文件失败！未找到文件config.xml!"));
    return;
  }
  g_dictCfg.SaveToXML(path);
}
