// Names in a folder, by UTF-8 path, in byte order.
#pragma once

#include <string>
#include <vector>

enum class EntryKind { Folder, File };

// The subfolders, or the files whose names end in suffix (any case), of
// folder. Empty when the folder can't be read.
std::vector<std::string> ListFolder(const std::string& folder, EntryKind kind,
                                    const std::string& suffix = "");
