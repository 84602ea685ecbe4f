// PlaneStore: the one store through which every raster is allocated and
// reached. A Plane is an 8- or 24-bit raster (1 and 4 bits exist for
// loaders) whose rows are padded to 4 bytes; row 0 is the top, pixels run
// blue, green, red. Three storage kinds stand behind the same row and pixel
// operations: Virtual (a mapping seen through a moving view, with a small
// row cache in front), Physical (one flat block) and Packed (32-row blocks
// kept zlib-compressed in reserved address space).
#pragma once

#include <cstdint>
#include <cstdio>
#include <memory>

#include "platform/platform.h"

enum PlaneKind : uint32_t { Virtual = 0, Physical = 1, Packed = 2 };

// Rows a Virtual plane's cache holds: usually, and while it runs wide.
constexpr int kRowCacheNarrow = 4;
constexpr int kRowCacheWide = 100;

// What stands behind each storage kind; only the store reaches inside.
struct RowSlot;  // row_cache.h
class PlaneMapping;
class PackedRows;

// Columns of one row reached in place (AccessRow).
struct RowAccess {
  uint8_t* bytes;  // the stored bytes of column x0; null when nothing lies inside
  int x0, x1;      // the columns inside the plane
};

struct Plane {
  uint32_t kind;
  int32_t width;
  int32_t height;
  uint32_t stride;
  uint32_t bits;
  uint32_t bytesPerPixel;
  uint8_t palette[256][4];
  int32_t byteSize;
  uint32_t serial;
  RowSlot* rowSlots[kRowCacheWide];
  PlaneMapping* mapping;
  uint32_t rowCacheWide;
  uint32_t rowCacheSize;
  uint8_t* flatBytes;
  PackedRows* packedRows;
};

// Clips columns x0..x1 of row y to the plane, in the order ReadRow and
// WriteRow clip: false when nothing lies inside.
inline bool ClipToPlane(const Plane* plane, int y, int& x0, int& x1) {
  if (y < 0 || y >= plane->height) return false;
  if (x0 < 0) x0 = 0;
  if (x0 > plane->width - 1 || x1 < 0) return false;
  if (x1 > plane->width - 1) x1 = plane->width - 1;
  return x0 <= x1;
}

// Where column x of row y lies in a Physical plane's block.
inline uint8_t* FlatBytesAt(const Plane* plane, int y, int x) {
  return plane->flatBytes + static_cast<size_t>(plane->stride) * y +
         static_cast<size_t>(plane->bytesPerPixel) * x;
}

class PlaneStoreObject {
 public:
  PlaneStoreObject();
  ~PlaneStoreObject();
  PlaneStoreObject(const PlaneStoreObject&) = delete;
  PlaneStoreObject& operator=(const PlaneStoreObject&) = delete;

  // Back to the start state: counter 0, scratch zeroed. Planes stay valid.
  void Reset();

  Plane* CreatePlane(int width, int height, int bits, int fill, int doFill, uint32_t kind);
  void FreePlane(Plane** plane);

  int ReadRow(Plane* plane, int y, int x0, int x1, void* dest);
  int WriteRow(Plane* plane, int y, int x0, int x1, const void* src);
  // Columns x0..x1 of row y in place, clipped as ReadRow clips, for 8 and
  // 24 bits: the flat block of a Physical plane, the row cache's slot of a
  // Virtual one (the row comes to the front, as for ReadRow), the unpacked
  // block of a Packed one. The bytes stay valid until the next operation on
  // the plane. Reading them is ReadRow of those columns; with `write` set,
  // what the caller leaves there is stored as ReadRow followed by WriteRow
  // of the same columns would store it.
  RowAccess AccessRow(Plane* plane, int y, int x0, int x1, int write);
  // A hint that columns x0..x1 of rows y0 to y0 + n - 1 are wanted soon,
  // clipped as ReadRow clips. Physical rows are fetched towards the
  // processor; the other kinds bring rows in through their caches when they
  // are asked for, so nothing is done for them. Out of line: a compiler
  // that saw its body would find it does nothing it must keep, and drop the
  // call.
  void PrefetchRows(const Plane* plane, int y0, int n, int x0, int x1);
  int ReadPixel24(Plane* plane, int x, int y, uint32_t* r, uint32_t* g, uint32_t* b);
  int ReadPixel8(Plane* plane, int x, int y, uint32_t* value);
  int WritePixel24(Plane* plane, int x, int y, uint32_t r, uint32_t g, uint32_t b);
  int WritePixel8(Plane* plane, int x, int y, uint32_t value);

  void FlushRows(Plane* plane);
  void WidenRowCache(Plane* plane);
  void NarrowRowCache(Plane* plane);

  // The stored bytes of row y into dest, which holds a stride: padded rows
  // of a Virtual (rows flushed first) or Physical plane, unpadded of a
  // Packed one. Serves every depth, 1 and 4 bits too.
  void ReadStoredRow(Plane* plane, int y, uint8_t* dest);

  int CopyPlane(Plane* dest, Plane* src);
  int SavePlane(Plane* plane, FILE* file);
  int LoadPlane(Plane* plane, FILE* file);

  uint32_t serial = 0;

 private:
  // The shared work buffer of bulk and file work (scratch.h).
  std::unique_ptr<uint8_t[]> scratch;

  // Storage of each kind for a plane whose record is filled in; false when
  // it can't be had (the caller frees the record).
  bool CreateFlat(Plane* plane, uint8_t fill, int doFill);
  bool CreateMapped(Plane* plane, uint8_t fill, int doFill);
  bool CreatePacked(Plane* plane, uint8_t fill, int doFill);

  // AccessRow of a Virtual or Packed plane, columns already clipped.
  RowAccess AccessCachedRow(Plane* plane, int y, int x0, int x1, int write);

  // Raw bytes of the stored image, padding included, between the plane and
  // the scratch; 0 for a Packed plane.
  int RawRead(Plane* plane, int64_t offset, size_t count);
  int RawWrite(Plane* plane, int64_t offset, size_t count);
};

extern PlaneStoreObject PlaneStore;

// A Physical plane's row is plain arithmetic, done here where the caller
// can inline it.
inline RowAccess PlaneStoreObject::AccessRow(Plane* plane, int y, int x0, int x1, int write) {
  if (!ClipToPlane(plane, y, x0, x1)) return RowAccess{nullptr, 0, -1};
  if (plane->kind != Physical) return AccessCachedRow(plane, y, x0, x1, write);
  return RowAccess{FlatBytesAt(plane, y, x0), x0, x1};
}
