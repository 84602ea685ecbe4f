#include "selection/install.h"

#include "selection/detection_install.h"

void InstallSelection() { InstallDetection(); }
