#include "panels/number_notation.h"

#include "settings/settings.h"

int ToNotation(int v) { return settings.numberNotation == 1 ? v * 100 / 255 : v; }

int FromNotation(int v) { return settings.numberNotation == 1 ? v * 255 / 100 : v; }

int NotationTop() { return settings.numberNotation == 1 ? 100 : 255; }
