// The one question of Fatten, Slim and Blur Outside: a radius, and for
// Blur Outside how to blur. The three dialogs share one choice, which
// stays from one opening to the next.
#pragma once

#include <string>

constexpr int kMinRadius = 1;
constexpr int kMaxRadius = 50;

enum BlurKind { kBlurThick = 0, kBlurDither = 1 };

struct RadiusChoice {
  int radius = kMinRadius;
  int blurKind = kBlurThick;
};
extern RadiusChoice radiusChoice;

// The dialog templates.
inline constexpr const char* kFattenDialog = "tsl_selmax";
inline constexpr const char* kSlimDialog = "tsl_selmin";
inline constexpr const char* kBlurOutsideDialog = "tsl_sellow";

// The radius as typed: a number, cut to 50 above; anything else is 0.
int RadiusOfText(const std::string& text);
// Opens the dialog of that template with the shared choice and keeps what
// it gives: 1 when the command may go on, 0 when it was cancelled, gave a
// radius below 1, or no dialog can be shown.
int AskRadius(const char* dialogTemplate);
