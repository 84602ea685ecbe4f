// The layer options of tsl_layeropt: name, mix mode and opacity of one
// layer, edited in place so that the picture follows while the dialog is
// open, kept on OK and put back on Cancel.
#pragma once

#include <cstdint>
#include <string>

#include "document/canvas.h"

constexpr int kMixModeCount = 10;
constexpr int kFirstMixModeString = 12000;  // "Hide" .. "Overlay"
constexpr int kLayerNameTypedChars = 64;    // what the name field takes

// opacityLoss 0..255 and the percentage of loss the dialog holds.
constexpr int LossPercentOf(int opacityLoss) { return (opacityLoss * 100 + 128) / 255; }
constexpr int OpacityLossOf(int lossPercent) { return (lossPercent * 255 + 50) / 100; }

// A name as the slot can hold it: the first kPlaneNameChars - 1 bytes of
// UTF-8, cut back to the last whole character, so that the field always
// ends with a nul and never with half a character.
std::string FittedLayerName(const std::string& typed);

class LayerOptionsSession {
 public:
  // Takes the values of the layer's position 0 as they stand.
  LayerOptionsSession(Canvas* canvas, int layer);

  std::string Name() const;
  int MixMode() const;
  // What the slider and the Opacity field show: 100 is opaque.
  int Opacity() const { return 100 - lossPercent_; }

  // Each writes into the layer at once and marks a repaint due.
  void SetName(const std::string& typed);
  void SetMixMode(int mixMode);  // out of range: no change
  void SetOpacity(int percent);  // clamped to 0..100
  // Typed text; text with no number leaves the opacity as it is.
  void SetOpacityText(const std::string& text);

  // True once after a change: the dialog's timer asks, then repaints.
  bool TakeRepaintDue();
  // The layer's box repaints. The layer panel learns of the change from
  // whoever opened the dialog, once it has closed.
  void Repaint();

  // OK: the opacity goes back from percent, as the dialog held it.
  void Keep();
  // Cancel: the layer is as it was on opening, repainted if it changed.
  void Restore();

 private:
  PlaneSlot& Slot() const;
  void Changed();

  Canvas* canvas_;
  int layer_;
  char openingName_[kPlaneNameChars];
  int32_t openingMixMode_, openingLoss_;
  int lossPercent_;
  bool repaintDue_ = false;
  bool changed_ = false;
};
