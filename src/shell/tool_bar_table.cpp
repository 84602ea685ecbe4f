#include "shell/tool_bar_table.h"

#include "base/command_ids.h"
#include "settings/settings.h"

ToolItem toolItems[] = {
    {cmd::kNew, 1}, {cmd::kOpen, 1}, {cmd::kSave, 1}, {cmd::kPrint, 1}, {kToolSmallGap, 1},
    {cmd::kUndo, 1}, {cmd::kRedo, 1}, {cmd::kCopy, 1}, {cmd::kPaste, 1}, {kToolSmallGap, 1},
    {cmd::kFreeHandConnect, 1}, {cmd::kFreeHand, 1}, {cmd::kSelectionBox, 1}, {cmd::kSelectionLine, 1}, {cmd::kSelectionCircle, 1},
    {cmd::kSelectionPolygon, 1}, {cmd::kConnectLine, 1}, {cmd::kSplineCurve, 1}, {cmd::kBezier, 1}, {cmd::kFreeBezier, 1},
    {cmd::kWire, 1}, {cmd::kSeedFill, 1}, {cmd::kDeselect, 1}, {cmd::kShowOutsideBorder, 1}, {kToolGap, 1},
    {cmd::kFill, 1}, {cmd::kLine, 1}, {cmd::kMagnify, 1}, {cmd::kText, 1}, {kToolGap, 1},
    {cmd::kToneFilter, 1}, {cmd::kColorAdjustment, 1}, {cmd::kBlankSheet, 1}, {kToolGap, 1}, {cmd::kFilterPanel, 1},
    {cmd::kSettingsPanel, 1}, {cmd::kZoomIn, 1}, {cmd::kZoomOut, 1}, {kToolGap, 1}, {kToolListEnd, 0},
};

// Every row before the end mark has its word in the settings record.
static_assert(sizeof toolItems / sizeof toolItems[0] <= kToolButtonWords);
