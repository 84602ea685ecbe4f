// Making, closing and counting document windows. The Win32 document
// window calls OpenDocument in WM_CREATE (null fails the creation),
// QueryCloseDocument in WM_CLOSE (0 refuses), CloseDocument in WM_DESTROY,
// and ActivateDocument on WM_MDIACTIVATE. The frame's WM_CLOSE and
// WM_QUERYENDSESSION call FrameClosing.
#pragma once

#include <string>

#include "document/canvas.h"
#include "base/hook_list.h"

// A new zeroed Canvas made from CanvasRequest for documentWnd; null when
// it can't be had or its planes can't be made.
Canvas* OpenDocument(WindowHandle documentWnd);

// Asks before a document closes: 1 lets it close. A modified picture asks
// string 1404 with Yes, No, Cancel: Cancel refuses, Yes runs Save (the
// close goes on only if that cleared `modified`), No clears `modified`.
int QueryCloseDocument(Canvas* canvas);

// Unmakes the document: closing, layer panel told (1037), the Draft
// released, planes freed, the record freed.
void CloseDocument(Canvas* canvas);

// WM_MDIACTIVATE of a document window: its canvas becomes the active one
// (its accuracy plane made, the layer panel redrawn) or stops being it
// (the Draft state stored, the accuracy plane freed).
void ActivateDocument(Canvas* canvas, bool active);

// Number of documents open; the frame swaps the menu by it (MainMenuFor).
int OpenDocumentCount();

// Close All: each document in turn is asked to close; a refusal stops.
// 1 when none is left.
int CloseAllDocuments();

// The frame closes: the placement is recorded and every setting saved,
// then Close All. 1 when the frame may close, 0 when a document stayed.
struct FramePlacementRecord {
  int maximized;
  int x, y, width, height;
};
int FrameClosing(const FramePlacementRecord& placement, const std::string& startFolder);

// Before the close question (smooth zoom ends), and at CloseDocument (the
// Draft state is released); filled by the subsystems that own them.
extern HookList<Canvas*> beforeCloseHooks;
extern HookList<Canvas*> documentReleaseHooks;
// A document became active: its Draft state comes back, tools refresh.
extern HookList<Canvas*> activationHooks;
// A document stopped being the active one, after its Draft state was
// stored: what only the active canvas may hold (the Bezier path) goes.
extern HookList<Canvas*> deactivationHooks;
// The frame's WM_DESTROY, and the preferences sheet once it has closed:
// run by the Win32 frame, filled by the subsystems whose state outlives a
// document.
extern HookList<> frameDestroyHooks;
extern HookList<> preferencesClosedHooks;
