#include "settings/side_path.h"

std::string SidePath(const std::string& folder, std::string_view name) {
  char separator = !folder.empty() && folder.back() == '/' ? '/' : '\\';
  std::string path = folder;
  for (char c : name) path += c == '\\' ? separator : c;
  return path;
}
