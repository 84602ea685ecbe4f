// What the layer dialogs do with their controls again and again: texts in
// UTF-8, numbers read through the portable rules, check marks.
#pragma once

#include <windows.h>

#include <string>

std::string ControlText(HWND dialog, int control);
void SetControlText(HWND dialog, int control, const std::string& text);
void SetControlNumber(HWND dialog, int control, int value);

// The field's number by FieldNumber: clamped, `fallback` without digits.
int ControlNumber(HWND dialog, int control, int lo, int hi, int fallback);

bool IsChecked(HWND dialog, int control);
void SetChecked(HWND dialog, int control, bool checked);
