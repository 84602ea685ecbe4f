#include "store/plane_mapping.h"

#include <cstdio>
#include <cstring>
#include <string>

namespace {

uint64_t RoundUp(uint64_t value, uint64_t unit) { return (value + unit - 1) / unit * unit; }

}  // namespace

void ReportLastError() {
  uint32_t code = platform::LastError();
  if (code != 0)
    platform::ShowMessageBox(platform::Window::None, platform::ErrorText(code), "Error",
                             platform::MbOk);
}

PlaneMapping::~PlaneMapping() {
  platform::UnmapView(view, viewSize);
  platform::CloseMapping(mapHandle);
}

int PlaneMapping::Create(int32_t byteSize, uint32_t serial) {
  std::string unique = platform::TempName("pmemfileXXXXXX");
  char name[64];
  std::snprintf(name, sizeof name, "%s_%d", unique.c_str(), static_cast<int>(serial));

  granularity = platform::AllocationGranularity();
  uint64_t total = RoundUp(static_cast<uint64_t>(byteSize), granularity);
  viewUnit = RoundUp(total / 10, granularity);
  // A view aligned down to a unit and grown by whole units can't run past the end.
  totalSize = total + viewUnit;
  mapHandle = platform::CreateMapping(totalSize, name);
  if (!mapHandle) {
    ReportLastError();
    return -1;
  }
  return 0;
}

uint8_t* PlaneMapping::Locate(uint64_t offset, size_t count) {
  if (view && offset >= viewOffset && offset + count <= viewOffset + viewSize)
    return view + (offset - viewOffset);
  platform::UnmapView(view, viewSize);
  uint64_t rem = offset % viewUnit;
  viewOffset = offset - rem;
  viewSize = (viewUnit + rem + count - 1) / viewUnit * viewUnit;
  view = static_cast<uint8_t*>(platform::MapView(mapHandle, viewOffset, viewSize));
  if (!view) {
    ReportLastError();
    viewSize = 0;
    return nullptr;
  }
  return view + rem;
}

int PlaneMapping::Read(uint64_t offset, size_t count, void* dest) {
  if (!mapHandle) return -1;
  if (count == 0) return 0;
  // The copy is short; the view must not be paged away under it.
  platform::PriorityBoost boost(platform::PriorityTimeCritical);
  const uint8_t* at = Locate(offset, count);
  if (!at) return -1;
  std::memcpy(dest, at, count);
  return 0;
}

int PlaneMapping::Write(uint64_t offset, size_t count, const void* src) {
  if (!mapHandle) return -1;
  if (count == 0) return 0;
  platform::PriorityBoost boost(platform::PriorityTimeCritical);
  uint8_t* at = Locate(offset, count);
  if (!at) return -1;
  std::memcpy(at, src, count);
  return 0;
}
