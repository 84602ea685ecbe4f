#include "layers/layer_options.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "display/redraw.h"
#include "document/canvas_slots.h"
#include "layers/dialog_fields.h"

std::string FittedLayerName(const std::string& typed) {
  size_t length = std::min(typed.size(), static_cast<size_t>(kPlaneNameChars - 1));
  // Back over continuation bytes to the lead byte of the character cut
  // through, when the cut isn't at the end of a character.
  if (length < typed.size())
    while (length > 0 && (static_cast<unsigned char>(typed[length]) & 0xC0) == 0x80) --length;
  return typed.substr(0, length);
}

LayerOptionsSession::LayerOptionsSession(Canvas* canvas, int layer)
    : canvas_(canvas), layer_(layer) {
  const PlaneSlot& slot = Slot();
  std::memcpy(openingName_, slot.name, sizeof openingName_);
  openingMixMode_ = slot.mixMode;
  openingLoss_ = slot.opacityLoss;
  lossPercent_ = LossPercentOf(std::clamp(slot.opacityLoss, 0, 255));
}

PlaneSlot& LayerOptionsSession::Slot() const {
  return canvas_->planes[SlotIndex(layer_, kImagePosition)];
}

std::string LayerOptionsSession::Name() const { return FieldText(Slot().name, kPlaneNameChars); }

int LayerOptionsSession::MixMode() const { return Slot().mixMode; }

void LayerOptionsSession::Changed() {
  repaintDue_ = true;
  changed_ = true;
}

void LayerOptionsSession::SetName(const std::string& typed) {
  const std::string name = FittedLayerName(typed);
  PlaneSlot& slot = Slot();
  std::memset(slot.name, 0, sizeof slot.name);
  std::memcpy(slot.name, name.data(), name.size());
  Changed();
}

void LayerOptionsSession::SetMixMode(int mixMode) {
  if (mixMode < 0 || mixMode >= kMixModeCount) return;
  Slot().mixMode = mixMode;
  Changed();
}

void LayerOptionsSession::SetOpacity(int percent) {
  lossPercent_ = 100 - std::clamp(percent, 0, 100);
  Slot().opacityLoss = OpacityLossOf(lossPercent_);
  Changed();
}

void LayerOptionsSession::SetOpacityText(const std::string& text) {
  SetOpacity(FieldNumber(text, 0, 100, Opacity()));
}

bool LayerOptionsSession::TakeRepaintDue() { return std::exchange(repaintDue_, false); }

void LayerOptionsSession::Repaint() {
  const PlaneSlot& slot = Slot();
  RedrawCanvasBox(canvas_, Rect::OfSize(slot.left, slot.top, slot.width, slot.height));
}

void LayerOptionsSession::Keep() {
  Slot().opacityLoss = OpacityLossOf(lossPercent_);
  if (TakeRepaintDue()) Repaint();  // a change the timer didn't reach yet
}

void LayerOptionsSession::Restore() {
  PlaneSlot& slot = Slot();
  std::memcpy(slot.name, openingName_, sizeof openingName_);
  slot.mixMode = openingMixMode_;
  slot.opacityLoss = openingLoss_;
  if (changed_) Repaint();
  repaintDue_ = changed_ = false;
}
