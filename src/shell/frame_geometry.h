// Window arithmetic of the frame and the document windows. The Win32 frame
// calls ClampFramePlacement before CreateWindow, NextCascadePosition before
// it creates a document window, and the Adjust Window Size command
// (12004) uses FitDocumentWindow.
#pragma once

#include <cstdint>

#include "base/rect.h"
#include "document/canvas.h"

constexpr int kMinFrameWidth = 384;
constexpr int kMinFrameHeight = 128;

// The saved frame place (settings framePosition and frameSize: x or width
// in the low half, y or height in the high half) brought onto the screen:
// at least 384 x 128, at most the screen, then shifted left and up so that
// it stands on the screen.
Rect ClampFramePlacement(int32_t framePosition, int32_t frameSize, int screenWidth,
                         int screenHeight);

// Document windows cascade: x and y start at 0 and grow by 12 per window,
// back to 0 beyond 36. Size 640 x 400.
constexpr int kCascadeStep = 12;
constexpr int kCascadeLimit = 36;
constexpr int kDocumentWidth = 640;
constexpr int kDocumentHeight = 400;
// The place of the next document window; advances the cascade.
int NextCascadePosition();
void ResetCascade();

struct WindowSize {
  int width, height;
};

// The zoomed size of the canvas, by the view's zoom table.
WindowSize ZoomedCanvasSize(const Canvas* canvas);

// The document window that fits the zoomed canvas: width = zoomed width +
// 4 x marginX + 2 x border; height = zoomed height + 4 x marginY + caption
// + 2 x border; each at most the MDI client's size.
WindowSize FitDocumentWindow(WindowSize zoomed, int marginX, int marginY, int border, int caption,
                             int mdiWidth, int mdiHeight);
