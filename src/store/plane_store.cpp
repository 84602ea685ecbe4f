#include "store/plane_store.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <new>

#include "store/packed_rows.h"
#include "store/plane_mapping.h"
#include "store/row_cache.h"
#include "store/scratch.h"

PlaneStoreObject PlaneStore;

PlaneStoreObject::PlaneStoreObject() : scratch(std::make_unique<uint8_t[]>(kScratchBytes)) {}

PlaneStoreObject::~PlaneStoreObject() = default;

void PlaneStoreObject::Reset() {
  serial = 0;
  std::memset(scratch.get(), 0, kScratchBytes);
}

Plane* PlaneStoreObject::CreatePlane(int width, int height, int bits, int fill, int doFill,
                                     uint32_t kind) {
  ++serial;
  if (bits != 1 && bits != 4 && bits != 8 && bits != 24) return nullptr;
  if (kind > Packed) return nullptr;
  if (width < 1) width = 1;
  if (height < 1) height = 1;
  int64_t stride = (static_cast<int64_t>(bits) * width + 31) / 32 * 4;
  // byteSize is 32-bit; and a packed row must fit the scratch, which every
  // packed access runs through.
  if (stride * height > std::numeric_limits<int32_t>::max()) return nullptr;
  if (kind == Packed && stride > kChunkBytes) return nullptr;

  Plane* plane = new (std::nothrow) Plane{};
  if (!plane) return nullptr;
  plane->serial = serial;
  plane->kind = kind;
  plane->width = width;
  plane->height = height;
  plane->bits = static_cast<uint32_t>(bits);
  plane->bytesPerPixel = static_cast<uint32_t>(bits / 8);
  plane->stride = static_cast<uint32_t>(stride);
  plane->byteSize = static_cast<int32_t>(stride * height);
  plane->rowCacheWide = 0;
  plane->rowCacheSize = kRowCacheNarrow;
  // A grey ramp of index values: the 4-bit ramp runs 0..15, unstretched.
  int entries = bits == 24 ? 0 : 1 << bits;
  for (int i = 0; i < entries; ++i)
    plane->palette[i][0] = plane->palette[i][1] = plane->palette[i][2] = static_cast<uint8_t>(i);

  uint8_t value = static_cast<uint8_t>(fill);
  bool made = kind == Physical ? CreateFlat(plane, value, doFill)
              : kind == Virtual ? CreateMapped(plane, value, doFill)
                                : CreatePacked(plane, value, doFill);
  if (!made) FreePlane(&plane);
  return plane;
}

void PlaneStoreObject::FreePlane(Plane** plane) {
  if (!plane || !*plane) return;
  Plane* p = *plane;
  FreeRowSlots(p);
  delete p->mapping;
  std::free(p->flatBytes);
  delete p->packedRows;
  delete p;
  *plane = nullptr;
}

namespace {

// Clips a row request to the plane. On success x0..x1 lie inside and `skip`
// is how far the caller's buffer moves, so that its position k still stands
// for column x0 + k of the request. A failed clip changes nothing.
bool ClipRow(const Plane* plane, int y, int& x0, int& x1, size_t& skip) {
  int first = x0, last = x1;
  if (!ClipToPlane(plane, y, first, last)) return false;
  skip = static_cast<size_t>(int64_t{first} - x0) * plane->bytesPerPixel;
  x0 = first;
  x1 = last;
  return true;
}

bool Inside(const Plane* plane, int x, int y) {
  return x >= 0 && x < plane->width && y >= 0 && y < plane->height;
}

// The stored bytes of row y from column x0 on, for columns x0..x1 inside
// the plane: a Virtual row comes to the front of the cache, dirty over
// those columns when they are to be written; a Packed row comes into the
// unpacked block. Null for a Packed plane that was never set up.
uint8_t* RowAt(Plane* plane, int y, int x0, int x1, bool write) {
  if (plane->kind == Physical) return FlatBytesAt(plane, y, x0);
  size_t at = static_cast<size_t>(plane->bytesPerPixel) * x0;
  if (plane->kind == Virtual) {
    RowSlot* slot = BringRow(plane, y, x0, x1);
    if (write) MarkDirty(slot, x0, x1);
    return slot->rowBytes + at;
  }
  uint8_t* row = plane->packedRows->RowInBlock(y, write);
  return row ? row + at : nullptr;
}

// The n bytes of pixel x of row y; a packed row is fetched into the scratch.
const uint8_t* PixelBytes(Plane* plane, uint8_t* scratch, int x, int y, size_t n) {
  if (plane->kind != Packed) return RowAt(plane, y, x, x, false);
  plane->packedRows->FetchRow(y, scratch);
  return scratch + n * x;
}

void PutPixelBytes(Plane* plane, uint8_t* scratch, int x, int y, const uint8_t* bytes,
                   size_t n) {
  if (plane->kind != Packed) {
    std::memcpy(RowAt(plane, y, x, x, true), bytes, n);
    return;
  }
  plane->packedRows->FetchRow(y, scratch);
  std::memcpy(scratch + n * x, bytes, n);
  plane->packedRows->StoreRow(y, scratch);
}

}  // namespace

