// What a settings record read from disk must satisfy before the program
// uses it: every clamp and every value forced at start.
#pragma once

#include "base/limits.h"
#include "settings/settings.h"

// The limits a record read from disk is brought within.
constexpr int kMaxUndoCount = 10;
constexpr int kMinSelectionHistory = 5;
constexpr int kMaxSelectionHistory = 100;
constexpr int kMinPenStrength = 16;
constexpr int kMaxPenStrength = 200;
constexpr int kMinSize40to600 = 40;
constexpr int kMaxSize40to600 = 600;
constexpr int kMinNewSide = 10;
constexpr int kMaxNewSide = kMaxCanvasSide;
constexpr int kFallbackNewWidth = 640;
constexpr int kFallbackNewHeight = 480;

// Brings a record read from disk (or left zero) into a usable state.
void ApplyStartRules(Settings& record);
