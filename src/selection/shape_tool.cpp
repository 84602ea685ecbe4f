#include "selection/shape_tool.h"

#include <map>

namespace {
std::map<int, ShapeTool> tools;
}

std::function<int(Canvas*)> polygonPegOrBody;

void RegisterShapeTool(int id, ShapeTool tool) { tools[id] = std::move(tool); }

const ShapeTool* ShapeToolOf(int id) {
  auto found = tools.find(id);
  return found == tools.end() ? nullptr : &found->second;
}

void ClearShapeTools() {
  tools.clear();
  polygonPegOrBody = nullptr;
}
