// The menus of the LAYER page: what a right press on a row offers, the
// strip's popup of planes, and the name the strip shows.
#pragma once

#include <string>
#include <vector>

#include "document/canvas.h"

// The popup of a right press on a row.
enum class RowMenuKind {
  None,          // the mask and the transparency plane have none
  Layer,         // tsLayPartsMenu
  LayerPlanes,   // tsLayPartsMenu2, with showPlanes on: adds the plane items
  FurtherPlane,  // tsLayPartsMenuAlp: Delete...
};
struct RowMenu {
  RowMenuKind kind = RowMenuKind::None;
  std::vector<int> greyed;  // items that can't be chosen now
};
RowMenu RightPressMenu(const Canvas* canvas, int row);

// The further plane's Delete...: asks string 1410 and deletes the plane on
// yes. True when it went.
bool DeleteRowPlane(Canvas* canvas, int row);

// The strip's popup of planes (tsPlaneMenu) for the active layer.
constexpr int kPlaneItemImage = 1;
constexpr int kPlaneItemMask = 2;
constexpr int kPlaneItemTransparency = 3;
constexpr int kPlaneItemFirstFurther = 4;  // 4..8: the further planes
constexpr int kPlaneItemAddDelete = 100;   // "Add and Delete Planes..."
struct PlaneMenuItem {
  int item;
  std::string text;
};
struct PlaneMenu {
  bool maskEnabled = false;
  bool transparencyEnabled = false;
  std::vector<PlaneMenuItem> further;  // rebuilt from the layer each time
  bool addDelete = false;              // with a separator before it
};
PlaneMenu PlaneMenuOf(const Canvas* canvas);
// The plane an item of that popup selects; -1 for none (item 100 opens the
// planes dialog instead).
int PlaneOfItem(const Canvas* canvas, int item);

// The active plane's name as the strip shows it.
std::string StripPlaneName(const Canvas* canvas);
