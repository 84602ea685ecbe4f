// The views inside the MDI child of one picture (`CanvClass`, whose window
// procedure is the shell's, since the shell owns the record's life): its
// view frame `CanvWndClass` with the scroll bars, the view
// `CanvWndDispClass` inside it, and the two rulers.
#pragma once

#include <windows.h>

#include "display/view_windows.h"
#include "document/canvas.h"

constexpr wchar_t kDocumentClass[] = L"CanvClass";
constexpr int kViewFrameId = 9;
constexpr int kHorizontalRulerId = 19;
constexpr int kVerticalRulerId = 20;

// Registers the view frame, the view and the rulers; false if one can't be.
bool RegisterDocumentViewClasses();

// The record a document window holds in its word from WM_CREATE (before
// its views are made, which look for it) to WM_DESTROY; null clears it.
void SetCanvasOfDocument(HWND documentWnd, Canvas* canvas);

// WM_CREATE of a document window holding its new record: the view frame and
// the rulers are made, and the window fits itself to the picture once the
// MDI client has shown it. False when a part can't be made.
bool CreateDocumentViews(HWND documentWnd, Canvas* canvas);

// WM_SIZE: the view frame stands inside the margins, where the rulers are not.
void PlaceDocumentViews(HWND documentWnd, int width, int height);

// WM_MDIACTIVATE: the active document's view and rulers are those that
// portable code addresses by role, and the zoom read-out is its; the
// read-out goes blank when no document follows.
void ShowDocumentActive(Canvas* canvas, bool active, bool anotherFollows);

// WM_DESTROY, before the record goes: nothing refers to its views any more.
void ReleaseDocumentViews(const Canvas* canvas);

// The record of a document window, or null (not a document, or closing).
Canvas* CanvasOfDocument(HWND documentWnd);

// Lays the view frame, the view and the rulers out again for the present
// zoom and ruler state, and repaints them.
void RefreshDocumentView(Canvas* canvas);

// One scroll bar of the view frame shows range, page and position.
void SetViewScrollBar(Canvas* canvas, Axis axis, const ScrollBarState& bar);
