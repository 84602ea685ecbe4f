// FileFormatRegistry: the file plug-ins found at start, readers in file_r/
// and writers in file_w/ under the program folder, by full path in
// ascending order without case. That order settles every tie between
// plug-ins that list one extension: FindReader takes the first, FindWriter
// the last. A plug-in is chosen by the extension of a file's name alone.
#pragma once

#include <string>
#include <vector>

#include "plugin_abi/file_plugin.h"

constexpr int kRegistrySize = 100;  // entries of each table

struct FileFormatRegistryObject {
  std::vector<std::string> readers, writers;
  std::string programFolder;  // where the scan looked, ending with a separator

  // Fills both tables: every library of the folder whose export
  // ReadFileInfo (or WriteFileInfo) is there, at most 100, then sorted. A
  // reader without it is shown in a box titled "DLL ERROR"; a writer
  // without it is passed over silently.
  void Scan(const std::string& folder);
  // The table index of the plug-in for a path's extension, or -1.
  int FindReader(const std::string& path) const;
  int FindWriter(const std::string& path) const;
  void Reset();
};
extern FileFormatRegistryObject FileFormatRegistry;

// What follows the last "." of a path; the whole path when it has none.
std::string ExtensionOf(const std::string& path);
// Whether a ";"-separated list holds the extension, compared without case.
bool ListsExtension(const char* extensions, const std::string& extension);
// Equal without case, for ASCII letters.
bool SameText(const std::string& a, const std::string& b);

// The record a plug-in fills about itself, from a library loaded for just
// this call; false when it can't be loaded or lacks the export.
bool FetchFormatInfo(const std::string& libraryPath, bool reader, FormatInfo* info);
