#include "shell/right_click_keys.h"

#include "paint/stroke/stroke_engine.h"
#include "shell/input_rules.h"
#include "shell/shell_windows.h"

void InstallRightClickKeys() {
  documentKeyHooks.Add([](Canvas*, DocumentKey key) {
    // Polled in the middle of a stroke, the press would start a second
    // loop inside the first.
    if (key.kind != DocumentKeyKind::SecondaryClick || StrokeEngine.running) return;
    if (shellWindows.rightClickAtPointer) shellWindows.rightClickAtPointer();
  });
}