int PlaneStoreObject::ReadRow(Plane* plane, int y, int x0, int x1, void* dest) {
  size_t skip = 0;
  if (!ClipRow(plane, y, x0, x1, skip)) return 0;
  uint8_t* out = static_cast<uint8_t*>(dest) + skip;
  size_t bpp = plane->bytesPerPixel;
  if (plane->kind != Packed) {
    std::memcpy(out, RowAt(plane, y, x0, x1, false), (x1 - x0 + 1) * bpp);
  } else if (x0 == 0) {
    plane->packedRows->FetchRow(y, out);  // a whole row, whatever x1
  } else {
    plane->packedRows->FetchRow(y, scratch.get());
    std::memcpy(out, scratch.get() + x0 * bpp, (x1 - x0 + 1) * bpp);
  }
  return 1;
}

int PlaneStoreObject::WriteRow(Plane* plane, int y, int x0, int x1, const void* src) {
  size_t skip = 0;
  if (!ClipRow(plane, y, x0, x1, skip)) return 0;
  const uint8_t* in = static_cast<const uint8_t*>(src) + skip;
  size_t bpp = plane->bytesPerPixel;
  if (plane->kind != Packed) {
    std::memcpy(RowAt(plane, y, x0, x1, true), in, (x1 - x0 + 1) * bpp);
  } else if (x0 == 0) {
    plane->packedRows->StoreRow(y, in);  // a whole row, whatever x1
  } else {
    plane->packedRows->FetchRow(y, scratch.get());
    std::memcpy(scratch.get() + x0 * bpp, in, (x1 - x0 + 1) * bpp);
    plane->packedRows->StoreRow(y, scratch.get());
  }
  return 1;
}

void PlaneStoreObject::PrefetchRows(const Plane* plane, int y0, int n, int x0, int x1) {
  if (plane->kind != Physical || plane->bytesPerPixel == 0) return;
  const int top = y0 < 0 ? 0 : y0;
  const int64_t bottom = std::min<int64_t>(int64_t{y0} + n, plane->height);
  if (top >= bottom || !ClipToPlane(plane, top, x0, x1)) return;
  const size_t count = static_cast<size_t>(x1 - x0 + 1) * plane->bytesPerPixel;
  for (int y = top; y < bottom; ++y) {
    const uint8_t* bytes = FlatBytesAt(plane, y, x0);
    for (size_t at = 0; at < count; at += 64) __builtin_prefetch(bytes + at);
    __builtin_prefetch(bytes + count - 1);
  }
}

RowAccess PlaneStoreObject::AccessCachedRow(Plane* plane, int y, int x0, int x1, int write) {
  return RowAccess{RowAt(plane, y, x0, x1, write != 0), x0, x1};
}

int PlaneStoreObject::ReadPixel24(Plane* plane, int x, int y, uint32_t* r, uint32_t* g,
                                  uint32_t* b) {
  // A 24-bit access to a narrower plane would run past its row.
  if (!Inside(plane, x, y) || plane->bytesPerPixel != 3) return 0;
  const uint8_t* p = PixelBytes(plane, scratch.get(), x, y, 3);
  *b = p[0];
  *g = p[1];
  *r = p[2];
  return 1;
}

int PlaneStoreObject::ReadPixel8(Plane* plane, int x, int y, uint32_t* value) {
  if (!Inside(plane, x, y)) return 0;
  // Packed planes answer with the byte two on: the rule of that kind.
  *value = plane->kind == Packed ? PixelBytes(plane, scratch.get(), x + 2, y, 1)[0]
                                 : PixelBytes(plane, scratch.get(), x, y, 1)[0];
  return 1;
}

int PlaneStoreObject::WritePixel24(Plane* plane, int x, int y, uint32_t r, uint32_t g,
                                   uint32_t b) {
  if (!Inside(plane, x, y) || plane->bytesPerPixel != 3) return 0;
  const uint8_t bgr[3] = {static_cast<uint8_t>(b), static_cast<uint8_t>(g),
                          static_cast<uint8_t>(r)};
  PutPixelBytes(plane, scratch.get(), x, y, bgr, 3);
  return 1;
}

int PlaneStoreObject::WritePixel8(Plane* plane, int x, int y, uint32_t value) {
  if (!Inside(plane, x, y)) return 0;
  const uint8_t byte = static_cast<uint8_t>(value);
  PutPixelBytes(plane, scratch.get(), x, y, &byte, 1);
  return 1;
}
