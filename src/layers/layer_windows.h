// What the layer operations ask of the windows: the Win32 side fills
// `layerWindows`, tests script it. An empty member is a step the window
// side can't take; the operation then does nothing.
#pragma once

#include <functional>

#include "document/canvas.h"

// tsl_layermix: what Merge Layers makes, and how transparency is merged.
enum class MergeKind { Visible, AllLayers, FlattenedLayer };
struct MergeChoice {
  MergeKind kind = MergeKind::Visible;
  int mergeOption = 0;  // 0 Convert Transparency to Opacity, 1 Merge All Options, 2 complete only
};

// tsl_addshadow. The colour comes from the colour mixer, titled string 1003.
struct ShadowChoice {
  int dx = 0, dy = 0, blur = 0;
  int red = 0, green = 0, blue = 0;
};

// One line of tsl_layresize and tsl_canvresize per side.
enum SideIndex { kSideLeft = 0, kSideRight = 1, kSideTop = 2, kSideBottom = 3 };
struct SideChoice {
  bool checked[4] = {};
  int amount[4] = {1, 1, 1, 1};  // 1..1000 pixels
  bool shrink[4] = {};           // Shrink instead of Expand
};

// tsl_resize: Make Resized Duplicate.
struct ResizeChoice {
  int width = 0, height = 0;
  bool keepAspect = true;
};

// tsl_rotate: 90 CW, 90 CCW, 180, or an arbitrary angle in degrees.
struct RotateChoice {
  double degrees = 0;
};

struct LayerWindows {
  // tsl_layeradd: true with the size chosen (the canvas size for full size).
  std::function<bool(const Canvas* canvas, int* width, int* height)> addLayerDialog;
  // tsl_layeropt on a layer. The dialog edits through LayerOptionsSession
  // (layer_options.h), so the picture follows while it is open; true on OK.
  std::function<bool(Canvas* canvas, int layer)> layerOptionsDialog;
  // tsl_alpopt, "Add and Delete", on the layer of planeIndex.
  std::function<void(Canvas* canvas, int planeIndex)> planesDialog;
  std::function<bool(MergeChoice* choice)> mergeLayersDialog;
  // tsl_layermix2, "Merge Under Layers": true with mergeTransparency 0 or 1.
  std::function<bool(int* mergeTransparency)> mergeDownDialog;
  std::function<bool(ShadowChoice* choice)> dropShadowDialog;
  // tsl_layresize, modeless: opens and returns; the dialog calls the
  // resize-by-sides session (layer_resize.h) as the user works.
  std::function<void(Canvas* canvas, int planeIndex)> openResizeBySides;
  // The open tsl_layresize shows new sides (an edge of the box was dragged),
  // or goes without applying (its canvas is closing).
  std::function<void(const SideChoice& sides)> resizeSidesShown;
  std::function<void()> closeResizeBySides;
  // tsl_canvresize, tsl_resize, tsl_rotate: true on OK.
  std::function<bool(const Canvas* canvas, SideChoice* choice)> canvasResizeDialog;
  std::function<bool(const Canvas* canvas, ResizeChoice* choice)> resizeDialog;
  std::function<bool(Canvas* canvas, RotateChoice* choice)> rotateDialog;
  // The colour mixer of the panels, with a title; true on OK.
  std::function<bool(const char* title, int* red, int* green, int* blue)> chooseColor;
};
extern LayerWindows layerWindows;
