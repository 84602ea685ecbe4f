// The page-file mapping behind a Virtual plane, seen through one moving
// view. A view is one tenth of the plane (rounded to the allocation
// granularity), so a plane is never mapped whole.
#pragma once

#include <cstddef>
#include <cstdint>

#include "platform/platform.h"

class PlaneMapping {
 public:
  PlaneMapping() = default;
  virtual ~PlaneMapping();
  PlaneMapping(const PlaneMapping&) = delete;
  PlaneMapping& operator=(const PlaneMapping&) = delete;

  // Makes the mapping object for a plane of byteSize bytes; the serial
  // makes its name unique. 0, or -1 after reporting the system's error.
  int Create(int32_t byteSize, uint32_t serial);

  // Copy count bytes at offset out of or into the mapping; 0, or -1 when
  // there is no mapping or no view could be mapped.
  int Read(uint64_t offset, size_t count, void* dest);
  int Write(uint64_t offset, size_t count, const void* src);

  uint64_t viewSize = 0;
  uint8_t* view = nullptr;
  uint64_t totalSize = 0;
  uint64_t viewOffset = 0;
  uint64_t viewUnit = 0;
  platform::MappingHandle mapHandle = nullptr;
  uint32_t granularity = 0;

 private:
  // The address of offset in a view covering offset..offset + count,
  // moving the view if need be; null when the view can't be mapped.
  uint8_t* Locate(uint64_t offset, size_t count);
};

// Shows the system's text for the last error in a box captioned "Error";
// nothing when the last error is 0.
void ReportLastError();
