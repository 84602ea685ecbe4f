// The per-picture record. One flat, zero-initialised block holds every
// layer, every plane slot, the selection state and the view state of a
// picture; there is no list of layers. Slot index = layer x 8 + position,
// and the order in the array is the stacking order. Pixels live in the
// plane store; a slot only holds Plane pointers, so moving a slot moves
// the pointer and never the pixels.
#pragma once

#include <cstdint>
#include <type_traits>

#include "store/plane_store.h"

constexpr int kMaxLayers = 128;
constexpr int kPlanesPerLayer = 8;
constexpr int kPlaneSlots = kMaxLayers * kPlanesPerLayer;
constexpr int kMaxDraftPoints = 5120;
constexpr int kPlaneNameChars = 40;
constexpr int kFileNameChars = 256;

// Positions within a layer.
constexpr int kImagePosition = 0;
constexpr int kMaskPosition = 1;
constexpr int kTransparencyPosition = 2;
constexpr int kFirstFurtherPosition = 3;

// Indices into PlaneSlot::planeFlags.
constexpr int kFlagMask = 0;
constexpr int kFlagDirectCoverage = 2;
constexpr int kFlagTransparency = 3;
constexpr int kFlagLineDraw = 4;
constexpr int kPlaneFlagCount = 10;

// PlaneSlot::displayMode values.
constexpr uint8_t kDisplayThisLayerOnly = 0;
constexpr uint8_t kDisplayLayersBlended = 1;
constexpr uint8_t kDisplayChannel = 10;
constexpr uint8_t kDisplayComposition = 11;
constexpr uint8_t kDisplayBlendedFromPlane = 12;
constexpr uint8_t kDisplayThickness = 13;

constexpr int32_t kMixHide = 0;
constexpr int32_t kMixNormal = 1;

// Window handles are opaque to the portable code.
using WindowHandle = void*;

struct PlaneSlot {
  int32_t left;    // the same for all eight slots of a layer
  int32_t top;
  int32_t width;
  int32_t height;
  uint32_t bits;   // 24 at position 0, 8 elsewhere
  Plane* plane;    // null: empty; a null at position 0 ends the stack
  Plane* accuracyPlane;  // low bytes of the active plane under Double Accuracy
  Plane* spare;          // freed with the others, made by nothing
  uint8_t displayMode;
  uint8_t planeFlags[kPlaneFlagCount];
  char name[kPlaneNameChars];
  int32_t savedLeft, savedTop, savedWidth, savedHeight;  // before Smooth Zoom
  int32_t opacityLoss;   // 0 opaque .. 255 see-through; read at position 0
  int32_t mixMode;       // read at position 0
  int32_t savedMixMode;  // where the eye goes back to
  uint8_t planeOff;      // a plane above position 0 switched off
};

struct Canvas {
  int32_t scrollY;
  int32_t extentY;
  int32_t clientHeight;
  int32_t scrollX;
  int32_t extentX;
  int32_t clientWidth;
  int32_t marginX, marginY;
  uint32_t serial;
  uint32_t modified;
  WindowHandle frameWnd;
  WindowHandle displayWnd;
  WindowHandle documentWnd;
  WindowHandle hRuler, vRuler;
  char fileName[kFileNameChars];
  PlaneSlot planes[kPlaneSlots];
  int32_t activePlane;
  int32_t reserved;
  int32_t zoomStep;
  int32_t canvasWidth, canvasHeight;
  int32_t dpi;
  int32_t selectionKind;
  int32_t selLeft, selTop, selRight, selBottom;
  float draftPoints[kMaxDraftPoints][2];
  Plane* selectionPlane;
  uint32_t draftPointCount;
  uint32_t rulersOn;
  uint32_t closing;
  uint32_t doubleAccuracy;
  int32_t smoothZoom;
  int32_t smoothZoomLeft, smoothZoomTop;
  uint32_t undoLevel;
  int32_t gridX, gridY;
  uint32_t gridSnap;
  uint32_t gridOn;
  uint32_t gridRed, gridGreen, gridBlue;  // 0..255, a word each
  uint32_t gridReverse;
};

// Whole-record copies and zeroing are part of the design.
static_assert(std::is_trivially_copyable_v<Canvas>);
static_assert(std::is_standard_layout_v<Canvas>);

inline int LayerOf(int index) { return index / kPlanesPerLayer; }
inline int PositionOf(int index) { return index % kPlanesPerLayer; }
inline int SlotIndex(int layer, int position) { return layer * kPlanesPerLayer + position; }
