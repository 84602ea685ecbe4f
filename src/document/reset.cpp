#include "document/reset.h"

#include "document/canvas_manager.h"
#include "document/canvas_request.h"
#include "document/new_canvas_size.h"
#include "document/undo_history.h"

void ResetDocument() {
  UndoHistory.Reset();
  canvasSerialCount = 0;
  CanvasRequest = {};
  newCanvasMemory = {};
}
