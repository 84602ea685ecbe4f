// A plug-in library loaded for one operation and unloaded at its end.
#pragma once

#include <string>

#include "platform/platform.h"

class PluginLibrary {
 public:
  explicit PluginLibrary(const std::string& path) : library_(platform::OpenLibrary(path)) {}
  ~PluginLibrary() { platform::CloseLibrary(library_); }
  PluginLibrary(const PluginLibrary&) = delete;
  PluginLibrary& operator=(const PluginLibrary&) = delete;

  bool loaded() const { return library_ != nullptr; }
  // An entry point by its plain C name; null when it isn't exported.
  template <typename Fn>
  Fn Entry(const char* name) const {
    return reinterpret_cast<Fn>(platform::LibrarySymbol(library_, name));
  }

 private:
  platform::LibraryHandle library_;
};
