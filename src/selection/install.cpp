#include "selection/install.h"

void InstallSelection() {}
