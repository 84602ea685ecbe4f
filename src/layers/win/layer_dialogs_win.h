// The layer dialogs on Windows, each as the member of layerWindows it
// fills (layers/layer_windows.h tells what each answers).
#pragma once

#include "layers/layer_windows.h"

bool RunAddLayerDialog(const Canvas* canvas, int* width, int* height);
bool RunLayerOptionsDialog(Canvas* canvas, int layer);
void RunPlanesDialog(Canvas* canvas, int planeIndex);
bool RunMergeLayersDialog(MergeChoice* choice);
bool RunMergeDownDialog(int* mergeTransparency);
bool RunDropShadowDialog(ShadowChoice* choice);
bool RunCanvasResizeDialog(const Canvas* canvas, SideChoice* choice);
bool RunResizeDialog(const Canvas* canvas, ResizeChoice* choice);
bool RunRotateDialog(Canvas* canvas, RotateChoice* choice);
