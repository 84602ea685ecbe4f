// The undo history joins the shell: Undo (14010) and Redo (14012), the
// snapshot after picture operations and activations, and the clearing at
// closing and after the preferences. The frame calls this once at creation.
#pragma once

void InstallUndoHistory();
