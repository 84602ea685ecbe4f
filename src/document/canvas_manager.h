// CanvasManager: the operations on a Canvas. The object has no state of
// its own; it names the family of operations. Results follow the house
// rule: 1 success, 0 failure, or an index where an index is the result.
#pragma once

#include <cstdint>
#include <string>

#include "document/canvas.h"

// Number the next canvas receives; counts up from program start.
extern uint32_t canvasSerialCount;

// Blank Sheet choices on an image plane.
enum class BlankSheetKind { White, Black, Texture, Transparent };

// Questions the command layer asks before the clearing operations below.
constexpr int kAskInitializeMask = 1405;          // "Mask will be cleared."
constexpr int kAskInitializeTransparency = 1406;  // "Transparency will be cleared."
constexpr int kAskClearPlane = 1408;              // "This Plane will be cleared."

class CanvasManagerObject {
 public:
  // Layers from 0 up to the first empty position 0.
  int LayerCount(const Canvas* canvas) const;

  // Making a document: InitCanvas, the next serial, CreateCanvasPlanes.
  int MakeCanvas(Canvas* canvas, WindowHandle documentWnd);
  // Zeroes the record and lays out the slots that CanvasRequest asks for.
  void InitCanvas(Canvas* canvas, WindowHandle documentWnd);
  // Makes the planes CanvasRequest asks for and fills them by its mode.
  int CreateCanvasPlanes(Canvas* canvas);
  // Frees every plane of every layer, and the selection raster.
  void FreeCanvasPlanes(Canvas* canvas);

  // Index of the new layer's position 0; 0 when no layer is free, -1 when
  // a plane can't be made (the slots made so far stay).
  int AddLayer(Canvas* canvas, int left, int top, int width, int height);
  // A layer of the user's size, clamped to the canvas and centred, placed
  // directly above the active layer and made active. Same results.
  int AddLayerByUser(Canvas* canvas, int width, int height);
  // A whole copy of the layer holding index at the first free layer.
  int DuplicateLayer(Canvas* canvas, int index);
  // A further plane in the first empty position of the layer; -1 if none.
  int AddPlane(Canvas* canvas, int index, int isTransparency);
  // Removes a plane above position 0; its position, or -1.
  int DeletePlane(Canvas* canvas, int index);
  // Removes a layer above layer 0 and lets the ones above slide down.
  void DeleteLayer(Canvas* canvas, int layer);
  // Moves a layer to another place in the stack; 1 when the move stands.
  // A move that would change the size of layer 0 is undone with string 1400.
  int MoveLayer(Canvas* canvas, int from, int to);

  // Every change of the active plane goes through here.
  void SelectPlane(Canvas* canvas, int index);
  void ResetAccuracy(Canvas* canvas, int make);
  void ClearAccuracy(Canvas* canvas);
  // Shifts all layers so that layer 0 stands at (0, 0).
  int NormalizeOrigins(Canvas* canvas);
  // modified = 1, and the layer panel redraws the active plane's thumbnail.
  void MarkModified(Canvas* canvas);

  // What the user sees for a plane: its name at position 0, else its
  // AlphaPlaneName.
  std::string PlaneLabel(const Canvas* canvas, int index) const;
  // The document window's title: accuracy, active plane, file name.
  std::string TitleText(const Canvas* canvas) const;

  // Clearing operations on the active layer. Each returns 1, or 0 when the
  // plane it works on doesn't exist. The caller asks the question first.
  int BlankSheet(Canvas* canvas, BlankSheetKind kind, Plane* texture);
  int ClearPlane(Canvas* canvas);
  int InitializeMask(Canvas* canvas);
  int InitializeTransparency(Canvas* canvas);
  int Negative(Canvas* canvas);
};

extern CanvasManagerObject CanvasManager;
