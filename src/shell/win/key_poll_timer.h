// The frame's key-polling timer: set at the frame's creation, stopped at
// its destruction; each tick runs the portable KeyPollTick.
#pragma once

#include <windows.h>

// Fills keyPollWindows and sets the timer, under the first number from 280
// upward that the system accepts.
void StartKeyPolling(HWND frame);
void StopKeyPolling(HWND frame);
// WM_TIMER of the frame: true when it was the key polling's.
bool OnKeyPollTimer(UINT_PTR id);
