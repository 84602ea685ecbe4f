// Changes of the file history (file_history.h holds the entries and the
// file), and the menu items that show it. After each change
// shellWindows.historyChanged runs: the Win32 frame removes items
// 40000..40007 and separator 40100 from both main menus and appends a
// separator and HistoryMenuItems() in order, as plain items.
#pragma once

#include <string>
#include <vector>

// Puts path at the front: a path already listed moves there, a new one
// pushes the others back and drops the last when eight are listed. A path
// longer than a slot holds is cut. Nothing happens for an empty path.
void AddToFileHistory(const std::string& path);
// Empties the history.
void ClearFileHistory();
// The path of history item id (40000..40007); empty if none.
std::string HistoryPath(int id);

struct HistoryMenuItem {
  int id;  // 40000 + entry
  std::string text;
};
// The used entries, newest first.
std::vector<HistoryMenuItem> HistoryMenuItems();
