#include "document/undo_copies.h"

#include <cstdint>
#include <limits>
#include <vector>

#include "document/canvas_slots.h"
#include "settings/settings.h"

namespace {

uint32_t UndoBufferKind() { return static_cast<uint32_t>(settings.undoBuffer); }

std::vector<uint8_t> RowBuffer(const Plane* plane) {
  return std::vector<uint8_t>(static_cast<size_t>(plane->width) * plane->bytesPerPixel);
}

// The transparency plane travels with an image plane: the slot at
// position 2 of index's layer when index is an image plane and that slot
// holds a plane.
PlaneSlot* Companion(Canvas* canvas, int index) {
  if (PositionOf(index) != kImagePosition) return nullptr;
  PlaneSlot& slot = canvas->planes[index + kTransparencyPosition];
  return slot.plane ? &slot : nullptr;
}

Plane* WholeCopy(Plane* plane) {
  Plane* copy = PlaneStore.CreatePlane(plane->width, plane->height, static_cast<int>(plane->bits),
                                       0, 0, UndoBufferKind());
  if (copy && !PlaneStore.CopyPlane(copy, plane)) PlaneStore.FreePlane(&copy);
  return copy;
}

// The canvas rectangle at (left, top) of the slot's plane, read at the
// slot's place; what lies outside the plane is never put back.
Plane* RectCopy(const PlaneSlot& slot, int left, int top, int width, int height) {
  Plane* copy = PlaneStore.CreatePlane(width, height, static_cast<int>(slot.plane->bits), 0, 0,
                                       UndoBufferKind());
  if (!copy) return nullptr;
  std::vector<uint8_t> row = RowBuffer(copy);
  const int x0 = left - slot.left;
  for (int y = 0; y < height; ++y) {
    PlaneStore.ReadRow(slot.plane, top + y - slot.top, x0, x0 + width - 1, row.data());
    PlaneStore.WriteRow(copy, y, 0, width - 1, row.data());
  }
  return copy;
}

// Copies of the recorded plane and of its companion, made the same way.
template <typename MakeCopy>
int CopyBoth(Canvas* canvas, UndoEntry& entry, MakeCopy make) {
  entry.plane = make(canvas->planes[entry.planeIndex]);
  if (!entry.plane) return 0;
  if (PlaneSlot* companion = Companion(canvas, entry.planeIndex)) {
    entry.transparency = make(*companion);
    if (!entry.transparency) {
      PlaneStore.FreePlane(&entry.plane);
      return 0;
    }
  }
  return 1;
}

int MakeRectCopies(Canvas* canvas, UndoEntry& entry) {
  const int64_t width = int64_t{entry.right} - entry.left + 1;
  const int64_t height = int64_t{entry.bottom} - entry.top + 1;
  constexpr int64_t kLargest = std::numeric_limits<int32_t>::max();
  if (width < 1 || height < 1 || width > kLargest || height > kLargest) return 0;
  return CopyBoth(canvas, entry, [&](const PlaneSlot& slot) {
    return RectCopy(slot, entry.left, entry.top, static_cast<int>(width), static_cast<int>(height));
  });
}

// A plane of the copy's size and bits takes the slot's place at the
// recorded origin, and receives the copy. Only left and top of the slot
// change here.
bool ReplacePlane(PlaneSlot& slot, Plane* copy, const UndoEntry& entry) {
  Plane* fresh = PlaneStore.CreatePlane(copy->width, copy->height, static_cast<int>(copy->bits), 0,
                                        0, ImageBufferKind());
  if (!fresh) return false;
  PlaneStore.FreePlane(&slot.plane);
  slot.plane = fresh;
  slot.left = entry.originLeft;
  slot.top = entry.originTop;
  PlaneStore.CopyPlane(fresh, copy);
  return true;
}

void PutWhole(Canvas* canvas, PlaneSlot& slot, PlaneSlot* companion, const UndoEntry& entry) {
  Plane* copy = entry.plane;
  if (copy->width == slot.plane->width && copy->height == slot.plane->height) {
    PlaneStore.CopyPlane(slot.plane, copy);
    if (companion) PlaneStore.CopyPlane(companion->plane, entry.transparency);
    return;
  }
  // An operation changed the plane's size: the old size comes back, with
  // its origin. The companion's own size fields are left as they stand.
  if (ReplacePlane(slot, copy, entry)) {
    slot.width = copy->width;
    slot.height = copy->height;
    if (entry.planeIndex == 0) {
      canvas->canvasWidth = copy->width;
      canvas->canvasHeight = copy->height;
    }
  }
  if (companion) ReplacePlane(*companion, entry.transparency, entry);
}

void PutRect(PlaneSlot& slot, Plane* copy, const UndoEntry& entry) {
  std::vector<uint8_t> row = RowBuffer(copy);
  const int x0 = entry.left - slot.left;
  for (int y = 0; y < copy->height; ++y) {
    PlaneStore.ReadRow(copy, y, 0, copy->width - 1, row.data());
    PlaneStore.WriteRow(slot.plane, entry.top + y - slot.top, x0, x0 + copy->width - 1, row.data());
  }
}

void PutFlatRow(PlaneSlot& slot, Plane* copy) {
  std::vector<uint8_t> row = RowBuffer(copy);
  PlaneStore.ReadRow(copy, 0, 0, copy->width - 1, row.data());
  for (int y = 0; y < slot.plane->height; ++y)
    PlaneStore.WriteRow(slot.plane, y, 0, copy->width - 1, row.data());
}

}  // namespace

UndoEntry EmptyUndoEntry() {
  UndoEntry entry{};
  entry.tag = -1;
  return entry;
}

int MakeUndoCopies(Canvas* canvas, UndoEntry& entry) {
  if (entry.planeIndex < 0 || entry.planeIndex >= kPlaneSlots) return 0;
  const PlaneSlot& slot = canvas->planes[entry.planeIndex];
  entry.originLeft = slot.left;
  entry.originTop = slot.top;
  if (entry.kind == kUndoPosition) return 1;
  if (!slot.plane) return 0;
  if (entry.kind == kUndoRect) return MakeRectCopies(canvas, entry);
  return CopyBoth(canvas, entry, [](const PlaneSlot& from) { return WholeCopy(from.plane); });
}

int ApplyUndoEntry(Canvas* canvas, const UndoEntry& entry) {
  PlaneSlot& slot = canvas->planes[entry.planeIndex];
  if (!slot.plane) return 0;
  PlaneSlot* companion = entry.transparency ? Companion(canvas, entry.planeIndex) : nullptr;
  switch (entry.kind) {
    case kUndoWhole: PutWhole(canvas, slot, companion, entry); break;
    case kUndoRect:
      PutRect(slot, entry.plane, entry);
      if (companion) PutRect(*companion, entry.transparency, entry);
      break;
    case kUndoFlatRow:
      PutFlatRow(slot, entry.plane);
      if (companion) PutFlatRow(*companion, entry.transparency);
      break;
    case kUndoPosition: {
      PlaneSlot* layer = &canvas->planes[SlotIndex(LayerOf(entry.planeIndex), 0)];
      for (int position = 0; position < kPlanesPerLayer; ++position) {
        layer[position].left = entry.originLeft;
        layer[position].top = entry.originTop;
      }
      break;
    }
    default: return 0;
  }
  return 1;
}

void FreeUndoEntry(UndoEntry& entry) {
  PlaneStore.FreePlane(&entry.plane);
  PlaneStore.FreePlane(&entry.transparency);
  entry = EmptyUndoEntry();
}
