#include "selection/selection_history.h"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <functional>

#include "base/command_ids.h"
#include "resources/strings.h"
#include "selection/selection_file.h"
#include "selection/selection_windows.h"
#include "settings/settings.h"
#include "settings/side_path.h"

std::string historyFolder;

namespace {

constexpr int kMaxListedNames = 1900;
constexpr int kHighestNumber = 1899;
constexpr int kListRows = 90;

// The history's files in name order, and so in time order; a name that
// repeats the one before it ends the listing.
std::vector<std::string> HistoryNames() {
  if (historyFolder.empty()) return {};
  std::vector<std::string> names = platform::ListFiles(historyFolder, ".hst");
  std::sort(names.begin(), names.end());
  names.erase(std::unique(names.begin(), names.end()), names.end());
  if (names.size() > kMaxListedNames) names.resize(kMaxListedNames);
  return names;
}

bool Writable(const std::string& folder) {
  const std::string probe = platform::TempName(folder + "~tesel-XXXXXX.tmp");
  FILE* file = platform::OpenFile(probe, "wb");
  if (!file) return false;
  std::fclose(file);
  platform::RemoveFile(probe);
  return true;
}

std::string MadeHistoryFolder(const std::string& base) {
  if (base.empty()) return "";
  const std::string folder = SidePath(base, "selhist\\");
  return platform::MakeFolder(folder) && Writable(folder) ? folder : "";
}

void RefillList() {
  if (selectionWindows.refillHistoryList) selectionWindows.refillHistoryList();
}

// The kind's short name: the table's strings, any other kind its number.
std::string ShortName(int kind) {
  struct ShortNameOf {
    int kind, string;
  };
  static constexpr ShortNameOf kShortNames[] = {{cmd::kSelectionBox, 23000},
                                                {cmd::kSelectionLine, 23001},
                                                {cmd::kSelectionCircle, 23002},
                                                {cmd::kSelectionPolygon, 23003},
                                                {cmd::kSeedFill, 23004},
                                                {cmd::kConnectLine, 23005},
                                                {cmd::kWire, 23006},
                                                {cmd::kSplineCurve, 23007},
                                                {cmd::kBezier, 23008},
                                                {cmd::kFreeBezier, 23008}};
  for (const ShortNameOf& entry : kShortNames)
    if (entry.kind == kind) return StringText(entry.string);
  char text[16];
  std::snprintf(text, sizeof text, "[%d]", kind);
  return text;
}

std::string LabelOf(const std::string& name, const SelectionFileHead& head) {
  char text[96] = "";
  const int number = HistoryNumberOf(name);
  if (number >= 0) std::snprintf(text, sizeof text, "%d:", number);
  std::string label = text + ShortName(head.kind);
  // The kinds with a box show it.
  if (head.kind < cmd::kSeedFill) {
    std::snprintf(text, sizeof text, "[%d,%d]-[%d,%d]", head.left, head.top, head.right,
                  head.bottom);
    label += text;
  }
  return label;
}

}  // namespace

void ChooseHistoryFolder(const std::string& programFolder) {
  historyFolder = MadeHistoryFolder(programFolder);
  if (historyFolder.empty()) historyFolder = MadeHistoryFolder(platform::UserDataFolder());
}

std::string HistoryName(const platform::LocalDateTime& time, int number) {
  char name[64];
  std::snprintf(name, sizeof name, "%04d%02d%02d%02d%02d%02d_%04d.hst", time.year, time.month,
                time.day, time.hour, time.minute, time.second, number);
  return name;
}

int HistoryNumberOf(const std::string& name) {
  const size_t mark = name.rfind('_');
  if (mark == std::string::npos || name.size() < mark + 5) return -1;
  int number = 0;
  for (size_t i = mark + 1; i < mark + 5; ++i) {
    if (!std::isdigit(static_cast<unsigned char>(name[i]))) return -1;
    number = number * 10 + (name[i] - '0');
  }
  return number;
}

int NextHistoryNumber() {
  const std::vector<std::string> names = HistoryNames();
  if (names.empty()) return 0;
  for (int n = 1; n <= kHighestNumber; ++n)
    if (std::none_of(names.begin(), names.end(),
                     [n](const std::string& name) { return HistoryNumberOf(name) == n; }))
      return n;
  return 0;
}

void AddHistoryEntry(Canvas* canvas) {
  if (historyFolder.empty()) return;
  const int number = NextHistoryNumber();
  SaveSelection(historyFolder + HistoryName(platform::LocalTime(), number), canvas);
  TrimHistory();
  RefillList();
}

void TrimHistory() {
  const std::vector<std::string> names = HistoryNames();
  const size_t limit = static_cast<size_t>(std::max(settings.selectionHistorySize, 0));
  for (size_t i = 0; i + limit < names.size(); ++i) platform::RemoveFile(historyFolder + names[i]);
}

std::vector<HistoryLine> HistoryLines() {
  std::vector<std::string> names = HistoryNames();
  std::sort(names.begin(), names.end(), std::greater<>());
  std::vector<HistoryLine> lines;
  for (const std::string& name : names) {
    if (lines.size() == kListRows) break;
    SelectionFileHead head;
    if (ReadSelectionHead(historyFolder + name, &head))
      lines.push_back({name, LabelOf(name, head)});
  }
  return lines;
}

int RecallHistoryEntry(const std::string& name, Canvas* canvas) {
  if (historyFolder.empty() || !LoadSelection(historyFolder + name, canvas)) return 0;
  const std::string fresh = HistoryName(platform::LocalTime(), std::max(HistoryNumberOf(name), 0));
  if (fresh != name) platform::MoveFileOver(historyFolder + name, historyFolder + fresh);
  RefillList();
  return 1;
}
