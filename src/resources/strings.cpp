#include "resources/strings.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>

extern const StringEntry kStringTable[];
extern const int kStringCount;

const char* StringText(int id) {
  // The generated table is sorted by id on first use; it is small.
  static const std::vector<StringEntry> sorted = [] {
    std::vector<StringEntry> table(kStringTable, kStringTable + kStringCount);
    std::sort(table.begin(), table.end(),
              [](const StringEntry& a, const StringEntry& b) { return a.id < b.id; });
    return table;
  }();
  auto it = std::lower_bound(sorted.begin(), sorted.end(), id,
                             [](const StringEntry& e, int key) { return e.id < key; });
  return it != sorted.end() && it->id == id ? it->text : "";
}

std::string FormatString(int id, ...) {
  va_list args;
  va_start(args, id);
  va_list again;
  va_copy(again, args);
  int n = std::vsnprintf(nullptr, 0, StringText(id), args);
  va_end(args);
  std::string out(n > 0 ? static_cast<size_t>(n) : 0, '\0');
  if (n > 0) std::vsnprintf(out.data(), out.size() + 1, StringText(id), again);
  va_end(again);
  return out;
}
