#include "selection/path_file.h"

#include <algorithm>
#include <cstdio>
#include <memory>
#include <vector>

#include "base/command_ids.h"
#include "document/selection_rows.h"
#include "platform/platform.h"
#include "selection/draft.h"
#include "selection/draft_engine.h"

std::string pathFileFolder;

namespace {

constexpr size_t kNodeWords = sizeof(PathNode) / 4;
constexpr size_t kFileWords = 1 + 4 + kMaxPathNodes * kNodeWords + 4;
constexpr size_t kFileBytes = kFileWords * 4;
static_assert(kFileBytes == 122916);
// Far beyond any canvas; a file with larger numbers isn't a path of ours.
constexpr int32_t kCoordinateLimit = 1 << 20;

void PutWord(std::vector<uint8_t>* bytes, int32_t value) {
  const auto v = static_cast<uint32_t>(value);
  for (int shift = 0; shift < 32; shift += 8) bytes->push_back(static_cast<uint8_t>(v >> shift));
}

int32_t WordAt(const std::vector<uint8_t>& bytes, size_t word) {
  const uint8_t* b = &bytes[word * 4];
  return static_cast<int32_t>(b[0] | b[1] << 8 | b[2] << 16 | static_cast<uint32_t>(b[3]) << 24);
}

bool InRange(int32_t v, int32_t low, int32_t high) { return v >= low && v <= high; }

// What a file holds once it has been read whole.
struct StoredPath {
  int32_t kind;
  int32_t box[4];
  PathNode nodes[kMaxPathNodes];
  int32_t nodeCount, closed, openIndex, selectedNode;

  explicit StoredPath(const std::vector<uint8_t>& bytes) {
    size_t w = 0;
    kind = WordAt(bytes, w++);
    for (int32_t& side : box) side = WordAt(bytes, w++);
    for (PathNode& node : nodes)
      for (int32_t* field : {&node.x, &node.y, &node.c1x, &node.c1y, &node.c2x, &node.c2y})
        *field = WordAt(bytes, w++);
    nodeCount = WordAt(bytes, w++);
    closed = WordAt(bytes, w++);
    openIndex = WordAt(bytes, w++);
    selectedNode = WordAt(bytes, w++);
  }

  // A file that another program or a broken write left holds numbers no
  // path of ours has; such a file is no path.
  bool Sane() const {
    if (!IsBezierKind(kind) || !InRange(nodeCount, 0, kMaxPathNodes) || !InRange(closed, 0, 1) ||
        !InRange(openIndex, 0, nodeCount) || !InRange(selectedNode, -1, nodeCount - 1))
      return false;
    for (int32_t side : box)
      if (!InRange(side, -kCoordinateLimit, kCoordinateLimit)) return false;
    for (int i = 0; i < nodeCount; ++i)
      for (int32_t v :
           {nodes[i].x, nodes[i].y, nodes[i].c1x, nodes[i].c1y, nodes[i].c2x, nodes[i].c2y})
        if (!InRange(v, -kCoordinateLimit, kCoordinateLimit)) return false;
    return true;
  }
};

}  // namespace

bool IsBezierKind(int kind) { return kind == cmd::kBezier || kind == cmd::kFreeBezier; }

std::string PathFileName(const Canvas* canvas) {
  char name[16];
  std::snprintf(name, sizeof name, "%05d.drf", static_cast<int>(canvas->serial));
  return pathFileFolder + name;
}

int SavePath(Canvas* canvas, int clearAfterwards) {
  if (!IsBezierKind(canvas->selectionKind)) return 1;
  std::vector<uint8_t> bytes;
  bytes.reserve(kFileBytes);
  PutWord(&bytes, canvas->selectionKind);
  for (int32_t side : {canvas->selLeft, canvas->selTop, canvas->selRight, canvas->selBottom})
    PutWord(&bytes, side);
  for (int i = 0; i < kMaxPathNodes; ++i) {
    const PathNode& n = Draft.nodes[i];
    for (int32_t v : {n.x, n.y, n.c1x, n.c1y, n.c2x, n.c2y}) PutWord(&bytes, v);
  }
  for (int32_t v : {Draft.nodeCount, Draft.closed, Draft.openIndex, Draft.selectedNode})
    PutWord(&bytes, v);
  FILE* file = platform::OpenFile(PathFileName(canvas), "wb");
  if (!file) return 0;
  const bool written = std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size();
  const bool closed = std::fclose(file) == 0;
  if (!written || !closed) return 0;
  if (clearAfterwards) {
    canvas->selectionKind = kNoDraft;
    SetSelectionBox(canvas, WholeCanvas(canvas));
    canvas->draftPointCount = 0;
  }
  return 1;
}

int RestorePath(Canvas* canvas, int reshow) {
  FILE* file = platform::OpenFile(PathFileName(canvas), "rb");
  if (!file) return 0;
  // One byte more than a path file tells a longer file from a whole one.
  std::vector<uint8_t> bytes(kFileBytes + 1);
  const size_t read = std::fread(bytes.data(), 1, bytes.size(), file);
  std::fclose(file);
  if (read != kFileBytes) return 0;
  const auto stored = std::make_unique<StoredPath>(bytes);
  if (!stored->Sane()) return 0;
  SetSelectionBox(canvas, {stored->box[0], stored->box[1], stored->box[2], stored->box[3]});
  std::copy(std::begin(stored->nodes), std::end(stored->nodes), Draft.nodes);
  Draft.nodeCount = stored->nodeCount;
  Draft.closed = stored->closed;
  Draft.openIndex = stored->openIndex;
  Draft.selectedNode = stored->selectedNode;
  if (reshow) {
    canvas->selectionKind = stored->kind;
    EraseOutline(canvas);
    CommitShape(canvas, 1, 1);
  }
  return 1;
}

void DeletePathFile(Canvas* canvas) { platform::RemoveFile(PathFileName(canvas)); }

void StorePathOnLeaving(Canvas* canvas) {
  if (IsBezierKind(canvas->selectionKind))
    SavePath(canvas, 1);
  else
    DeletePathFile(canvas);
}
