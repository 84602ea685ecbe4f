// The portable wiring of the subsystems: each registers its commands,
// routes and hooks. The Win32 frame runs it once its windows stand and the
// settings are read; a native test of the whole program runs it too.
#pragma once

#include <string>

// tempFolder ends with a separator; Smooth Zoom parks its planes there.
void InstallSubsystems(const std::string& tempFolder);
