// Whole-image work of the store: storage set-up with its fills, raw
// transfers through the scratch, CopyPlane, SavePlane and LoadPlane.
#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <new>

#include "resources/strings.h"
#include "store/packed_rows.h"
#include "store/plane_mapping.h"
#include "store/plane_store.h"
#include "store/row_cache.h"
#include "store/scratch.h"

namespace {

// Message 1024: wParam 3 shows a percent, wParam 0 clears the display.
void ReportProgress(platform::Window to, int64_t offset, int64_t byteSize) {
  platform::SendToWindow(to, platform::MsgStatus, 3, (offset / 10) * 100 / (byteSize / 10));
}

void ClearProgress(platform::Window to) { platform::SendToWindow(to, platform::MsgStatus, 0, 0); }

// Calls step(offset, count) over consecutive chunks of byteSize bytes, and
// between(offset) after every chunk but the last. Stops when a step fails.
template <typename Step, typename Between>
bool ForEachChunk(int64_t byteSize, Step step, Between between) {
  int64_t offset = 0;
  int64_t remaining = byteSize;
  for (;;) {
    size_t count = static_cast<size_t>(std::min<int64_t>(remaining, kChunkBytes));
    if (!step(offset, count)) return false;
    remaining -= static_cast<int64_t>(count);
    offset += static_cast<int64_t>(count);
    if (remaining < 1) return true;
    between(offset);
  }
}

void Nothing(int64_t) {}

}  // namespace

bool PlaneStoreObject::CreateFlat(Plane* plane, uint8_t fill, int doFill) {
  plane->flatBytes = static_cast<uint8_t*>(std::calloc(static_cast<size_t>(plane->byteSize), 1));
  if (!plane->flatBytes) return false;
  if (doFill && fill != 0) {  // zeroed memory reads as 0 already
    std::memset(scratch.get(), fill, kScratchBytes);
    auto write = [&](int64_t offset, size_t count) { return RawWrite(plane, offset, count); };
    ForEachChunk(plane->byteSize, write, Nothing);
  }
  return true;
}

bool PlaneStoreObject::CreateMapped(Plane* plane, uint8_t fill, int doFill) {
  if (!AllocateRowSlots(plane)) return false;
  plane->mapping = new (std::nothrow) PlaneMapping;
  if (!plane->mapping || plane->mapping->Create(plane->byteSize, plane->serial) != 0) {
    platform::ShowMessageBox(platform::Window::Frame, "メモリーが不足しました", kProductName,
                             platform::MbOk | platform::MbIconInformation);
    return false;
  }
  int64_t byteSize = plane->byteSize;
  bool reports = byteSize >= kProgressThreshold;
  if (doFill) {
    std::memset(scratch.get(), fill, kScratchBytes);
    // Whole chunk steps: an exact multiple ends with a write of nothing, and
    // so reports 100 before it.
    int64_t offset = 0;
    for (int64_t remaining = byteSize;;) {
      RawWrite(plane, offset, static_cast<size_t>(std::min<int64_t>(remaining, kChunkBytes)));
      offset += kChunkBytes;
      remaining -= kChunkBytes;
      if (remaining < 0) break;
      if (reports) ReportProgress(platform::Window::StatusBar, offset, byteSize);
    }
  }
  if (reports) ClearProgress(platform::Window::StatusBar);
  return true;
}

bool PlaneStoreObject::CreatePacked(Plane* plane, uint8_t fill, int doFill) {
  plane->packedRows = new (std::nothrow) PackedRows;
  if (!plane->packedRows) return false;
  // The set-up's result isn't examined: a packed plane that couldn't be set
  // up stores and fetches nothing.
  plane->packedRows->Setup(static_cast<int>(plane->bits), plane->width, plane->height,
                           kRowsPerBlock);
  if (doFill) {
    // Every block gets stored, so every block unpacks.
    std::memset(scratch.get(), fill, static_cast<size_t>(plane->width) * plane->bits / 8);
    for (int y = 0; y < plane->height; ++y) plane->packedRows->StoreRow(y, scratch.get());
  }
  return true;
}

