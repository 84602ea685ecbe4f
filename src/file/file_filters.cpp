#include "file/file_filters.h"

#include "file/plugin_registry.h"
#include "platform/platform.h"
#include "resources/strings.h"

namespace {

constexpr int kStringAllImageFiles = 20005;

// One entry per extension of a ";"-separated list.
void AddEntries(const FormatInfo& info, int writer, std::vector<FileFilter>* out) {
  const std::string list = info.extensions;
  for (size_t start = 0; start <= list.size();) {
    size_t end = list.find(';', start);
    if (end == std::string::npos) end = list.size();
    const std::string extension = list.substr(start, end - start);
    if (!extension.empty())
      out->push_back({std::string(info.description) + "[*." + extension + "]", "*." + extension,
                      writer, extension});
    start = end + 1;
  }
}

}  // namespace

std::vector<FileFilter> OpenFilters() {
  std::vector<FileFilter> filters;
  std::string all;
  for (const std::string& reader : FileFormatRegistry.readers) {
    FormatInfo info;
    if (!FetchFormatInfo(reader, true, &info)) {
      platform::ShowMessageBox(platform::Window::Frame, reader, "Error", platform::MbOk);
      continue;
    }
    const size_t before = filters.size();
    AddEntries(info, -1, &filters);
    for (size_t i = before; i < filters.size(); ++i)
      all += (all.empty() ? "" : ";") + filters[i].pattern;
  }
  // The comic tool of an outside maker reads its own files, through
  // whichever reader lists "mff".
  const std::string& folder = FileFormatRegistry.programFolder;
  if (!folder.empty() &&
      platform::FileExists(folder + "comictool" + folder.back() + "comicreader" + platform::LibrarySuffix())) {
    filters.push_back({"コミックツール(*.mff)", "*.mff", -1, "mff"});
    if (!all.empty()) all += ';';
    all += "*.mff";
  }
  filters.push_back({StringText(kStringAllImageFiles), all, -1, ""});
  return filters;
}

std::vector<FileFilter> SaveFilters() {
  std::vector<FileFilter> filters;
  for (size_t i = 0; i < FileFormatRegistry.writers.size(); ++i) {
    FormatInfo info;
    if (!FetchFormatInfo(FileFormatRegistry.writers[i], false, &info)) {
      platform::ShowMessageBox(platform::Window::Frame, FileFormatRegistry.writers[i], "Error",
                               platform::MbOk);
      continue;
    }
    if (info.accepts8 || info.accepts24) AddEntries(info, static_cast<int>(i), &filters);
  }
  return filters;
}

std::string WithExtension(const std::string& chosen, const std::string& extension) {
  const size_t dot = chosen.find_last_of(".\\/");
  const std::string stem =
      dot != std::string::npos && chosen[dot] == '.' ? chosen.substr(0, dot) : chosen;
  return stem + "." + extension;
}
