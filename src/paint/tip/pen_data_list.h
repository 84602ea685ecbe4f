// The dot pen families: the subfolders of "pendata" in the program folder,
// and the ".bmp" files of the one in use, each list in byte order.
#pragma once

#include <cstdint>
#include <string>

constexpr int kPenFolderLimit = 20;
constexpr int kPenFileLimit = 30;
constexpr int kPenNameBytes = 40;  // a name with its terminating zero

class PenDataListObject {
 public:
  // Lists the families under programFolder (which ends with a path
  // separator) and the files of the first. A missing "pendata" folder
  // leaves both lists empty; returns the number of families.
  int Read(const std::string& programFolder);
  // Makes family index the one in use and lists its files; 0 when there is
  // no such family.
  int SelectFolder(int index);
  // The family after the one in use, wrapping to the first.
  int NextFolder();
  // Loads file index of the family in use as dotTip, replacing the one
  // before; 0 when there is no such file in the list.
  int PickDotPen(int index);
  // The path of file index of the family in use; "" when there is none.
  std::string FilePath(int index) const;
  // Empty lists, nothing in use.
  void Reset();

  char folders[kPenFolderLimit][kPenNameBytes] = {};
  int32_t folderCount = 0;
  char files[kPenFileLimit][kPenNameBytes] = {};
  int32_t fileCount = 0;
  int32_t folderInUse = 0;
  int32_t fileInUse = 0;

 private:
  std::string programFolder_;
};

extern PenDataListObject PenDataList;
