// The pen joins the canvas view: its members of the pointer routing (the
// strokes of both buttons, the Dropper, the clone source, the outline that
// follows the pointer) and its overlay in the view's paint order.
#pragma once

// The frame calls this once at creation.
void InstallStrokeEngine();

// The "Right Clicking" choice: kRightClickDropper or kRightClickUndoPen.
// The Undo Pen's snapshot is dropped either way.
void ChooseRightClickAction(int action);
