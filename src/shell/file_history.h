// The list of recently used files, newest first, kept in "fhist.dat".
#pragma once

#include <string>

constexpr int kHistoryEntries = 8;
constexpr int kHistorySlotChars = 300;  // room of an entry in memory
constexpr int kHistoryFileChars = 256;  // bytes of an entry in the file

// Unused entries start with a zero byte.
extern char fileHistory[kHistoryEntries][kHistorySlotChars];

// Reads "fhist.dat" from folder (which ends with a path separator). Entries
// the file doesn't fill are cleared. 0 when the file can't be opened.
int ReadFileHistory(const std::string& folder);
// Writes all entries; 0 when the file can't be created.
int WriteFileHistory(const std::string& folder);
