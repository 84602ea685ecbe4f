// The settings of a first run, shipped as "env__2.env".
#pragma once

#include "settings/settings.h"

// Fills record with the first-run settings. The result already satisfies
// ApplyStartRules, so it loads back unchanged.
void DefaultSettings(Settings& record);
