#include "ConfigRows.h"

#include <type_traits>

#include "platform/dbobject/DbObjectSettings.h"
#include "platform/geometry/GeTolerance.h"
#include "platform/morv/MorvSettings.h"

namespace {

std::function<double(double)> Kept() {
  return [](double preset) { return preset; };
}

std::function<double(double)> Fixed(double value) {
  return [value](double) { return value; };
}

// Reads and writes a setting as a double, whatever its type.
#define SETTING(var)                                                                  \
  [] { return static_cast<double>(var); },                                            \
      [](double v) {                                                                  \
        var = static_cast<std::remove_reference_t<decltype(var)>>(static_cast<long long>(v)); \
      }
#define DOUBLE_SETTING(var) \
  [] { return var; }, [](double v) { var = v; }
#define BOOL_SETTING(var) \
  [] { return var ? 1.0 : 0.0; }, [](double v) { var = v != 0; }

ConfigRow Double(const wchar_t *group, const wchar_t *key, const char *text, double expected,
                 std::function<double()> get, std::function<void(double)> set) {
  return {"", group, key, ConfigKind::kDouble, text, 0, 0, expected, Kept(), TargetRange::kDouble,
          std::move(get), std::move(set)};
}

ConfigRow Row(const wchar_t *group, const wchar_t *key, ConfigKind kind, const char *text,
              double expected, std::function<double(double)> absent, TargetRange range,
              std::function<double()> get, std::function<void(double)> set) {
  return {"", group, key, kind, text, 0, 0, expected, std::move(absent), range, std::move(get),
          std::move(set)};
}

ConfigRow Index(const wchar_t *group, const wchar_t *key, int index, int optionCount, double expected,
                std::function<double(double)> absent, TargetRange range,
                std::function<double()> get, std::function<void(double)> set) {
  return {"", group, key, ConfigKind::kIndex, "", index, optionCount, expected, std::move(absent),
          range, std::move(get), std::move(set)};
}

std::string Narrow(const std::wstring &text) {
  std::string out;
  for (wchar_t c : text) out += (c == L'\\') ? '_' : static_cast<char>(c);
  return out;
}

std::vector<ConfigRow> BuildRows() {
  const wchar_t *precision = L"ADVANCE\\SYSTEM\\PRECISION";
  const wchar_t *modelNum = L"ADVANCE\\SYSTEM\\MODELNUM";
  const wchar_t *save = L"ADVANCE\\SYSTEM\\ENTITY\\SAVE";
  const wchar_t *entity = L"ADVANCE\\SYSTEM\\ENTITY";
  const wchar_t *ltScale = L"ADVANCE\\SYSTEM\\LINETYPE\\AUTOLTSCALE";
  const wchar_t *textSheet = L"ADVANCE\\ENTITY\\TEXT_SHEET";
  const wchar_t *axisNum = L"ADVANCE\\ENTITY\\AXIS_NUM";
  const wchar_t *winLine = L"ADVANCE\\ENTITY\\OPENING\\WIN_LINE";
  const wchar_t *dimension = L"ADVANCE\\ENTITY\\DIMENSION";
  const wchar_t *cut = L"ADVANCE\\ENTITY\\CUT";
  const wchar_t *common = L"ADVANCE\\DEFAULT\\COMMON";
  const wchar_t *circleText = L"ADVANCE\\DEFAULT\\COMMON\\TEXT\\CIRCLE_TEXT";
  const wchar_t *space = L"ADVANCE\\DEFAULT\\ORLAN\\SPACE";
  using K = ConfigKind;
  using R = TargetRange;

  std::vector<ConfigRow> rows = {
      Double(precision, L"FLOAT_PRECI", "1e-12", 1e-12, DOUBLE_SETTING(g_fZero)),
      Double(precision, L"DIST_PRECI", "0.002", 0.002, DOUBLE_SETTING(g_distZero)),
      Double(precision, L"ANGLE_PRECI", "2e-09", 2e-09, DOUBLE_SETTING(g_angleZero)),
      Double(precision, L"AREA_PRECI", "0.003", 0.003, DOUBLE_SETTING(g_areaZero)),
      Double(precision, L"VOLUME_PRECI", "0.004", 0.004, DOUBLE_SETTING(g_volumeZero)),
      Index(precision, L"DIVIDE_CIRCLE", 5, 11, 0.2243994753, Fixed(0.3926990817), R::kDouble,
            DOUBLE_SETTING(g_dCircleMLinePreci)),
      Double(precision, L"LINEAR_PRECI", "0.005", 0.005, DOUBLE_SETTING(g_dLinearDistPrec)),
      Double(precision, L"WALL_PRECI", "0.25", 0.25, DOUBLE_SETTING(g_dWallDistZero)),
      Double(precision, L"PIPE_PRECI", "0.75", 0.75, DOUBLE_SETTING(g_dPipeDistZero)),

      Row(modelNum, L"MODELSWITCH", K::kBool, "TRUE", 1, Kept(), R::kInt, SETTING(g_bModelSwitch)),
      Double(modelNum, L"WALLSTEP", "25", 25, DOUBLE_SETTING(g_dWallStep)),
      Double(modelNum, L"WINSTEP", "75", 75, DOUBLE_SETTING(g_dWinStep)),

      Row(save, L"PROXY", K::kBool, "TRUE", 1, [](double preset) { return preset == 1 ? 1.0 : 0.0; },
          R::kInt, SETTING(g_bSaveProxyGraph)),
      Index(save, L"ENTITY_SAVE", 2, 3, 2, Kept(), R::kInt, SETTING(g_nSaveType)),
      Index(save, L"MORV_VERSION", 0, 4, 8, Fixed(7), R::kByte, SETTING(g_nSaveMorvVer)),

      Row(entity, L"RELATE_MODIFY", K::kBool, "FALSE", 0, Kept(), R::kBool, BOOL_SETTING(g_bUserRelateModify)),
      Index(entity, L"RELATE_MODIFY_MODE", 2, 3, 2, Kept(), R::kUnsigned, SETTING(g_nRelateMoveMode)),
      Row(entity, L"BASE_COLOR", K::kInt, "65543", 7, Kept(), R::kShort, SETTING(g_nBaseCurveColor)),
      Row(entity, L"AUTO_BREAK", K::kBool, "FALSE", 0, Kept(), R::kBool, BOOL_SETTING(g_bAutoBreak)),
      Row(entity, L"AUTO_MERGE", K::kBool, "FALSE", 0, Kept(), R::kBool, BOOL_SETTING(g_bAutoMerge)),
      Index(entity, L"ENTITY_LAYER", 1, 2, 0, Fixed(1), R::kBool, BOOL_SETTING(g_bUseLayerStd)),

      Row(ltScale, L"ENABLE_AUTOLTSCALE", K::kBool, "TRUE", 1, Kept(), R::kBool, BOOL_SETTING(g_bAutoLTScale)),
      Double(ltScale, L"MODEL_LTSCALE", "2.5", 2.5, DOUBLE_SETTING(g_nLtMScale)),
      Double(ltScale, L"LAYOUT_LTSCALE", "0.5", 0.5, DOUBLE_SETTING(g_nLtPScale)),

      Index(textSheet, L"EXPLODE_TYPE", 1, 2, 1, Kept(), R::kUnsigned, SETTING(g_nTextExplodeType)),
      Index(textSheet, L"USE_QUICK_TEXT_SIZE", 1, 2, 0, Fixed(1), R::kBool, BOOL_SETTING(g_bUseQuickTextSize)),
      Index(textSheet, L"USE_QUICK_CIRCLE_TEXT", 1, 2, 0, Fixed(1), R::kBool, BOOL_SETTING(g_bQuickCircleText)),

      Row(axisNum, L"AXIS_HIDENUM_COLOR", K::kInt, "65545", 9, Kept(), R::kShort, SETTING(g_nHidedAxisLabelColor)),

      Index(winLine, L"WIN_LINE_TYPE", 2, 3, 2, Kept(), R::kUnsigned, SETTING(g_nWinLineType)),
      Double(winLine, L"THREE_WIN_LINE_SCALE", "0.4", 0.4, DOUBLE_SETTING(g_dThreeWinLineScale)),

      Index(dimension, L"LINEAR_DIM_TYPE", 1, 3, 1, Kept(), R::kUnsigned, SETTING(g_nLinearDimType)),
      Index(dimension, L"ARC_DIM_TYPE", 2, 3, 2, Kept(), R::kUnsigned, SETTING(g_nArcDimType)),
      Index(dimension, L"ADJUST_MODE", 2, 3, 2, Kept(), R::kUnsigned, SETTING(g_nDimAdjust)),

      Index(cut, L"DUAL_STYLE", 1, 2, 0, Fixed(1), R::kBool, BOOL_SETTING(g_bSingleLine)),

      Double(L"ADVANCE\\COMMAND\\AXIS_COLUMN\\WALL_TO_AXIS", L"MIN_WALL_LEN", "450", 450,
             DOUBLE_SETTING(g_dMinWallLen)),
      Double(L"ADVANCE\\COMMAND\\AXIS_COLUMN", L"AXIS_EXTEND", "1500", 1500, DOUBLE_SETTING(g_dAxisextend)),
      Row(L"ADVANCE\\COMMAND\\SPACE\\SEARCH_ROOM", L"BREAK_WALL", K::kBool, "FALSE", 0, Kept(), R::kBool,
          BOOL_SETTING(g_bAutoBreakWall)),
      Row(L"ADVANCE\\COMMAND\\SIZE_DIM\\DIMDOORANDWIN", L"DIM_XREF", K::kBool, "TRUE", 1, Kept(), R::kBool,
          BOOL_SETTING(g_bOpeningDimXRef)),

      Row(L"ADVANCE\\PROJECT_MANAGER", L"LOADPROJECT", K::kBool, "TRUE", 1, Kept(), R::kBool,
          BOOL_SETTING(g_bLoadProject)),
      Row(L"ADVANCE\\PROJECT_MANAGER\\FLOOR_TABLE\\FLOOR_FRAME", L"VISIBLE", K::kBool, "FALSE", 0, Kept(),
          R::kBool, BOOL_SETTING(g_bFloorDefShow)),
      Double(L"ADVANCE\\PROJECT_MANAGER\\FLOOR_LINE", L"FLOOR_LINE_LEN", "2500", 2500,
             DOUBLE_SETTING(g_dFloorLineLen)),

      Double(L"ADVANCE\\DEFAULT\\COMMON\\AXIS_NUM", L"AXIS_CIRCLE_RADIUS", "600", 600,
             DOUBLE_SETTING(g_dAxisLabelDiameter)),
      Index(circleText, L"STYLE", 0, 3, 1, Fixed(0), R::kByte, SETTING(g_nInitCircleTextOldStyle)),
      Double(circleText, L"HEIGHT_FACTOR", "0.7", 0.7, DOUBLE_SETTING(g_dInitCircleTextHeightFactor)),
      Double(L"ADVANCE\\DEFAULT\\COMMON\\TEXT", L"TEXT2BASE", "0.3", 0.3, DOUBLE_SETTING(g_dInitText2BaseFactor)),
      Double(L"ADVANCE\\DEFAULT\\COMMON\\SYMB_ELEV", L"TRG_SIZE", "3.5", 3.5, DOUBLE_SETTING(g_dInitEleTriangleSize)),
      Double(L"ADVANCE\\DEFAULT\\COMMON\\SYMB_ELEV", L"DOT_SIZE", "1.5", 1.5, DOUBLE_SETTING(g_dInitEleDoteSize)),
      // Indexes past 255 show that only the low byte is kept.
      Index(L"ADVANCE\\DEFAULT\\COMMON\\SYMB_ELEV", L"PRECISION", 258, 260, 2, Kept(), R::kByte,
            SETTING(g_nInitSymbElevPrecision)),
      Index(L"ADVANCE\\DEFAULT\\COMMON\\SYMB_COORD", L"PRECISION", 257, 260, 1, Kept(), R::kByte,
            SETTING(g_nInitSymbCoordPrecision)),
      Index(common, L"DISPLAY_MODE", 2, 3, 2, Fixed(0), R::kUnsigned, SETTING(g_nInitDisplayMode)),
      Double(common, L"PRINT_SCALE", "50", 50, DOUBLE_SETTING(g_dInitPlotScale)),
      Double(common, L"DETAIL_SCALE", "10", 10, DOUBLE_SETTING(g_dInitDetailScale)),
      Double(common, L"FLOOR_HEIGHT", "3300", 3300, DOUBLE_SETTING(g_dInitFloorHeight)),
      Index(common, L"DRAW_UNIT", 257, 260, 1, Fixed(0), R::kByte, SETTING(g_nInitDrawUnit)),
      Row(common, L"DYNAMIC_DIM", K::kBool, "TRUE", 1, Fixed(0), R::kInt, SETTING(g_bInitDynamicDim)),
      Row(common, L"UCS_AS_LAYOUTANGLE", K::kBool, "TRUE", 1, Kept(), R::kBool, BOOL_SETTING(g_bUcsAsLayoutAngle)),
      // Both flags as one number: scale + 2 * angle. Choice 2 is "scale only".
      Index(common, L"VIEWPORT_CTRL", 2, 5, 1, Fixed(0), R::kTwoFlags,
            [] { return (g_bInitByVPScale ? 1.0 : 0.0) + (g_bInitByVPAngle ? 2.0 : 0.0); },
            [](double v) {
              g_bInitByVPScale = (static_cast<int>(v) & 1) != 0;
              g_bInitByVPAngle = (static_cast<int>(v) & 2) != 0;
            }),

      Row(L"ADVANCE\\DEFAULT\\ORLAN\\WALL", L"FILL", K::kBool, "TRUE", 1, Fixed(0), R::kInt, SETTING(g_bInitSolidFill)),
      Row(L"ADVANCE\\DEFAULT\\ORLAN\\WALL", L"BOLD", K::kBool, "TRUE", 1, Fixed(0), R::kInt, SETTING(g_bInitBoldLine)),
      Row(L"ADVANCE\\DEFAULT\\ORLAN\\WALL", L"BASE", K::kBool, "TRUE", 1, Fixed(0), R::kInt,
          SETTING(g_bInitShowBaseCurve)),
      // The three keys of a room label build one bit set from zero; with the
      // other two missing, "DIM_AREA" counts as on and "DIM_UNIT" as off.
      Index(space, L"NAME_AND_CODE", 1, 3, 1 | 4, Fixed(1), R::kByte, SETTING(g_nInitSpaceDispMode)),
      Row(space, L"DIM_AREA", K::kBool, "FALSE", 0, Fixed(1), R::kByte, SETTING(g_nInitSpaceDispMode)),
      Row(space, L"DIM_UNIT", K::kBool, "TRUE", 1 | 2, Fixed(1), R::kByte, SETTING(g_nInitSpaceDispMode)),
      Index(space, L"PRECISION", 258, 260, 2, Kept(), R::kByte, SETTING(g_nInitSpaceAreaPrecision)),
      Row(L"ADVANCE\\DEFAULT\\ORLAN\\STAIR", L"SINGLE_SECT", K::kBool, "TRUE", 1, Fixed(0), R::kInt,
          SETTING(g_bInitStairSingleSect)),
  };
  for (ConfigRow &row : rows) {
    std::wstring group = row.group.substr(std::wstring(L"ADVANCE\\").size());
    row.id = Narrow(group + L"_" + row.key);
  }
  return rows;
}

}  // namespace

