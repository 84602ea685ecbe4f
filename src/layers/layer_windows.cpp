#include "layers/layer_windows.h"

LayerWindows layerWindows;
