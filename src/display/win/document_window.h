// The windows of an open picture: the MDI child `CanvClass` that owns the
// Canvas, its view frame `CanvWndClass` with the scroll bars, the view
// `CanvWndDispClass` inside it, and the two rulers.
#pragma once

#include <windows.h>

#include <cstdint>

#include "display/view_windows.h"
#include "document/canvas.h"

// What happens to a document's record lives above this level; the shell
// supplies it when it registers the classes.
struct DocumentWindowHandlers {
  // WM_CREATE: the record made from the pending request, null to fail.
  Canvas* (*open)(HWND documentWnd);
  // WM_CLOSE: 0 keeps the window.
  int (*queryClose)(Canvas* canvas);
  // WM_DESTROY: the record goes; the window's word is cleared after.
  void (*close)(Canvas* canvas);
  // WM_MDIACTIVATE, for the window that gains or loses activation.
  void (*activate)(Canvas* canvas, bool active);
  // WM_COMMAND reaching the document.
  void (*command)(Canvas* canvas, int id, intptr_t lParam);
  // WM_KEYDOWN in the document.
  void (*keyDown)(Canvas* canvas, int key, bool shift);
  // The tool in use, which decides where a press on the view goes.
  int (*currentTool)();
};

constexpr wchar_t kDocumentClass[] = L"CanvClass";
constexpr int kViewFrameId = 9;
constexpr int kHorizontalRulerId = 19;
constexpr int kVerticalRulerId = 20;

// Registers the five classes; false if one can't be registered.
bool RegisterDocumentClasses(const DocumentWindowHandlers& handlers);

// The record of a document window, or null (not a document, or closing).
Canvas* CanvasOfDocument(HWND documentWnd);

// Lays the view frame, the view and the rulers out again for the present
// zoom and ruler state, and repaints them.
void RefreshDocumentView(Canvas* canvas);

// One scroll bar of the view frame shows range, page and position.
void SetViewScrollBar(Canvas* canvas, Axis axis, const ScrollBarState& bar);
