// The tool Smooth Zoom (20507) before it enlarges anything: its dialog,
// then a frame over the canvas that the left button drags into place and
// whose menu (right button) confirms or cancels. These are the tool's
// routes for presses, its menu and its end.
#pragma once

#include <functional>

#include "base/hook_list.h"
#include "display/smooth_zoom_choice.h"
#include "document/canvas.h"

// The items of the frame's menu (viewWindows.zoomFrameMenu).
enum ZoomFrameItem { kZoomFrameNothing = 0, kZoomFrameEnter = 1, kZoomFrameCancel = 2 };

// The choice is over, entered or not: the shell gives the tool back to
// the one in use before.
extern HookList<> zoomFrameDoneHooks;

// The tool starts on canvas: the dialog (showing the last choice), and
// after OK the frame, at first centred on the active plane. 0 when the
// dialog was cancelled. A frame shown before goes first.
int BeginZoomFrame(Canvas* canvas);

// The canvas that shows the frame; null when none does.
Canvas* ZoomFrameCanvas();

// The frame's overlay toggle: draws it by inversion on the canvas that
// shows it, so a second call takes it off.
void ToggleZoomFrame(Canvas* canvas);

// A left press on canvas: the frame follows the pointer until release.
void PressZoomFrame(Canvas* canvas);

// A right press on canvas: the frame's menu. Enter enlarges the part under
// the frame and repaints; either item ends the choice. 0 when canvas shows
// no frame, so the press goes on to the colour picker.
int ZoomFrameMenu(Canvas* canvas);

// The frame goes without entering Smooth Zoom (a change of tool, its
// canvas closing).
void EndZoomFrame();
