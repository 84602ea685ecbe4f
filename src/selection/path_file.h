// The path file: the Bezier path is one for the whole program, so a canvas
// that loses the focus keeps its path in "<temporary folder><running
// number, 5 digits>.drf", and Edit Bezier keeps its backup there. 122,916
// bytes, little-endian 32-bit words: the kind, the box, all 5120 nodes,
// the node count, closed, openIndex and selectedNode.
#pragma once

#include <string>

#include "document/canvas.h"

// The temporary folder, ending with a separator; the shell sets it.
extern std::string pathFileFolder;

std::string PathFileName(const Canvas* canvas);

// The kinds that own the path: Bezier (20011) and Free Bezier (20012).
bool IsBezierKind(int kind);

// Only a Bezier Draft (20011, 20012) is written; for the others nothing is
// done and that is success. With clearAfterwards the canvas then forgets
// its shape (kind 0, box the canvas, no points) but keeps its raster.
// 0 when the file can't be made.
int SavePath(Canvas* canvas, int clearAfterwards);
// Reads the file back when it holds a Bezier path: the box and the path.
// With reshow the kind is set, the outline shown and the shape committed.
// 0, and nothing changed, when there is no such file or it isn't whole.
int RestorePath(Canvas* canvas, int reshow);
void DeletePathFile(Canvas* canvas);

// A canvas view loses the focus: its Bezier path goes to the file; a
// canvas without one loses its file, so that a path given up meanwhile
// doesn't come back with the focus.
void StorePathOnLeaving(Canvas* canvas);
