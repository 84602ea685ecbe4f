// Opening a file as a new canvas, in two halves around the canvas's
// creation, and the one byte range of a native file the host reads itself:
// the version at offset 80. Version 3 is the older layout whose first two
// alpha planes come in the other order.
#pragma once

#include <string>

#include "base/hook_list.h"
#include "document/canvas.h"

constexpr int kOlderNativeVersion = 3;

// The first half: the reader's sizes become the request of a new canvas
// (every layer 24 bits, its alpha plane count, creation by file). 0 when
// the file can't be read; the caller shows 1302.
int OpenCanvasFile(const std::string& path);

// The second half, run by the canvas's creation: the rows, the layers'
// places and names, and for a native file its planes' names and flags,
// mapped from the older order where it is used. Always 1: what arrived
// stays.
int ReadCanvasFile(Canvas* canvas);

// The dword at offset 80, or -1 when the file can't be read that far.
int ReadFileVersion(const std::string& path);

// A file was opened, or a canvas saved, under this name: the shell's file
// history takes it.
extern HookList<const std::string&> fileNamedHooks;

// Forgets the opened file and the hooks.
void ResetNativeFile();
