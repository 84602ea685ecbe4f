// Mappings, views, reserved ranges and mapping names, used as the plane
// store uses them: views at multiples of the allocation granularity, pages
// committed one at a time, names made from "pmemfileXXXXXX" and a serial.
#include <cctype>
#include <cstdint>
#include <cstring>

#include "platform/win32/win32_platform.h"
#include "seam_check.h"

namespace seam_check {

namespace {

// A byte that tells where it stands: which view wrote it and at what index.
uint8_t PatternByte(uint64_t viewIndex, size_t i) {
  return static_cast<uint8_t>(viewIndex * 37 + i % 251 + 1);
}

bool AllZero(const uint8_t* bytes, size_t n) {
  for (size_t i = 0; i < n; ++i)
    if (bytes[i] != 0) return false;
  return true;
}

// Writes a pattern through one view per granularity step, then reads all of
// it through a single view over the whole mapping.
void CheckViews(platform::MappingHandle mapping, uint32_t unit, uint64_t units) {
  bool zeros = true, mapped = true;
  for (uint64_t k = 0; k < units; ++k) {
    auto* view = static_cast<uint8_t*>(platform::MapView(mapping, k * unit, unit));
    if (!view) {
      mapped = false;
      continue;
    }
    zeros = zeros && AllZero(view, unit);
    for (size_t i = 0; i < unit; ++i) view[i] = PatternByte(k, i);
    platform::UnmapView(view, unit);
  }
  Report("views at each multiple of the granularity map, and a new mapping reads zeros",
         mapped && zeros);

  auto* whole = static_cast<uint8_t*>(platform::MapView(mapping, 0, units * unit));
  bool same = whole != nullptr;
  for (uint64_t k = 0; same && k < units; ++k)
    for (size_t i = 0; same && i < unit; ++i) same = whole[k * unit + i] == PatternByte(k, i);
  Report("one view over the whole mapping sees what the small views wrote", same);
  platform::UnmapView(whole, units * unit);

  void* unaligned = platform::MapView(mapping, unit / 2, 16);
  Report("a view at an offset off the granularity is refused", unaligned == nullptr);
  platform::UnmapView(unaligned, 16);
}

}  // namespace

void CheckMappings() {
  const uint32_t unit = platform::AllocationGranularity();
  Report("allocation granularity is a power of two",
         unit >= 4096 && (unit & (unit - 1)) == 0, std::to_string(unit));
  const uint64_t units = 5;
  const std::string name = platform::TempName("pmemfileXXXXXX");
  platform::MappingHandle first = platform::CreateMapping(units * unit, name + "_1");
  platform::MappingHandle second = platform::CreateMapping(units * unit, name + "_2");
  Report("page-file mappings are made", first && second);
  if (!first || !second) return;
  CheckViews(first, unit, units);

  // The serial after the name is what keeps two planes apart: the same name
  // opens the same memory, another serial new memory.
  platform::MappingHandle again = platform::CreateMapping(units * unit, name + "_1");
  auto* sameName = static_cast<uint8_t*>(platform::MapView(again, 0, unit));
  auto* otherName = static_cast<uint8_t*>(platform::MapView(second, 0, unit));
  Report("a mapping name with another serial is other memory, the same name the same",
         sameName && otherName && sameName[0] == PatternByte(0, 0) && AllZero(otherName, unit));
  platform::UnmapView(sameName, unit);
  platform::UnmapView(otherName, unit);
  platform::CloseMapping(again);
  platform::CloseMapping(second);
  platform::CloseMapping(first);
}

void CheckReservedRanges() {
  SYSTEM_INFO info;
  GetSystemInfo(&info);
  const size_t page = info.dwPageSize;
  const size_t pages = 64;
  auto* base = static_cast<uint8_t*>(platform::ReserveRange(pages * page));
  Report("an address range is reserved", base != nullptr);
  if (!base) return;

  // The store commits on first touch, one byte at the touched address.
  bool committed = true, zeros = true, kept = true;
  for (size_t k : {size_t{0}, size_t{7}, pages - 1}) {
    uint8_t* start = base + k * page;
    committed = committed && platform::CommitRange(start + 123, 1);
    if (!committed) break;
    zeros = zeros && AllZero(start, page);
    std::memset(start, static_cast<int>(k + 1), page);
    kept = kept && start[0] == k + 1 && start[page - 1] == k + 1;
  }
  Report("single pages commit inside the range and read zeros, then keep writes",
         committed && zeros && kept);

  MEMORY_BASIC_INFORMATION touched{}, neighbour{};
  VirtualQuery(base + 7 * page, &touched, sizeof touched);
  VirtualQuery(base + 8 * page, &neighbour, sizeof neighbour);
  Report("a commit covers its own page only",
         touched.State == MEM_COMMIT && touched.RegionSize == page && neighbour.State == MEM_RESERVE);

  platform::ReleaseRange(base, pages * page);
  MEMORY_BASIC_INFORMATION released{};
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
