// What the portable command handlers need from the shell's windows. The
// Win32 frame fills `shellWindows` once, after it has created its windows,
// with functions that do the Windows side (dialogs, MDI messages, window
// moves); tests fill it with recorders. A member left empty means the
// window side can't do that, and the command then does nothing.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "document/canvas.h"
#include "document/canvas_manager.h"
#include "document/new_canvas_size.h"

// The MDI client messages of the window commands.
constexpr uint32_t kMdiTile = 550;
constexpr uint32_t kMdiCascade = 551;
constexpr uint32_t kMdiIconArrange = 552;

// What Adjust Window Size needs to know about a document window.
struct DocumentFrame {
  int maximized;            // the child is maximized
  int width, height;        // its present client size (for the maximized case)
  int border;               // the frame border of a child window (SM_CXFRAME)
  int caption;              // the caption height of a child window
  int mdiWidth, mdiHeight;  // the MDI client's client size
};

// The choice of the Blank Sheet dialog (tsl_clear). texture is a plane the
// dialog made for Texture; the command frees it.
struct BlankSheetChoice {
  BlankSheetKind kind = BlankSheetKind::White;
  Plane* texture = nullptr;
};

struct ShellWindows {
  // The New dialog (tesel_new), opened with OpenNewCanvasFields() and
  // edited through the rules of new_canvas_size.h. 1 after OK with the
  // fields as accepted, 0 after Cancel.
  std::function<int(NewCanvasFields& fields)> newDialog;
  // Makes an MDI child of class CanvClass at the next cascade position
  // (NextCascadePosition) from CanvasRequest; its WM_CREATE calls
  // OpenDocument. 1 if the window stands.
  std::function<int()> createDocument;
  // WM_CLOSE to the active child, or to the frame.
  std::function<void()> closeActiveDocument;
  std::function<void()> closeFrame;
  // A message without parameters to the MDI client (kMdiTile, ...).
  std::function<void(uint32_t message)> mdiClientMessage;
  // The document windows in the MDI client's order.
  std::function<std::vector<WindowHandle>()> documents;
  // WM_CLOSE to one document window; 1 if it closed, 0 if it refused.
  std::function<int(WindowHandle document)> askDocumentToClose;
  // The MDI client's active child (message 553), null if none or not live.
  std::function<WindowHandle()> activeDocument;
  // The same WM_COMMAND to a document window; its handler calls
  // CanvasCommand with the Canvas of its first extra word.
  std::function<void(WindowHandle document, int id, intptr_t lParam)> sendCommand;
  // The about box.
  std::function<void()> showAbout;
  // The file history changed: remove items 40000.. and separator 40100
  // from both main menus and append HistoryMenuItems() again.
  std::function<void()> historyChanged;
  // The document's view must be laid out and painted again (zoom, rulers,
  // outside display).
  std::function<void(Canvas* canvas)> viewChanged;
  // The document window's title (SetWindowText).
  std::function<void(Canvas* canvas, const std::string& title)> setTitle;
  // Facts for Adjust Window Size, and its two ways of applying a size:
  // WM_SIZE to a maximized child, MoveWindow (position kept) otherwise.
  std::function<DocumentFrame(Canvas* canvas)> documentFrame;
  std::function<void(Canvas* canvas, int width, int height)> sendDocumentSize;
  std::function<void(Canvas* canvas, int width, int height)> moveDocument;
  // The tool-bar buttons of the previous and the new tool repaint.
  std::function<void(int previousTool, int currentTool)> toolButtonsChanged;
  // The Blank Sheet dialog; 1 after OK.
  std::function<int(BlankSheetChoice& choice)> blankSheetDialog;
  // A press of the right button on whatever window of the program lies
  // under the pointer (the keys Q and the context key).
  std::function<void()> rightClickAtPointer;
};

extern ShellWindows shellWindows;
