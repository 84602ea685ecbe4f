// The commands on the selection raster: Select All, Select by Layer size,
// Invert, Fatten, Slim and the two blurs. Each leaves the canvas with the
// kind and box its command gives and repaints the view. The raster is no
// plane of the picture, so none of them records undo.
#pragma once

#include "document/canvas.h"

void SelectAll(Canvas* canvas);
void SelectByLayerSize(Canvas* canvas);
// A raster is made (all selected) when none exists, then turned over.
void InvertSelection(Canvas* canvas);
// N passes of the 3 x 3 minimum: the selection grows by N pixels. Nothing
// at all happens without a raster.
void FattenSelection(Canvas* canvas, int radius);
// The same with the maximum: it shrinks by N pixels.
void SlimSelection(Canvas* canvas, int radius);
// kind kBlurThick: the mean of a 2N square; kBlurDither: N passes of
// scattering.
void BlurOutside(Canvas* canvas, int radius, int kind);
// One pass of the maximum, then the 3 x 3 mean.
void BlurInside(Canvas* canvas);

// Registers the commands, with the radius dialogs in front of the three
// that ask, the outline of a shapeless raster and Trim's new canvas.
void InstallSelectionRaster();
// The shared radius and the worked-out outline forgotten.
void ResetSelectionRaster();
