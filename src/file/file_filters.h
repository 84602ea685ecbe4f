// The filter lists of the Open and Save dialogs, made from the plug-ins:
// one entry per extension each plug-in lists, in table order.
#pragma once

#include <string>
#include <vector>

struct FileFilter {
  std::string text;     // "%s[%s]" of the description and "*." + extension
  std::string pattern;  // "*." + extension, or the patterns joined by ';'
  int writer = -1;      // Save: the writer's table index
  std::string extension;
};

// Every reader's extensions, the comic tool's "*.mff" when its reader is in
// the program folder, then "All Image Files" (string 20005) with all the
// patterns joined. A reader whose record can't be had is shown in a box
// titled "Error" and left out.
std::vector<FileFilter> OpenFilters();

// Every writer's extensions, but for a writer that takes neither 8 nor 24
// bits.
std::vector<FileFilter> SaveFilters();

// The name a save dialog confirmed, with the chosen filter's extension in
// place of whatever followed its last dot (searched back to a separator).
std::string WithExtension(const std::string& chosen, const std::string& extension);
