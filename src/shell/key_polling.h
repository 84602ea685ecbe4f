// The frame's key polling. While a stroke's loop owns the input, keys
// pressed meanwhile would wait in the queue until the stroke ends; a
// 200 ms timer of the frame reads the polled keys instead and hands them
// to the active document as key messages, so that numeric + zooms and
// 1..9 change the pen in the middle of a stroke.
#pragma once

#include <cstdint>
#include <functional>

#include "document/canvas.h"

// What a tick needs of the windows. The Win32 frame fills every member;
// tests record. A tick does nothing until keyDown is set.
struct KeyPollWindows {
  // A key held now, by its virtual-key number (the physical state).
  std::function<bool(int key)> keyDown;
  // The active window is a modal dialog.
  std::function<bool()> modalDialogActive;
  // Throws away the keyboard messages waiting in the queue.
  std::function<void()> dropKeyMessages;
  // A short wait while keys are still held.
  std::function<void()> pause;
  // WM_KEYDOWN or WM_SYSKEYDOWN of a key to a document window.
  std::function<void(WindowHandle document, uint32_t message, int key)> sendKey;
  // The document window paints at once what the keys changed.
  std::function<void(WindowHandle document)> paintNow;
};
extern KeyPollWindows keyPollWindows;

// WM_ACTIVATEAPP: 1 while the program is the one in front. Keys typed into
// another program are not the picture's, so they are not polled then.
extern int appActive;

// One tick of the timer. With a stroke running on the active canvas:
// under a modal dialog it waits until no polled key is held and drops the
// waiting key messages; otherwise each polled key held goes to the
// document window, the queue's copies of those presses being dropped
// first so that they don't act a second time after the stroke.
void KeyPollTick();
