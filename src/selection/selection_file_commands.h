// The selection files join the program: Load Selection and Save Selection
// through the file dialogs, the history written at each committed shape in
// its folder beside the program, and the settings panel that lists it.
#pragma once

#include <string>

// programFolder ends with a separator.
void InstallSelectionFiles(const std::string& programFolder);
