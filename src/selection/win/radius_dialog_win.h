// The radius dialogs on Windows: tsl_selmax, tsl_selmin and tsl_sellow.
#pragma once

#include "selection/radius_dialog.h"

// 1 on OK, with the typed radius and the blur kind written to choice.
int RunRadiusDialog(const char* dialogTemplate, RadiusChoice* choice);