const std::vector<ConfigRow> &ConfigRows() {
  static const std::vector<ConfigRow> rows = BuildRows();
  return rows;
}

std::string ConfigElement(const ConfigRow &row, bool wrongKind) {
  std::string key(row.key.begin(), row.key.end());
  auto element = [&](const std::string &tag, const std::string &text, const std::string &extra = "") {
    return "<" + tag + " name=\"" + key + "\"" + extra + ">" + text + "</" + tag + ">";
  };
  switch (row.kind) {
    case ConfigKind::kDouble:
      return wrongKind ? element("Int", "5") : element("Double", row.text);
    case ConfigKind::kInt:
      return wrongKind ? element("Double", "5.0") : element("Int", row.text);
    case ConfigKind::kBool:
      return wrongKind ? element("Int", "1") : element("Bool", row.text);
    case ConfigKind::kIndex: {
      if (wrongKind) return element("Int", std::to_string(row.index));
      std::string options;
      for (int i = 0; i < row.optionCount; ++i) options += (i ? " o" : "o") + std::to_string(i);
      return element("Option", "o" + std::to_string(row.index), " options=\"" + options + "\"");
    }
  }
  return "";
}

std::string ConfigNest(const std::wstring &group, const std::string &inner) {
  std::string open, close;
  size_t start = 0;
  while (start <= group.size() && !group.empty()) {
    size_t end = group.find(L'\\', start);
    if (end == std::wstring::npos) end = group.size();
    std::wstring name = group.substr(start, end - start);
    open += "<Directory name=\"" + std::string(name.begin(), name.end()) + "\">";
    close = "</Directory>" + close;
    start = end + 1;
  }
  return open + inner + close;
}

std::wstring ParentGroup(const std::wstring &group) {
  size_t cut = group.rfind(L'\\');
  return cut == std::wstring::npos ? L"" : group.substr(0, cut);
}

double SentinelFor(const ConfigRow &row, double avoid) {
  switch (row.range) {
    case TargetRange::kBool:
      return avoid != 0 ? 0 : 1;
    case TargetRange::kTwoFlags:
      return avoid == 3 ? 1 : 3;
    case TargetRange::kDouble:
      return avoid == 42.5 ? 43.5 : 42.5;
    default:
      return avoid == 42 ? 43 : 42;
  }
}
