// Reading through a plug-in: the sizes first (GetFileSize), then the rows
// into a canvas whose layers are made to those sizes, or into one picture.
// The plug-in pushes rows through the read callbacks; the host expands
// palette rows to 24 bits and places alpha planes by their numbers.
#pragma once

#include <string>
#include <vector>

#include "document/canvas.h"
#include "plugin_abi/file_plugin.h"

// What a reader says about a file before its rows are read.
struct FileSize {
  int layers = 0;
  std::vector<int> widths, heights, bits, planeCounts;
  std::vector<LayerPlaneTable> planeTables;  // as the reader filled them
};

// Asks the reader of the path's extension for the sizes: mode 1 when the
// file becomes a canvas with layers, 0 when one picture is wanted. False
// without a reader or when it fails; nothing is shown. The depths are kept
// for the rows that follow.
bool GetFileSize(const std::string& path, int mode, FileSize* out);

// Reads a file's rows into a canvas whose layers stand as GetFileSize
// described them, then gives each layer its place, name and modes from the
// file. planeMap has one entry per layer: 1 for a layer whose first two
// alpha planes arrive swapped (an older native layout), else 0; it may be
// empty. The reader's result, or 0 when it couldn't run.
int ReadIntoCanvas(Canvas* canvas, const std::string& path, const std::vector<int>& planeMap);

// Reads a file of one picture into image (24 or 8 bits, of the file's
// size). A mask or transparency plane of the file multiplies into alpha,
// which may be null; delivered, when given, is set when one arrived.
int ReadIntoPicture(Plane* image, Plane* alpha, const std::string& path, int* delivered);

// The picture of a file for a preview, in 24 bits; null when it can't be
// read.
Plane* LoadPreview(const std::string& path);

// The small picture a reader gives quickly for its file, when it can
// (ReadFileFastImage writes it to a file of its own, which is read and
// deleted); null when it can't.
Plane* FastPreview(const std::string& path);

// A picture and its transparency: a 24-bit plane, and an 8-bit one that is
// 255 where the file brought none; delivered, when given, is set when the
// file brought one. False when the file can't be read.
bool LoadImageWithAlpha(const std::string& path, Plane** image, Plane** alpha,
                        int* delivered = nullptr);

// Forgets the depths of the last GetFileSize.
void ResetReadImage();
