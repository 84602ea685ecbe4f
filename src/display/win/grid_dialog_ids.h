// Controls of the grid dialog tsl_grid, shared by its script and its code.
#pragma once

#define IDC_GRID_PITCH_X 3101
#define IDC_GRID_PITCH_Y 3102
#define IDC_GRID_SNAP 3103
