// Command numbers of the shell. A command is a 16-bit number; the Win32
// frame receives it in WM_COMMAND and hands it to RouteCommand
// (command_routing.h). Menus, accelerators and the tool bar use the same
// numbers, so they are part of the design and never renumbered.
#pragma once

namespace cmd {

constexpr int kTwainBitmap = 1034;  // lParam: a global handle to a Dib

// File level.
constexpr int kClose = 10000;
constexpr int kExit = 10001;
constexpr int kNew = 10002;
constexpr int kOpen = 10003;
constexpr int kSave = 10004;
constexpr int kPrint = 10005;
constexpr int kSaveAs = 10006;
constexpr int kOpenPath = 10007;  // lParam: a path
constexpr int kOpenFromClipboard = 10008;
constexpr int kClearHistory = 10011;
constexpr int kFromCameraOrScanner = 10012;

// View level.
constexpr int kDisplayPosition = 11011;
constexpr int kRuler = 11013;
constexpr int kZoomIn = 11014;
constexpr int kZoomOut = 11015;
constexpr int kDarkenOutsideBoundary = 11017;
constexpr int kGrid = 11021;
constexpr int kZoomFirst = 11040;   // zoomStep -3
constexpr int kZoomActual = 11043;  // zoomStep 0
constexpr int kZoomLast = 11053;    // zoomStep 10

// Window level.
constexpr int kTile = 12000;
constexpr int kCascade = 12001;
constexpr int kCloseAll = 12002;
constexpr int kArrangeIcons = 12003;
constexpr int kAdjustWindowSize = 12004;

constexpr int kHelp = 13000;
constexpr int kAbout = 13001;

// Edit level.
constexpr int kCopy = 14000;
constexpr int kPaste = 14001;
constexpr int kPasteAsLayer = 14002;
constexpr int kPasteFromFile = 14003;
constexpr int kDelete = 14005;
constexpr int kPasteFromPartsBox = 14008;
constexpr int kUndo = 14010;
constexpr int kRedo = 14012;

// Tools: they change currentTool.
constexpr int kToolFirst = 20000;
constexpr int kFreeHand = 20000;
constexpr int kSelectionBox = 20001;
constexpr int kSelectionLine = 20002;
constexpr int kSelectionCircle = 20003;
constexpr int kSelectionPolygon = 20004;
constexpr int kFreeHandConnect = 20005;  // the tool at start
constexpr int kPlaceText = 20006;
constexpr int kSeedFill = 20007;
constexpr int kWire = 20009;
constexpr int kBezier = 20011;
constexpr int kFreeBezier = 20012;
constexpr int kEditBezier = 20013;
constexpr int kToolLast = 20013;

// Selection.
constexpr int kDeselect = 20500;
constexpr int kFattenSelection = 20503;
constexpr int kSlimSelection = 20504;
constexpr int kBlurOutside = 20505;
constexpr int kBlurInside = 20506;
constexpr int kSmoothZoom = 20507;

// Picture operations.
constexpr int kFill = 21000;
constexpr int kLine = 21001;
constexpr int kSaveSelection = 21011;
constexpr int kBlankSheet = 21012;
constexpr int kInitializeMask = 21013;
constexpr int kInitializeTransparency = 21014;
constexpr int kNegative = 21015;
constexpr int kMergeLayers = 21017;
constexpr int kFilterPanel = 21022;
constexpr int kDoubleAccuracy = 21024;
constexpr int kMagnify = 21026;
constexpr int kConvertToLayer = 21039;
constexpr int kSettingsPanel = 21042;
constexpr int kMergeWithLower = 21043;
constexpr int kConvertToBezier = 21044;

// How the outside of the selection is shown.
constexpr int kOutsideHide = 23000;
constexpr int kOutsideCheck = 23001;
constexpr int kOutsideDarken = 23002;
constexpr int kShowOutsideBorder = 23010;

// Test commands without a menu entry.
constexpr int kRowCacheOn = 24000;
constexpr int kRowCacheOff = 24001;

// The eight entries of the file history, and the separator before them.
constexpr int kHistoryFirst = 40000;
constexpr int kHistoryLast = 40007;
constexpr int kHistorySeparator = 40100;

}  // namespace cmd
