// Slot-level helpers shared by the canvas operations.
#pragma once

#include <cstdint>
#include <string>

#include "document/canvas.h"

// An empty slot of a layer with the given geometry, as a new layer has it.
void InitSlot(PlaneSlot& slot, int position, int left, int top, int width, int height,
              uint32_t imageBits);

// Frees the plane, the accuracy plane and the spare of a slot.
void FreeSlotPlanes(PlaneSlot& slot);

// The names every new layer carries: "LAYER%d", "0M", "0T".
void NameLayerBase(Canvas* canvas, int layer);
// Those, and "1T" held for the first further plane.
void NameNewLayer(Canvas* canvas, int layer);

// Makes the planes of a layer whose slots are laid out: a white image plane
// and alphaCount 8-bit planes from position 1 up (the transparency at 2
// filled with 255, the others 0), named "@@" until the layer is named.
// The Use Mask Plane and Use Transparency Plane settings may skip 1 and 2.
// Returns 1, or 0 when a plane can't be made; what was made stays.
int MakeLayerPlanes(PlaneSlot* slots, int alphaCount);

// "memory error0" when the image plane couldn't be made, else "memory error1".
void ShowMemoryBox(const PlaneSlot* slots);

// The storage kind of canvas planes: the Image Buffer setting.
uint32_t ImageBufferKind();

// Fills every row of a plane with one byte value.
void FillPlane(Plane* plane, uint8_t value);

// Text of a fixed-size field that may fill it without a terminating nul.
std::string FieldText(const char* field, size_t size);

// A box with the product's name as caption, owned by the frame.
void ShowCanvasBox(const std::string& text, unsigned style);
