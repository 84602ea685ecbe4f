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

constexpr int kScratchBytes = 2000000;
constexpr int kChunkBytes = 1999900;        // a chunk always fits the scratch with room to spare
constexpr int kProgressThreshold = 1000001; // bulk work of this many bytes reports progress
constexpr int kRowCacheNarrow = 4;
constexpr int kRowCacheWide = 100;
constexpr int kRowsPerBlock = 32;

struct RowSlot {
  uint8_t* rowBytes;  // stride + 100 bytes
  int32_t row;        // -1 when free
  int32_t touchedLow, touchedHigh;
  int32_t dirtyLow, dirtyHigh;
};

class PlaneMapping;
class PackedRows;
#ifdef _WIN32
struct HDC__;  // a device context handle, as <windows.h> declares it
#endif

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
  int ReadPixel24(Plane* plane, int x, int y, uint32_t* r, uint32_t* g, uint32_t* b);
  int ReadPixel8(Plane* plane, int x, int y, uint32_t* value);
  int WritePixel24(Plane* plane, int x, int y, uint32_t r, uint32_t g, uint32_t b);
  int WritePixel8(Plane* plane, int x, int y, uint32_t value);

  void FlushRows(Plane* plane);
  void WidenRowCache(Plane* plane);
  void NarrowRowCache(Plane* plane);

  int CopyPlane(Plane* dest, Plane* src);
  int SavePlane(Plane* plane, FILE* file);
  int LoadPlane(Plane* plane, FILE* file);

#ifdef _WIN32
  // Painting through a device context (HDC); the Windows build only.
  int DrawPlane(HDC__* hdc, Plane* plane, int x, int y);
  int DrawPlaneStretched(HDC__* hdc, Plane* plane, int x, int y, int w, int h,
                         uint32_t rop);
#endif

  // The shared work buffer of kScratchBytes bytes, for bulk and file work.
  uint8_t* Scratch() { return scratch.get(); }

  std::unique_ptr<uint8_t[]> scratch;
  uint32_t serial = 0;

 private:
  // Storage of each kind for a plane whose record is filled in; false when
  // it can't be had (the caller frees the record).
  bool CreateFlat(Plane* plane, uint8_t fill, int doFill);
  bool CreateMapped(Plane* plane, uint8_t fill, int doFill);
  bool CreatePacked(Plane* plane, uint8_t fill, int doFill);

  // Raw bytes of the stored image, padding included, between the plane and
  // the scratch; 0 for a Packed plane.
  int RawRead(Plane* plane, int64_t offset, size_t count);
  int RawWrite(Plane* plane, int64_t offset, size_t count);
  // The stored bytes of row y into dest, which holds a stride: padded rows
  // of a Virtual (rows flushed first) or Physical plane, unpadded of a
  // Packed one. Serves every depth, 1 and 4 bits too.
  void ReadStoredRow(Plane* plane, int y, uint8_t* dest);
};

extern PlaneStoreObject PlaneStore;