int PlaneStoreObject::RawRead(Plane* plane, int64_t offset, size_t count) {
  switch (plane->kind) {
    case Physical:
      std::memcpy(scratch.get(), plane->flatBytes + offset, count);
      return 1;
    case Virtual:
      plane->mapping->Read(static_cast<uint64_t>(offset), count, scratch.get());
      return 1;
    default:
      return 0;
  }
}

int PlaneStoreObject::RawWrite(Plane* plane, int64_t offset, size_t count) {
  switch (plane->kind) {
    case Physical:
      std::memcpy(plane->flatBytes + offset, scratch.get(), count);
      return 1;
    case Virtual:
      plane->mapping->Write(static_cast<uint64_t>(offset), count, scratch.get());
      return 1;
    default:
      return 0;
  }
}

void PlaneStoreObject::ReadStoredRow(Plane* plane, int y, uint8_t* dest) {
  if (plane->kind == Packed) {
    plane->packedRows->FetchRow(y, dest);
    return;
  }
  RawRead(plane, static_cast<int64_t>(plane->stride) * y, plane->stride);
  std::memcpy(dest, scratch.get(), plane->stride);
}

int PlaneStoreObject::CopyPlane(Plane* dest, Plane* src) {
  if (dest->byteSize != src->byteSize) return 0;
  if (dest->kind == Packed || src->kind == Packed) {
    // Row by row through the scratch, which a source row has to fit.
    if (static_cast<int64_t>(src->width) * src->bytesPerPixel > kChunkBytes) return 0;
    for (int y = 0; y < dest->height; ++y) {
      ReadRow(src, y, 0, src->width - 1, scratch.get());
      WriteRow(dest, y, 0, src->width - 1, scratch.get());
    }
    return 1;
  }
  FlushRows(src);
  FlushRows(dest);
  int64_t byteSize = dest->byteSize;
  bool reports = byteSize >= kProgressThreshold;
  ForEachChunk(
      byteSize,
      [&](int64_t offset, size_t count) {
        RawRead(src, offset, count);
        RawWrite(dest, offset, count);
        return true;
      },
      [&](int64_t offset) {
        if (reports) ReportProgress(platform::Window::Frame, offset, byteSize);
      });
  if (reports) ClearProgress(platform::Window::Frame);
  return 1;
}

int PlaneStoreObject::SavePlane(Plane* plane, FILE* file) {
  if (!file) return 0;
  uint8_t* buffer = scratch.get();
  if (plane->kind == Packed) {
    // Packed planes write their rows unpadded.
    size_t count = static_cast<size_t>(plane->width) * plane->bytesPerPixel;
    for (int y = 0; y < plane->height; ++y) {
      plane->packedRows->FetchRow(y, buffer);
      if (std::fwrite(buffer, 1, count, file) != count) return 0;
    }
    return 1;
  }
  FlushRows(plane);
  return ForEachChunk(
      plane->byteSize,
      [&](int64_t offset, size_t count) {
        RawRead(plane, offset, count);
        return std::fwrite(buffer, 1, count, file) == count;
      },
      Nothing);
}

int PlaneStoreObject::LoadPlane(Plane* plane, FILE* file) {
  if (!file) return 0;
  uint8_t* buffer = scratch.get();
  if (plane->kind == Packed) {
    size_t count = static_cast<size_t>(plane->width) * plane->bytesPerPixel;
    for (int y = 0; y < plane->height; ++y) {
      if (std::fread(buffer, 1, count, file) != count) return 0;
      plane->packedRows->StoreRow(y, buffer);
    }
    return 1;
  }
  FlushRows(plane);
  return ForEachChunk(
      plane->byteSize,
      [&](int64_t offset, size_t count) {
        if (std::fread(buffer, 1, count, file) != count) return false;
        RawWrite(plane, offset, count);
        return true;
      },
      Nothing);
}
