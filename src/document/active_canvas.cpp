#include "document/active_canvas.h"

namespace {
Canvas* activeCanvas = nullptr;
}  // namespace

void SetActiveCanvas(Canvas* canvas) { activeCanvas = canvas; }

Canvas* ActiveCanvas() { return activeCanvas && !activeCanvas->closing ? activeCanvas : nullptr; }
