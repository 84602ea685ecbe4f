// The selection history: each selection the user commits is saved by
// itself as a selection file in the history folder, named by the local
// time and a running number, so that an earlier one can be recalled from
// a list, on any picture. The history is its files only.
#pragma once

#include <string>
#include <vector>

#include "document/canvas.h"
#include "platform/platform.h"

// Where the history lives, ending with a separator: "selhist" in the
// program folder, or in the user's own folder where the program folder
// can't be written; empty when neither can be had, and then nothing is
// kept. Chosen (and the folder made) by ChooseHistoryFolder at start.
extern std::string historyFolder;
void ChooseHistoryFolder(const std::string& programFolder);

// "%04d%02d%02d%02d%02d%02d_%04d.hst": the name sorts by time.
std::string HistoryName(const platform::LocalDateTime& time, int number);
// The four digits after the last "_" of the name; -1 without an "_" or
// digits there.
int HistoryNumberOf(const std::string& name);
// The lowest number from 1 to 1899 that no file holds; 0 when there is no
// file at all, or when all are taken.
int NextHistoryNumber();

// The canvas's selection saved under a new name (a shapeless one leaves
// nothing), the oldest files beyond the limit deleted, the list refilled.
void AddHistoryEntry(Canvas* canvas);
// Deletes the oldest files while more than settings.selectionHistorySize
// stand.
void TrimHistory();
// The range the history's settings dialog takes; at start the setting is
// held to 5..100.
constexpr int kHistoryLimitLow = 5, kHistoryLimitHigh = 1000;

// A line of the history's list: the file and what the list shows.
struct HistoryLine {
  std::string name;
  std::string label;
};
// Newest first, at most 90; files that can't be opened are left out.
std::vector<HistoryLine> HistoryLines();

// The entry loaded into the canvas and renamed to the present time with
// its number kept, so it becomes the newest. 0 when it can't be loaded.
int RecallHistoryEntry(const std::string& name, Canvas* canvas);
