// The folder of the plug-in's own module file, where the host leaves the
// thumbnail for a layer-aware save.
#pragma once

#include <string>

namespace tsl {

// With its trailing separator; empty when the system won't say.
std::string ModuleFolder();

}  // namespace tsl
