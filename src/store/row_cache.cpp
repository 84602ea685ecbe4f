#include "store/row_cache.h"

#include <new>

#include "store/plane_mapping.h"

namespace {

// Writes the dirty columns of the slot's row back to the mapping. A slot
// never written still writes its first pixel back, unchanged.
void WriteBack(Plane* plane, const RowSlot* slot) {
  uint64_t offset = static_cast<uint64_t>(plane->stride) * slot->row +
                    static_cast<uint64_t>(plane->bytesPerPixel) * slot->dirtyLow;
  size_t count = static_cast<size_t>(slot->dirtyHigh - slot->dirtyLow + 1) * plane->bytesPerPixel;
  plane->mapping->Write(offset, count, slot->rowBytes + plane->bytesPerPixel * slot->dirtyLow);
}

// Moves the slot at position `at` to the front, shifting those before it down.
RowSlot* MoveToFront(Plane* plane, uint32_t at) {
  RowSlot* slot = plane->rowSlots[at];
  for (uint32_t i = at; i > 0; --i) plane->rowSlots[i] = plane->rowSlots[i - 1];
  plane->rowSlots[0] = slot;
  return slot;
}

}  // namespace

bool AllocateRowSlots(Plane* plane) {
  for (RowSlot*& slot : plane->rowSlots) {
    slot = new (std::nothrow) RowSlot{};
    if (slot) slot->rowBytes = new (std::nothrow) uint8_t[plane->stride + 100]();
    if (!slot || !slot->rowBytes) {
      FreeRowSlots(plane);
      return false;
    }
    slot->row = -1;
  }
  return true;
}

void FreeRowSlots(Plane* plane) {
  for (RowSlot*& slot : plane->rowSlots) {
    if (slot) delete[] slot->rowBytes;
    delete slot;
    slot = nullptr;
  }
}

RowSlot* BringRow(Plane* plane, int y, int x0, int x1) {
  uint32_t size = plane->rowCacheSize;
  for (uint32_t i = 0; i < size; ++i) {
    RowSlot* slot = plane->rowSlots[i];
    if (slot->row == y) {
      MoveToFront(plane, i);
      if (x0 < slot->touchedLow) slot->touchedLow = x0;
      if (x1 > slot->touchedHigh) slot->touchedHigh = x1;
      return slot;
    }
    if (slot->row < 0) break;  // used slots always stand before free ones
  }
  // The last slot in use is free, or else holds the least recently used row.
  RowSlot* slot = MoveToFront(plane, size - 1);
  if (slot->row >= 0) WriteBack(plane, slot);
  slot->row = y;
  slot->touchedLow = x0;
  slot->touchedHigh = x1;
  // The dirty range stays: the whole row is loaded, so writing any of it back is right.
  plane->mapping->Read(static_cast<uint64_t>(plane->stride) * y, plane->stride, slot->rowBytes);
  return slot;
}

void PlaneStoreObject::FlushRows(Plane* plane) {
  if (plane->kind != Virtual) return;
  for (RowSlot* slot : plane->rowSlots) {
    if (slot->row < 0) continue;
    WriteBack(plane, slot);
    slot->row = -1;
  }
}

void PlaneStoreObject::WidenRowCache(Plane* plane) {
  if (plane->kind != Virtual) return;
  FlushRows(plane);
  plane->rowCacheWide = 1;
  plane->rowCacheSize = kRowCacheWide;
}

void PlaneStoreObject::NarrowRowCache(Plane* plane) {
  if (plane->kind != Virtual) return;
  FlushRows(plane);
  plane->rowCacheWide = 0;
  plane->rowCacheSize = kRowCacheNarrow;
}
