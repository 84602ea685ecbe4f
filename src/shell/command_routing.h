// Two-stage routing of command numbers. The Win32 frame's WM_COMMAND calls
// RouteCommand(LOWORD(wParam), lParam) and nothing else; a document
// window's WM_COMMAND calls CanvasCommand with the Canvas of its first
// extra word. Commands whose owners are other subsystems reach them through
// the handlers those subsystems register here; until one registers, the
// command is routed and does nothing.
#pragma once

#include <cstdint>
#include <functional>

#include "base/command_registry.h"
#include "document/canvas.h"
#include "base/hook_list.h"
#include "layers/layer_command.h"

// Set by their owners: while any holds, commands are ignored or swallowed.
// So do an open layer resize (LayerResizeOpen) and colorAdjustOwnsPointer.
extern bool textDialogOpen;  // the Text dialog (tsl_text) is open

// 1 for the length of a document's command handler; the view hides the
// pointer's outline meanwhile.
extern bool commandRunning;

// Stage 1 and 2: the frame's handler, then the active document.
void RouteCommand(int id, intptr_t lParam);

// The frame's handler: 1 when it consumed the command, 0 when the command
// isn't its own. History entries 40000..40007 become 10007 with the path.
int FrameCommand(int id, intptr_t lParam);

// The document's handler; does nothing without a canvas.
void CanvasCommand(Canvas* canvas, int id, intptr_t lParam = 0);

// A picture operation ended: the undo snapshot of the active plane is
// taken here by the undo history once it registers.
extern HookList<Canvas*> undoSnapshotHooks;

// Clears the hooks and flags above (tests); the registrations are the base
// level's (ResetBase).
void ResetCommandRouting();
