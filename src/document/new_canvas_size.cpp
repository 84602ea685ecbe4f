#include "document/new_canvas_size.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "document/canvas_request.h"
#include "settings/settings.h"

namespace {

constexpr double kMinTypedLength = 0.01;
constexpr double kMaxLength = 1000.0;
constexpr double kMinSpinMillimetres = 0.1;
constexpr double kMinSpinInches = 0.01;
constexpr double kMillimetresPerInch = 25.4;

// Also brings NaN to the lower bound.
double ClampLength(double length, double low) {
  if (!(length >= low)) return low;
  return std::min(length, kMaxLength);
}

int TypedInteger(const std::string& field, int low, int high) {
  return static_cast<int>(std::clamp(std::strtol(field.c_str(), nullptr, 10),
                                     static_cast<long>(low), static_cast<long>(high)));
}

int ClampPixels(int pixels) { return std::clamp(pixels, kMinNewPixels, kMaxNewPixels); }

double PixelsToLength(int pixels, int dpi, LengthUnit unit) {
  return unit == LengthUnit::Millimetres ? PixelsToMillimetres(pixels, dpi)
                                         : PixelsToInches(pixels, dpi);
}

int LengthToPixels(double length, int dpi, LengthUnit unit) {
  return ClampPixels(unit == LengthUnit::Millimetres ? MillimetresToPixels(length, dpi)
                                                     : InchesToPixels(length, dpi));
}

}  // namespace

NewCanvasMemory newCanvasMemory;

const PaperPreset kPaperPresets[kPaperPresetCount] = {
    {"B5 Landscape", 257, 182},       {"B5 Portrait", 182, 257},
    {"B4 Landscape", 364, 257},       {"B4 Portrait", 257, 364},
    {"A4 Landscape", 297, 210},       {"A4 Portrait", 210, 297},
    {"Postcard Landscape", 148, 100.9}, {"Postcard Portrait", 100.9, 148.4},
};

double PixelsToMillimetres(int pixels, int dpi) { return pixels * 25.4 / std::max(dpi, 1); }

double PixelsToInches(int pixels, int dpi) {
  return static_cast<double>(pixels) / std::max(dpi, 1);
}

int MillimetresToPixels(double millimetres, int dpi) {
  return static_cast<int>(dpi * millimetres * 0.03937008 + 0.5);
}

int InchesToPixels(double inches, int dpi) { return static_cast<int>(dpi * inches + 0.5); }

int TypedPixels(const std::string& field) {
  return TypedInteger(field, kMinNewPixels, kMaxNewPixels);
}

int TypedDpi(const std::string& field) { return TypedInteger(field, kMinDpi, kMaxDpi); }

double TypedLength(const std::string& field) {
  return ClampLength(std::strtod(field.c_str(), nullptr), kMinTypedLength);
}

double SpinLength(double length, int direction, LengthUnit unit) {
  return ClampLength(length + direction * 1.0,
                     unit == LengthUnit::Millimetres ? kMinSpinMillimetres : kMinSpinInches);
}

std::string FormatLength(double length) {
  char text[32];
  std::snprintf(text, sizeof text, "%5.2f", length);
  return text;
}

NewCanvasFields OpenNewCanvasFields() {
  NewCanvasFields fields{};
  fields.width = settings.lastNewWidth;
  fields.height = settings.lastNewHeight;
  fields.dpi = newCanvasMemory.dpi > 0 ? newCanvasMemory.dpi : kDefaultDpi;
  fields.unit = newCanvasMemory.unit;
  RecomputeLengths(fields);
  return fields;
}

void RecomputeLengths(NewCanvasFields& fields) {
  fields.lengthWidth = PixelsToLength(fields.width, fields.dpi, fields.unit);
  fields.lengthHeight = PixelsToLength(fields.height, fields.dpi, fields.unit);
}

void ChangeUnit(NewCanvasFields& fields, LengthUnit unit) {
  fields.unit = unit;
  RecomputeLengths(fields);
}

void RecomputePixels(NewCanvasFields& fields) {
  fields.width = LengthToPixels(fields.lengthWidth, fields.dpi, fields.unit);
  fields.height = LengthToPixels(fields.lengthHeight, fields.dpi, fields.unit);
}

void ChoosePaperPreset(NewCanvasFields& fields, int preset) {
  if (preset < 0 || preset >= kPaperPresetCount) return;
  const PaperPreset& paper = kPaperPresets[preset];
  const double scale = fields.unit == LengthUnit::Millimetres ? 1.0 : 1.0 / kMillimetresPerInch;
  fields.lengthWidth = paper.width * scale;
  fields.lengthHeight = paper.height * scale;
  fields.width = ClampPixels(MillimetresToPixels(paper.width, fields.dpi));
  fields.height = ClampPixels(MillimetresToPixels(paper.height, fields.dpi));
}

void AcceptNewCanvas(const NewCanvasFields& fields) {
  settings.lastNewWidth = fields.width;
  settings.lastNewHeight = fields.height;
  newCanvasMemory.dpi = fields.dpi;
  newCanvasMemory.unit = fields.unit;
  RequestBlankCanvas(fields.width, fields.height, fields.dpi);
}
