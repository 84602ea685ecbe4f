#include "file/plugin_registry.h"

#include <algorithm>
#include <cctype>
#include <cstring>

#include "file/plugin_library.h"
#include "platform/platform.h"

FileFormatRegistryObject FileFormatRegistry;

namespace {

char Lower(char c) { return static_cast<char>(std::tolower(static_cast<unsigned char>(c))); }

bool LessWithoutCase(const std::string& a, const std::string& b) {
  return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(),
                                      [](char x, char y) { return Lower(x) < Lower(y); });
}

// One folder's libraries in the order the system lists them; the listing
// ends at a name met twice or at the 100th entry.
std::vector<std::string> ScanFolder(const std::string& folder, bool reader) {
  std::vector<std::string> found, seen;
  for (const std::string& name : platform::ListFiles(folder, platform::LibrarySuffix())) {
    if (std::find(seen.begin(), seen.end(), name) != seen.end()) break;
    seen.push_back(name);
    const std::string path = folder + name;
    PluginLibrary library(path);
    if (library.Entry<ReadFileInfoFn>(reader ? "ReadFileInfo" : "WriteFileInfo")) {
      found.push_back(path);
      if (found.size() == kRegistrySize) break;
    } else if (reader) {
      platform::ShowMessageBox(platform::Window::Frame, path, "DLL ERROR", platform::MbOk);
    }
  }
  // Stable, as neighbours swapped one by one would leave equal names.
  std::stable_sort(found.begin(), found.end(), LessWithoutCase);
  return found;
}

int Find(const std::vector<std::string>& table, bool reader, const std::string& path,
         bool lastWins) {
  const std::string extension = ExtensionOf(path);
  int hit = -1;
  for (size_t i = 0; i < table.size() && !table[i].empty(); ++i) {
    FormatInfo info;
    if (!FetchFormatInfo(table[i], reader, &info) || !ListsExtension(info.extensions, extension))
      continue;
    hit = static_cast<int>(i);
    if (!lastWins) break;
  }
  return hit;
}

}  // namespace

bool SameText(const std::string& a, const std::string& b) {
  return a.size() == b.size() &&
         std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) { return Lower(x) == Lower(y); });
}

std::string ExtensionOf(const std::string& path) {
  const size_t dot = path.rfind('.');
  return dot == std::string::npos ? path : path.substr(dot + 1);
}

bool ListsExtension(const char* extensions, const std::string& extension) {
  const std::string list = extensions;
  for (size_t start = 0;;) {
    const size_t end = list.find(';', start);
    if (SameText(list.substr(start, end - start), extension)) return true;
    if (end == std::string::npos) return false;
    start = end + 1;
  }
}

bool FetchFormatInfo(const std::string& libraryPath, bool reader, FormatInfo* info) {
  std::memset(info, 0, sizeof *info);
  PluginLibrary library(libraryPath);
  auto fill = library.Entry<ReadFileInfoFn>(reader ? "ReadFileInfo" : "WriteFileInfo");
  if (!fill) return false;
  fill(platform::PluginWindow(platform::Window::StatusBar), info);
  // A plug-in's texts are read up to their fields' ends only.
  info->extensions[sizeof info->extensions - 1] = '\0';
  info->description[sizeof info->description - 1] = '\0';
  return true;
}

void FileFormatRegistryObject::Scan(const std::string& folder) {
  programFolder = folder;
  readers = ScanFolder(programFolder + "file_r" + programFolder.back(), true);
  writers = ScanFolder(programFolder + "file_w" + programFolder.back(), false);
}

int FileFormatRegistryObject::FindReader(const std::string& path) const {
  return Find(readers, true, path, false);
}

int FileFormatRegistryObject::FindWriter(const std::string& path) const {
  return Find(writers, false, path, true);
}

void FileFormatRegistryObject::Reset() {
  readers.clear();
  writers.clear();
  programFolder.clear();
}
