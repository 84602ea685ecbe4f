#include "paint/tip/folder_listing.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <system_error>

namespace fs = std::filesystem;

namespace {

// Paths go through char8_t so that names are UTF-8 on every system.
fs::path PathOf(const std::string& utf8) {
  return fs::path(std::u8string(utf8.begin(), utf8.end()));
}

std::string NameOf(const fs::path& path) {
  std::u8string name = path.filename().u8string();
  return std::string(name.begin(), name.end());
}

bool EndsWith(const std::string& name, const std::string& suffix) {
  if (name.size() < suffix.size()) return false;
  return std::equal(suffix.begin(), suffix.end(), name.end() - suffix.size(), [](char a, char b) {
    return std::tolower(static_cast<unsigned char>(a)) ==
           std::tolower(static_cast<unsigned char>(b));
  });
}

}  // namespace

std::vector<std::string> ListFolder(const std::string& folder, EntryKind kind,
                                    const std::string& suffix) {
  std::vector<std::string> names;
  std::error_code error;
  fs::directory_iterator it(PathOf(folder), error), end;
  for (; !error && it != end; it.increment(error)) {
    bool isFolder = it->is_directory(error);
    if (error) break;
    if (isFolder != (kind == EntryKind::Folder)) continue;
    std::string name = NameOf(it->path());
    if (EndsWith(name, suffix)) names.push_back(std::move(name));
  }
  std::sort(names.begin(), names.end());
  return names;
}
