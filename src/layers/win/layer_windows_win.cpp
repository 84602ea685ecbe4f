#include "layers/win/layer_windows_win.h"

#include "layers/win/layer_dialogs_win.h"

void InstallLayerWindows() {
  layerWindows.addLayerDialog = RunAddLayerDialog;
  layerWindows.layerOptionsDialog = RunLayerOptionsDialog;
  layerWindows.planesDialog = RunPlanesDialog;
  layerWindows.mergeLayersDialog = RunMergeLayersDialog;
  layerWindows.mergeDownDialog = RunMergeDownDialog;
  layerWindows.dropShadowDialog = RunDropShadowDialog;
  layerWindows.canvasResizeDialog = RunCanvasResizeDialog;
  layerWindows.resizeDialog = RunResizeDialog;
  layerWindows.rotateDialog = RunRotateDialog;
}
