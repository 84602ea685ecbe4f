// tsl_grid, the dialog of the Grid command.
#pragma once

#include "display/grid_command.h"

// Shows choice in the dialog over the frame; 1 after OK with choice
// holding what was entered.
int RunGridDialog(GridChoice* choice);
