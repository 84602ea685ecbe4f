// Shared set-up of the undo tests: a fresh history, and strokes painted by
// the tests themselves, so that what undo must bring back is what the
// planes held, read straight from the store.
#pragma once

#include "canvas_fixture.h"
#include "document/undo_history.h"

using Kinds = std::vector<uint32_t>;
using Bytes = std::vector<uint8_t>;

class UndoTest : public CanvasTest {
 protected:
  void SetUp() override {
    CanvasTest::SetUp();
    UndoHistory.repaint = [this](Canvas*) { ++repaints; };
    settings.undoCount = 3;
  }

  // Every byte of a layer's image plane, then of its transparency.
  static Bytes Shown(Canvas* canvas, int image) {
    Bytes bytes = PlaneBytes(canvas->planes[image].plane);
    const Bytes transparency = PlaneBytes(canvas->planes[image + 2].plane);
    bytes.insert(bytes.end(), transparency.begin(), transparency.end());
    return bytes;
  }
  // Paints a canvas rectangle of a layer's image and transparency with
  // bytes that differ by column, row and seed, then records the box (or,
  // with whole, the plane).
  static int Stroke(Canvas* canvas, int image, int x0, int y0, int x1, int y1, int seed,
                    bool whole = false) {
    const PlaneSlot* slots = &canvas->planes[image];
    for (int y = y0; y <= y1; ++y)
      for (int x = x0; x <= x1; ++x) {
        const uint32_t v = static_cast<uint32_t>(seed + 31 * x + 17 * y) & 255;
        const int px = x - slots[0].left, py = y - slots[0].top;
        PlaneStore.WritePixel24(slots[0].plane, px, py, v, v ^ 1, v ^ 2);
        PlaneStore.WritePixel8(slots[2].plane, px, py, v ^ 3);
      }
    if (whole) x0 = y0 = x1 = y1 = -1;
    return UndoHistory.RecordUndo(canvas, image, 1, x0, y0, x1, y1, 0);
  }
  // Kinds of the used entries, newest first.
  static Kinds Used() {
    Kinds kinds;
    for (const UndoEntry& entry : UndoHistory.entries)
      if (entry.kind != kUndoEmpty) kinds.push_back(entry.kind);
    return kinds;
  }

  int repaints = 0;
};
