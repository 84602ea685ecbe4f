#include <windows.h>

#include <string>

#include "../module_folder.h"

namespace tsl {

// Narrow names, as the plug-in opens its files with the C runtime's.
std::string ModuleFolder() {
  HMODULE module = nullptr;
  if (!GetModuleHandleExA(
          GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
          reinterpret_cast<LPCSTR>(&ModuleFolder), &module))
    return {};
  char path[MAX_PATH];
  const DWORD length = GetModuleFileNameA(module, path, MAX_PATH);
  if (length == 0 || length >= MAX_PATH) return {};
  const std::string file(path, length);
  const size_t slash = file.find_last_of("\\/");
  return slash == std::string::npos ? std::string(".\\") : file.substr(0, slash + 1);
}

}  // namespace tsl
