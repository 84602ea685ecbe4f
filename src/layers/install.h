// The layer operations join the program: the content of the canvases they
// make, their commands on a canvas, and the layer menus of the view.
#pragma once

void InstallLayers();
