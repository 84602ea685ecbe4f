#include "settings/number_lists.h"

#include <cstdio>

#include "platform/platform.h"

NumberList penSizes{2};
NumberList canvasSizes{2};
NumberList presetLists[2]{NumberList{1}, NumberList{1}};

int NumberList::Count() const {
  int count = 0;
  while (count < kListLimit && column[0][count] >= 0) ++count;
  return count;
}

void NumberList::Clear() {
  for (auto& numbers : column)
    for (int32_t& number : numbers) number = -1;
}

namespace {

// A line that can't be scanned leaves its entry at -1, which ends the list
// there for its users.
int ReadList(const std::string& path, NumberList& list) {
  list.Clear();
  FILE* file = platform::OpenFile(path, "r");
  if (!file) return 0;
  char line[kListLineChars + 1];
  for (int i = 0; i < kListLimit && std::fgets(line, sizeof line, file); ++i) {
    if (list.columns == 2)
      std::sscanf(line, "%d %d", &list.column[0][i], &list.column[1][i]);
    else
      std::sscanf(line, "%d", &list.column[0][i]);
  }
  std::fclose(file);
  return 1;
}

int WriteList(const std::string& path, const NumberList& list) {
  FILE* file = platform::OpenFile(path, "w");
  if (!file) return 0;
  for (int i = 0, count = list.Count(); i < count; ++i) {
    if (list.columns == 2)
      std::fprintf(file, "%d %d\n", list.column[0][i], list.column[1][i]);
    else
      std::fprintf(file, "%d\n", list.column[0][i]);
  }
  std::fclose(file);
  return 1;
}

std::string TListName(int n) {
  char name[16];
  std::snprintf(name, sizeof name, "tlist%02d.dat", n);
  return name;
}

bool IsPresetList(int n) { return n == 0 || n == 1; }

}  // namespace

int ReadPenSizes(const std::string& folder) {
  if (ReadList(folder + "pensize.dat", penSizes)) return 1;
  penSizes.column[0][0] = 1;
  penSizes.column[1][0] = 1;
  return 0;
}

int WritePenSizes(const std::string& folder) { return WriteList(folder + "pensize.dat", penSizes); }

int ReadCanvasSizes(const std::string& folder) {
  return ReadList(folder + "canvsize.dat", canvasSizes);
}

int WriteCanvasSizes(const std::string& folder) {
  return WriteList(folder + "canvsize.dat", canvasSizes);
}

int ReadTList(const std::string& folder, int n) {
  if (!IsPresetList(n)) return 0;
  if (ReadList(folder + TListName(n), presetLists[n])) return 1;
  presetLists[n].column[0][0] = 255;
  return 0;
}

int WriteTList(const std::string& folder, int n) {
  if (!IsPresetList(n)) return 0;
  return WriteList(folder + TListName(n), presetLists[n]);
}
