// CanvasRequest: the one global description of the next canvas to make.
// A command handler fills it before the document window is created, and
// canvas creation consumes it.
#pragma once

#include <cstdint>

#include "document/canvas.h"

// Where the content of a new canvas comes from.
enum CanvasMode : int32_t {
  kModeNew = 0,
  kModeOpen = 1,
  kModeMergeVisible = 2,
  kModeFromClipboard = 3,
  kModeTwain = 4,
  kModeDuplicate = 5,
  kModeResizedDuplicate = 6,
  kModeRotatedDuplicate = 7,
  kModeMergeAll = 8,
  kModeResizedCanvas = 9,
  kModeTrimSelection = 10,
  kModeCameraOrScanner = 11,
};
constexpr int kCanvasModeCount = 12;

constexpr int kRequestPlaneNameChars = 10;

struct CanvasRequestRecord {
  int32_t width[kMaxLayers];
  int32_t height[kMaxLayers];
  int32_t left[kMaxLayers];
  int32_t top[kMaxLayers];
  int32_t bits[kMaxLayers];
  int32_t planeCount[kMaxLayers];
  int32_t layerCount;
  int32_t dpi;
  char fileName[kFileNameChars];
  int32_t mode;
  char planeNames[kPlaneSlots][kRequestPlaneNameChars];  // by plane index
  Canvas* source;
  int32_t rotation;  // degrees
  int32_t mergeOption;
};

extern CanvasRequestRecord CanvasRequest;

// Describes a blank canvas of one layer with mask and transparency: what
// the New command asks for.
void RequestBlankCanvas(int width, int height, int dpi);
