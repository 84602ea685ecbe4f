// The frame's wheel, dropped files and display changes.
#pragma once

#include <windows.h>
#include <shellapi.h>

void OnWheel(int delta);
void OnDropFiles(HDROP drop);
void OnDisplayChange(int width, int height, int bits);
