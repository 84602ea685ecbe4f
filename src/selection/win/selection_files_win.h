// The Win32 side of the selection files: the file dialogs and the
// settings panel with the history's page.
#pragma once

void InstallSelectionFileDialog();
void InstallSettingsPanel();
