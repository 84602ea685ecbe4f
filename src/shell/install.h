// The portable wiring of the program: each level with subsystems to plug
// in has an Install<Level>() that registers its commands, routes and hooks,
// and InstallSubsystems runs them from the bottom up. The Win32 frame runs
// it once its windows stand and the settings are read; a native test of the
// whole program runs it too.
#pragma once

#include <string>

// The shell's own: the undo and file commands, the Smooth Zoom tool (which parks its
// planes in tempFolder, ending with a separator), the Bezier path's file (there
// too) and Edit Bezier, and the right-click keys.
void InstallShell(const std::string& tempFolder);

// programFolder and tempFolder end with a separator.
void InstallSubsystems(const std::string& programFolder, const std::string& tempFolder);
