// The row cache in front of a Virtual plane's mapping: up to 100 rows in
// most-recent-first order, of which 4 are in use except while the cache
// runs wide.
#pragma once

#include "store/plane_store.h"

struct RowSlot {
  uint8_t* rowBytes;  // stride + 100 bytes
  int32_t row;        // -1 when free
  int32_t touchedLow, touchedHigh;
  int32_t dirtyLow, dirtyHigh;
};

// Allocates all 100 slots, free and zeroed; false when memory runs out
// (whatever was allocated is freed again).
bool AllocateRowSlots(Plane* plane);
void FreeRowSlots(Plane* plane);

// The slot holding row y, brought to the front; x0..x1 are the columns
// about to be used. A miss evicts the least recently used row.
RowSlot* BringRow(Plane* plane, int y, int x0, int x1);

// Widens the dirty range of a slot by the columns just written.
inline void MarkDirty(RowSlot* slot, int x0, int x1) {
  if (x0 < slot->dirtyLow) slot->dirtyLow = x0;
  if (x1 > slot->dirtyHigh) slot->dirtyHigh = x1;
}
