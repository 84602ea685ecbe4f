// The dialogs that choose a size: tsl_layeradd (a new layer), tsl_resize
// (a resized duplicate) and tsl_canvresize (a duplicate on a canvas grown
// or shrunk by its sides).
#include <windows.h>

#include <optional>

#include "document/new_canvas_size.h"
#include "layers/dialog_fields.h"
#include "layers/win/dialog_controls.h"
#include "layers/win/layer_dialog_ids.h"
#include "layers/win/layer_dialogs_win.h"
#include "platform/win32/win32_platform.h"
#include "platform/win32/win32_windows.h"

namespace {

HWND Owner() { return platform::BoundWindow(platform::Window::Frame); }

void EnableSizeFields(HWND dialog) {
  const bool sized = IsChecked(dialog, IDC_LAYERADD_SIZED);
  EnableWindow(GetDlgItem(dialog, IDC_LAYERADD_WIDTH), sized);
  EnableWindow(GetDlgItem(dialog, IDC_LAYERADD_HEIGHT), sized);
}

// tsl_resize while open: the typed side leads, the other follows when the
// aspect is kept. `writing` keeps the follower's own change from leading.
struct ResizeDialog {
  const Canvas* canvas;
  ResizeChoice* choice;
  bool writing = false;

  void Follow(HWND dialog, int typed) {
    const int width = canvas->canvasWidth, height = canvas->canvasHeight;
    ResizeChoice& c = *choice;
    if (typed == IDC_RESIZE_WIDTH) {
      c.width = ControlNumber(dialog, typed, kMinNewPixels, kMaxNewPixels, c.width);
      if (!c.keepAspect) return;
      c.height = KeptAspectSide(c.width, width, height);
      Show(dialog, IDC_RESIZE_HEIGHT, c.height);
    } else {
      c.height = ControlNumber(dialog, typed, kMinNewPixels, kMaxNewPixels, c.height);
      if (!c.keepAspect) return;
      c.width = KeptAspectSide(c.height, height, width);
      Show(dialog, IDC_RESIZE_WIDTH, c.width);
    }
  }
  void Show(HWND dialog, int control, int value) {
    writing = true;
    SetControlNumber(dialog, control, value);
    writing = false;
  }
};

bool ResizeCommand(ResizeDialog& state, HWND dialog, int control, int code) {
  ResizeChoice& c = *state.choice;
  if (control == IDC_RESIZE_ASPECT) {
    c.keepAspect = IsChecked(dialog, control);
    if (c.keepAspect) state.Follow(dialog, IDC_RESIZE_WIDTH);
    return true;
  }
  if (control != IDC_RESIZE_WIDTH && control != IDC_RESIZE_HEIGHT) return false;
  if (code == EN_CHANGE && !state.writing) state.Follow(dialog, control);
  if (code == EN_KILLFOCUS)
    state.Show(dialog, control, control == IDC_RESIZE_WIDTH ? c.width : c.height);
  return true;
}

// The amounts and directions of the last OK stand in the next opening.
std::optional<SideChoice> lastSides;

}  // namespace

bool RunAddLayerDialog(const Canvas* canvas, int* width, int* height) {
  win32::Dialog dialog;
  dialog.init = [&](HWND window) {
    SetChecked(window, IDC_LAYERADD_FULL, true);
    SetControlNumber(window, IDC_LAYERADD_WIDTH, canvas->canvasWidth);
    SetControlNumber(window, IDC_LAYERADD_HEIGHT, canvas->canvasHeight);
    EnableSizeFields(window);
  };
  dialog.command = [](HWND window, int control, int) {
    if (control != IDC_LAYERADD_FULL && control != IDC_LAYERADD_SIZED) return false;
    EnableSizeFields(window);
    return true;
  };
  dialog.accept = [&](HWND window) {
    const bool full = IsChecked(window, IDC_LAYERADD_FULL);
    *width = full ? canvas->canvasWidth
                  : ControlNumber(window, IDC_LAYERADD_WIDTH, kMinNewPixels, kMaxNewPixels,
                                  canvas->canvasWidth);
    *height = full ? canvas->canvasHeight
                   : ControlNumber(window, IDC_LAYERADD_HEIGHT, kMinNewPixels, kMaxNewPixels,
                                   canvas->canvasHeight);
    return true;
  };
  return win32::RunDialog(L"tsl_layeradd", Owner(), dialog);
}

bool RunResizeDialog(const Canvas* canvas, ResizeChoice* choice) {
  if (choice->width < kMinNewPixels) choice->width = canvas->canvasWidth;
  if (choice->height < kMinNewPixels) choice->height = canvas->canvasHeight;
  ResizeDialog state{canvas, choice};
  win32::Dialog dialog;
  dialog.init = [&state](HWND window) {
    SetControlText(window, IDC_RESIZE_CURRENT,
                   std::to_string(state.canvas->canvasWidth) + " x " +
                       std::to_string(state.canvas->canvasHeight));
    state.Show(window, IDC_RESIZE_WIDTH, state.choice->width);
    state.Show(window, IDC_RESIZE_HEIGHT, state.choice->height);
    SetChecked(window, IDC_RESIZE_ASPECT, state.choice->keepAspect);
  };
  dialog.command = [&state](HWND window, int control, int code) {
    return ResizeCommand(state, window, control, code);
  };
  return win32::RunDialog(L"tsl_resize", Owner(), dialog);
}

bool RunCanvasResizeDialog(const Canvas*, SideChoice* choice) {
  if (lastSides) *choice = *lastSides;
  win32::Dialog dialog;
  dialog.init = [choice](HWND window) {
    for (int side = 0; side < 4; ++side) {
      SetChecked(window, IDC_SIDE_CHECK + side, choice->checked[side]);
      SetControlNumber(window, IDC_SIDE_AMOUNT + side, choice->amount[side]);
      SetChecked(window, (choice->shrink[side] ? IDC_SIDE_SHRINK : IDC_SIDE_EXPAND) + side, true);
    }
  };
  dialog.accept = [choice](HWND window) {
    for (int side = 0; side < 4; ++side) {
      choice->checked[side] = IsChecked(window, IDC_SIDE_CHECK + side);
      choice->amount[side] = ControlNumber(window, IDC_SIDE_AMOUNT + side, kMinSideAmount,
                                           kMaxSideAmount, choice->amount[side]);
      choice->shrink[side] = IsChecked(window, IDC_SIDE_SHRINK + side);
    }
    lastSides = *choice;
    return true;
  };
  return win32::RunDialog(L"tsl_canvresize", Owner(), dialog);
}
