// The popup of the size button: every entry of the size list as
// "%d x %d", a separator, then "Add" and "Edit...".
#pragma once

#include <string>
#include <vector>

// Item numbers of the two commands; entries are numbered by their index.
constexpr int kSizeMenuAdd = 1000;
constexpr int kSizeMenuEdit = 1001;

struct SizeMenuItem {
  int id;            // entry index, kSizeMenuAdd or kSizeMenuEdit; -1 for the separator
  std::string text;  // empty for the separator
  bool checked;      // the entry of the pen's own size
};

std::vector<SizeMenuItem> SizeMenuItems();

enum class SizeMenuResult { None, Picked, Added, Edit };
// Does what the item stands for: an entry becomes the pen's size (and the
// tip is rebuilt), "Add" stores the pen's size in the list; "Edit..." is
// the caller's, which opens the list dialog.
SizeMenuResult ChooseSizeMenuItem(int id);

// The pen's size as the list keeps sizes: trunc(2 r + 1) each way, or the
// dot tip's size while it is the tip in use.
int CurrentPenWidth();
int CurrentPenHeight();
// "%d x %d" of that size.
std::string CurrentPenSizeLabel();
