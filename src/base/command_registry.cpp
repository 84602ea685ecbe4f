#include "base/command_registry.h"

#include <map>
#include <utility>

namespace {
std::map<int, FrameCommandHandler> frameHandlers;
std::map<int, CanvasCommandHandler> canvasHandlers;
}  // namespace

void RegisterFrameCommand(int id, FrameCommandHandler handler) {
  frameHandlers[id] = std::move(handler);
}

void RegisterCanvasCommand(int id, CanvasCommandHandler handler) {
  canvasHandlers[id] = std::move(handler);
}

int RunFrameHandler(int id, intptr_t lParam) {
  auto it = frameHandlers.find(id);
  if (it == frameHandlers.end() || !it->second) return 0;
  it->second(lParam);
  return 1;
}

int RunCanvasHandler(Canvas* canvas, int id, intptr_t lParam) {
  auto it = canvasHandlers.find(id);
  if (it == canvasHandlers.end() || !it->second) return 0;
  it->second(canvas, lParam);
  return 1;
}

void ClearCommandHandlers() {
  frameHandlers.clear();
  canvasHandlers.clear();
}
