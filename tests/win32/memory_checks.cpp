// Mappings, views, reserved ranges and mapping names, used as the plane
// store uses them: views at multiples of the allocation granularity, pages
// committed one at a time, names made from "pmemfileXXXXXX" and a serial.
#include <algorithm>
#include <cctype>
#include <cstdint>
#include <cstring>

#include "platform/win32/win32_platform.h"
#include "seam_check.h"

namespace seam_check {

namespace {

// A byte that tells which view wrote it and at what index.
uint8_t PatternByte(uint64_t viewIndex, size_t i) { return static_cast<uint8_t>(viewIndex * 37 + i % 251 + 1); }

bool AllZero(const uint8_t* bytes, size_t n) {
  return std::all_of(bytes, bytes + n, [](uint8_t b) { return b == 0; });
}

}  // namespace

void CheckMappings() {
  const uint32_t unit = platform::AllocationGranularity();
  const uint64_t units = 5;
  const std::string name = platform::TempName("pmemfileXXXXXX");
  platform::MappingHandle first = platform::CreateMapping(units * unit, name + "_1");
  platform::MappingHandle second = platform::CreateMapping(units * unit, name + "_2");
  Report("page-file mappings are made; the granularity is a power of two",
         first && second && unit >= 4096 && (unit & (unit - 1)) == 0, std::to_string(unit));
  if (!first || !second) return;

  // A pattern through one view per granularity step, read back through one view over all.
  bool fresh = true;
  for (uint64_t k = 0; k < units; ++k) {
    auto* view = static_cast<uint8_t*>(platform::MapView(first, k * unit, unit));
    fresh = fresh && view && AllZero(view, unit);
    for (size_t i = 0; view && i < unit; ++i) view[i] = PatternByte(k, i);
    platform::UnmapView(view, unit);
  }
  auto* whole = static_cast<uint8_t*>(platform::MapView(first, 0, units * unit));
  bool same = whole != nullptr;
  for (uint64_t i = 0; same && i < units * unit; ++i) same = whole[i] == PatternByte(i / unit, i % unit);
  platform::UnmapView(whole, units * unit);
  Report("views map at each multiple of the granularity, read zeros new, and one view sees them all",
         fresh && same);
  void* unaligned = platform::MapView(first, unit / 2, 16);
  Report("a view at an offset off the granularity is refused", unaligned == nullptr);
  platform::UnmapView(unaligned, 16);

  // The serial after the name keeps two planes apart.
  platform::MappingHandle again = platform::CreateMapping(units * unit, name + "_1");
  auto* sameName = static_cast<uint8_t*>(platform::MapView(again, 0, unit));
  auto* otherName = static_cast<uint8_t*>(platform::MapView(second, 0, unit));
  Report("the same name opens the same memory, another serial other memory",
         sameName && otherName && sameName[0] == PatternByte(0, 0) && AllZero(otherName, unit));
  for (void* view : {sameName, otherName}) platform::UnmapView(view, unit);
  for (platform::MappingHandle mapping : {again, second, first}) platform::CloseMapping(mapping);
}

void CheckReservedRanges() {
  SYSTEM_INFO info;
  GetSystemInfo(&info);
  const size_t page = info.dwPageSize, pages = 64;
  auto* base = static_cast<uint8_t*>(platform::ReserveRange(pages * page));
  Report("an address range is reserved", base != nullptr);
  if (!base) return;
  // The store commits on first touch, one byte at the touched address.
  bool good = true;
  for (size_t k : {size_t{0}, size_t{7}, pages - 1}) {
    uint8_t* start = base + k * page;
    good = good && platform::CommitRange(start + 123, 1) && AllZero(start, page);
    if (good) std::memset(start, static_cast<int>(k + 1), page);
    good = good && start[0] == k + 1 && start[page - 1] == k + 1;
  }
  MEMORY_BASIC_INFORMATION touched{}, neighbour{}, released{};
  VirtualQuery(base + 7 * page, &touched, sizeof touched);
  VirtualQuery(base + 8 * page, &neighbour, sizeof neighbour);
  Report("single pages commit, read zeros and keep writes; a commit covers its own page only",
         good && touched.State == MEM_COMMIT && touched.RegionSize == page && neighbour.State == MEM_RESERVE);
  platform::ReleaseRange(base, pages * page);
  VirtualQuery(base, &released, sizeof released);
  Report("a released range is free, and committing in it is refused",
         released.State == MEM_FREE && !platform::CommitRange(base, 1));
}

void CheckTempNames() {
  const std::string name = platform::TempName("pmemfileXXXXXX");
  bool plain = name.size() == 14 && name.compare(0, 8, "pmemfile") == 0;
  for (size_t i = 8; plain && i < name.size(); ++i)
    plain = std::isalnum(static_cast<unsigned char>(name[i])) && name[i] != 'X';
  Report("TempName fills the Xs of \"pmemfileXXXXXX\"", plain, name);
}

}  // namespace seam_check
