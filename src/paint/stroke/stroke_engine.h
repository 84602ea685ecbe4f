// StrokeEngine: the modal loops that turn a held pointer button into dabs.
// A stroke runs inside the press handler of the canvas view: it polls the
// pointer and keys through the platform seam, smooths the position, lets
// pressure bend a copy of the pen, hands each point to PlaceDab and at the
// end gives the bounding box of what it touched to the undo history. This
// object holds the stroke's options and what outlives one pass: the
// smoothing history, the recorded tablet samples and the pen copy that
// pressure bends.
#pragma once

#include <cstdint>

#include "paint/tip/pen_record.h"

// Tools that paint with the stroke loops.

// A recorded tablet sample, 16 bytes as the replay reads them.
struct StrokeSample {
  float x, y;
  int32_t pressure;  // 0..255
  uint32_t tick;     // milliseconds
};
static_assert(sizeof(StrokeSample) == 16);

// Samples stored per stroke; later ones are counted but not kept. They go
// to every second slot so that the replay can put midpoints between.
constexpr int kStrokeSampleLimit = 31996;
constexpr int kStrokeSampleSlots = 2 * kStrokeSampleLimit;
// Points SmoothPointerPosition can average; positionSmoothing stays in 1..20.
constexpr int kSmoothingHistory = 101;

// rightClickAction values.
constexpr int kRightClickDropper = 0;
constexpr int kRightClickUndoPen = 1;

struct StrokeEngineObject {
  // Options of the preference pages and the tablet panel.
  int32_t rightClickAction = kRightClickDropper;
  int32_t freehandQuality = 0;  // "Fast", "Standard", "Quality": 0, 4 or 10 ms a pass
  int32_t autoSmooth = 0;
  int32_t reflectOnThick = 0, reflectOnDensity = 0, reflectOnSize = 0;
  int32_t showOutline = 1;  // the pen's outline follows the pointer over the canvas

  int32_t running = 0;  // a stroke loop is running (the shell's key polling reads it)

  // SmoothPointerPosition: the last screen points and their sums.
  int32_t historyX[kSmoothingHistory], historyY[kSmoothingHistory];
  int32_t historyCount = 0;
  int32_t sumX = 0, sumY = 0;

  // Pressure: the pen as it was before ApplyPressure bent it, whether a
  // tablet answered in this stroke, and the mode to give back after the
  // eraser end of a stylus (-1: none).
  PenRecord savedPen;
  int32_t tabletSeen = 0;
  int32_t savedMode = -1;

  // The samples of the last tablet stroke (slot 2k holds sample k).
  StrokeSample strokeSamples[kStrokeSampleSlots];

  // Back to the start state; the options too.
  void Reset();
};

extern StrokeEngineObject StrokeEngine;
