// The rows of the LAYER page: which planes of the active canvas have one,
// where each stands in the list, and which plane a row window shows.
#pragma once

#include <cstdint>
#include <vector>

#include "document/canvas.h"

constexpr int kRowWidth = 102;
constexpr int kRowHeight = 32;

struct LayerPanelState {
  WindowHandle layerRows[kPlaneSlots];  // the row of plane slot i, or null
  uint32_t visibleRowCount;             // rows that have height now
  int32_t scrollOffset;                 // pixels scrolled off the top
  uint32_t listHeight;                  // visibleRowCount x 32
  uint32_t clientHeight;                // height of the list's window
};
extern LayerPanelState layerPanel;

// The planes that get a row, in the order of the list: layers from the
// base upward, and in each the positions from 0 until an empty slot.
std::vector<int> RowPlanes(const Canvas* canvas);

// Where a row stands in the list, scrolling undone. A row without height
// is there but shows nothing.
struct RowPlace {
  int index;
  int x, y, width, height;
};
// The places of every row of RowPlanes; also counts visibleRowCount and
// listHeight. A hidden layer steps in, the transparency plane never has
// height (the strip's popup reaches it), and with showPlanes off only the
// images do.
std::vector<RowPlace> LayOutRows(const Canvas* canvas);

// The row that stands for the active plane: its own, or with showPlanes
// off its layer's.
bool RowIsActive(const Canvas* canvas, int row);

// The plane index of a row window, by the planes that exist; -1 if none.
int RowOfWindow(WindowHandle row, const Canvas* canvas);
