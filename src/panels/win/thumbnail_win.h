// The thumbnail window of a row (class LayPartsThmlClass) and the one
// worker thread that makes thumbnails, a plane at a time.
#pragma once

#include <windows.h>

#include "document/canvas.h"

bool RegisterThumbnailClass();

// The list's timer tick: unless a worker runs, one starts for the first
// row without a thumbnail. `list` hears of a row whose plane has gone.
void ThumbnailTick(HWND list, Canvas* canvas);

// Waits for a running worker to end, peeking at the message queue
// meanwhile. Every path that changes or frees planes comes here first.
void StopThumbnailWorker();

// Posted to the list by the worker: wParam the plane index of a row
// whose plane has gone.
constexpr UINT kMsgRowGone = WM_APP + 1;
