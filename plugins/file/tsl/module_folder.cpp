#include <dlfcn.h>

#include <string>

#include "module_folder.h"

namespace tsl {

std::string ModuleFolder() {
  Dl_info info{};
  if (!dladdr(reinterpret_cast<const void*>(&ModuleFolder), &info) || !info.dli_fname) return {};
  const std::string file = info.dli_fname;
  const size_t slash = file.rfind('/');
  return slash == std::string::npos ? std::string("./") : file.substr(0, slash + 1);
}

}  // namespace tsl
