#include "settings/settings.h"

Settings settings;
