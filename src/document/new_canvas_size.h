// The logic of the New dialog: pixel size, physical size and resolution
// kept consistent, the paper presets, and what OK produces.
#pragma once

#include <string>

#include "base/limits.h"

enum class LengthUnit { Millimetres, Inches };

constexpr int kMinNewPixels = 1;
constexpr int kMaxNewPixels = kMaxCanvasSide;
constexpr int kMinDpi = 1;
constexpr int kMaxDpi = 5000;
constexpr int kDefaultDpi = 96;

// The four conversions of the dialog.
double PixelsToMillimetres(int pixels, int dpi);
double PixelsToInches(int pixels, int dpi);
int MillimetresToPixels(double millimetres, int dpi);
int InchesToPixels(double inches, int dpi);

// Field text as typed, clamped; an empty or unreadable field gives the
// lower bound.
int TypedPixels(const std::string& field);
int TypedDpi(const std::string& field);
double TypedLength(const std::string& field);

// One step of the spin arrows at a length field (direction +1 or -1).
double SpinLength(double length, int direction, LengthUnit unit);

// A length as the dialog shows it: "%5.2f".
std::string FormatLength(double length);

struct PaperPreset {
  const char* name;
  double width, height;  // millimetres
};
constexpr int kPaperPresetCount = 8;
extern const PaperPreset kPaperPresets[kPaperPresetCount];

// What the dialog holds while it is open.
struct NewCanvasFields {
  int width, height;     // pixels
  int dpi;
  double lengthWidth, lengthHeight;  // in unit
  LengthUnit unit;
};

// Remembered between openings within one run; dpi 0 means not yet opened.
struct NewCanvasMemory {
  int dpi = 0;
  LengthUnit unit = LengthUnit::Millimetres;
};
extern NewCanvasMemory newCanvasMemory;

// The fields on opening: the last size of the settings, dpi 96 on the
// first opening of a run and the last dpi after, the last unit.
NewCanvasFields OpenNewCanvasFields();

// Recomputations after a change in one group. Pixels lead: a change of
// the pixels or of the resolution recomputes the lengths, and a change of
// the lengths recomputes the pixels.
void RecomputeLengths(NewCanvasFields& fields);
void RecomputePixels(NewCanvasFields& fields);
void ChangeUnit(NewCanvasFields& fields, LengthUnit unit);
void ChoosePaperPreset(NewCanvasFields& fields, int preset);

// OK: the size and dpi go into CanvasRequest as a blank canvas, and the
// size becomes the last size of the settings.
void AcceptNewCanvas(const NewCanvasFields& fields);
