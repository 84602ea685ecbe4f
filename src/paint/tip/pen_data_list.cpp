#include "paint/tip/pen_data_list.h"

#include <cstring>
#include <vector>

#include "paint/tip/dot_pen.h"
#include "paint/tip/folder_listing.h"
#include "paint/tip/pen_record.h"
#include "settings/side_path.h"

PenDataListObject PenDataList;

namespace {

// Names too long for an entry are passed over.
int Fill(char (*entries)[kPenNameBytes], int limit, const std::vector<std::string>& names) {
  int count = 0;
  for (const std::string& name : names) {
    if (count == limit) break;
    if (name.size() >= size_t(kPenNameBytes)) continue;
    std::memcpy(entries[count], name.c_str(), name.size() + 1);
    ++count;
  }
  return count;
}

}  // namespace

void PenDataListObject::Reset() {
  std::memset(folders, 0, sizeof folders);
  std::memset(files, 0, sizeof files);
  folderCount = fileCount = 0;
  folderInUse = fileInUse = 0;
  programFolder_.clear();
}

int PenDataListObject::Read(const std::string& programFolder) {
  Reset();
  programFolder_ = programFolder;
  folderCount = Fill(folders, kPenFolderLimit,
                     ListFolder(SidePath(programFolder, "pendata"), EntryKind::Folder));
  if (folderCount) SelectFolder(0);
  return folderCount;
}

int PenDataListObject::SelectFolder(int index) {
  if (index < 0 || index >= folderCount) return 0;
  folderInUse = index;
  fileInUse = 0;
  std::memset(files, 0, sizeof files);
  std::string family = SidePath(programFolder_, std::string("pendata\\") + folders[index]);
  fileCount = Fill(files, kPenFileLimit, ListFolder(family, EntryKind::File, ".bmp"));
  return 1;
}

int PenDataListObject::NextFolder() {
  if (!folderCount) return 0;
  return SelectFolder((folderInUse + 1) % folderCount);
}

std::string PenDataListObject::FilePath(int index) const {
  if (index < 0 || index >= fileCount) return "";
  return SidePath(programFolder_,
                  std::string("pendata\\") + folders[folderInUse] + "\\" + files[index]);
}

int PenDataListObject::PickDotPen(int index) {
  if (index < 0 || index >= fileCount) return 0;
  Plane* tip = LoadDotTip(FilePath(index));
  if (!tip) return 0;
  PlaneStore.FreePlane(&tipState.dotTip);
  tipState.dotTip = tip;
  fileInUse = index;
  return 1;
}
