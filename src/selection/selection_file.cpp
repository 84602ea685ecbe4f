#include "selection/selection_file.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <vector>

#include "base/command_ids.h"
#include "display/view_windows.h"
#include "document/selection_rows.h"
#include "platform/platform.h"
#include "resources/strings.h"
#include "selection/draft.h"
#include "selection/draft_engine.h"
#include "selection/gesture.h"
#include "selection/selection_windows.h"
#include "store/dib.h"

namespace {

// Form A: the box after the kind, the points, a reserved word, the count.
constexpr size_t kPointsAt = 20;
constexpr size_t kPointCountAt = 40984;
constexpr size_t kDibAt = kSelectionFileFixedBytes;
constexpr size_t kPaletteBytes = 1024;
// Form B: the path after the kind, then its four words.
constexpr size_t kNodesAt = 4;
constexpr size_t kPathWordsAt = kNodesAt + sizeof(PathNode) * kMaxPathNodes;

bool IsPathKind(int32_t kind) { return kind == cmd::kBezier || kind == cmd::kFreeBezier; }

// The kinds whose tool a loaded file makes current. A file's other words
// are never sent as commands: a Delete or a Close from a stray file would
// cost the user work.
bool HasShapeTool(int32_t kind) {
  return kind >= cmd::kSelectionBox && kind <= cmd::kFreeBezier && kind != cmd::kFreeHandConnect &&
         kind != cmd::kPlaceText && kind != cmd::kSeedFill;
}

int32_t Word(const uint8_t* at) {
  int32_t value;
  std::memcpy(&value, at, 4);
  return value;
}
void PutWord(uint8_t* at, int32_t value) { std::memcpy(at, &value, 4); }

// A point's float truncated to the word the file keeps; what no word holds
// saturates rather than wraps.
int32_t TruncatedCoordinate(float value) {
  if (std::isnan(value)) return 0;
  if (value <= -2147483648.0f) return INT32_MIN;
  if (value >= 2147483648.0f) return INT32_MAX;
  return static_cast<int32_t>(value);
}

std::vector<uint8_t> FormA(const Canvas* canvas) {
  std::vector<uint8_t> bytes(kSelectionFileFixedBytes, 0);
  const int32_t head[] = {canvas->selectionKind, canvas->selLeft, canvas->selTop, canvas->selRight,
                          canvas->selBottom};
  for (int i = 0; i < 5; ++i) PutWord(&bytes[4 * i], head[i]);
  for (int i = 0; i < kMaxDraftPoints; ++i)
    for (int axis = 0; axis < 2; ++axis)
      PutWord(&bytes[kPointsAt + 8 * i + 4 * axis],
              TruncatedCoordinate(canvas->draftPoints[i][axis]));
  PutWord(&bytes[kPointCountAt], static_cast<int32_t>(canvas->draftPointCount));
  return bytes;
}

std::vector<uint8_t> FormB(const Canvas* canvas) {
  std::vector<uint8_t> bytes(kSelectionPathFileBytes, 0);
  PutWord(&bytes[0], canvas->selectionKind);
  std::memcpy(&bytes[kNodesAt], Draft.nodes, sizeof(PathNode) * kMaxPathNodes);
  const int32_t words[] = {Draft.nodeCount, Draft.closed, Draft.openIndex, Draft.selectedNode};
  for (int i = 0; i < 4; ++i) PutWord(&bytes[kPathWordsAt + 4 * i], words[i]);
  return bytes;
}

// The raster as a packed 8-bit Dib: header, grey palette, rows bottom up.
DibTile* RasterTile(Canvas* canvas) {
  Plane* plane = canvas->selectionPlane;
  DibTile* tile = CreateTile(plane->width, plane->height, 8);
  if (!tile) return nullptr;
  std::vector<uint8_t> row(static_cast<size_t>(plane->width));
  for (int y = 0; y < plane->height; ++y) {
    ReadSelectionRow(canvas, y, 0, plane->width - 1, row.data());
    WriteTileRow8(tile, y, 0, plane->width - 1, row.data());
  }
  return tile;
}

bool WriteAll(FILE* file, const void* data, size_t size) {
  return std::fwrite(data, 1, size, file) == size;
}

bool WriteSelection(FILE* file, Canvas* canvas) {
  if (IsPathKind(canvas->selectionKind)) {
    const std::vector<uint8_t> bytes = FormB(canvas);
    return WriteAll(file, bytes.data(), bytes.size());
  }
  const std::vector<uint8_t> bytes = FormA(canvas);
  if (!WriteAll(file, bytes.data(), bytes.size())) return false;
  if (canvas->selectionKind != cmd::kSeedFill) return true;
  DibTile* tile = RasterTile(canvas);
  if (!tile) return false;
  const bool written =
      WriteAll(file, tile->dib, tile->pixelOffset + size_t(tile->stride) * size_t(tile->height));
  FreeTile(&tile);
  return written;
}

// Reads up to size bytes at offset; what the file lacks stays 0. The
// number of bytes read.
size_t ReadAt(FILE* file, uint64_t offset, uint8_t* out, size_t size) {
  std::memset(out, 0, size);
  if (offset > uint64_t(INT32_MAX) || std::fseek(file, long(offset), SEEK_SET) != 0) return 0;
  return std::fread(out, 1, size, file);
}

void LoadPath(FILE* file, Canvas* canvas) {
  std::vector<uint8_t> bytes(kSelectionPathFileBytes);
  ReadAt(file, 0, bytes.data(), bytes.size());
  std::memcpy(Draft.nodes, &bytes[kNodesAt], sizeof(PathNode) * kMaxPathNodes);
  // The path's readers trust its counts: a file's are held to the table.
  Draft.nodeCount = std::clamp(Word(&bytes[kPathWordsAt]), 0, kMaxPathNodes);
  Draft.closed = Word(&bytes[kPathWordsAt + 4]) ? 1 : 0;
  const int32_t open = Word(&bytes[kPathWordsAt + 8]);
  Draft.openIndex = open >= 0 && open <= Draft.nodeCount ? open : 0;
  const int32_t selected = Word(&bytes[kPathWordsAt + 12]);
  Draft.selectedNode = selected >= 0 && selected < Draft.nodeCount ? selected : -1;
  canvas->selectionKind = Word(&bytes[0]);
}

void LoadShape(const uint8_t* bytes, Canvas* canvas) {
  canvas->selectionKind = Word(bytes);
  canvas->selLeft = Word(bytes + 4), canvas->selTop = Word(bytes + 8);
  canvas->selRight = Word(bytes + 12), canvas->selBottom = Word(bytes + 16);
  for (int i = 0; i < kMaxDraftPoints; ++i)
    for (int axis = 0; axis < 2; ++axis)
      canvas->draftPoints[i][axis] = static_cast<float>(Word(bytes + kPointsAt + 8 * i + 4 * axis));
  const int32_t count = Word(bytes + kPointCountAt);
  canvas->draftPointCount = static_cast<uint32_t>(std::clamp(count, 0, kMaxDraftPoints));
}

void ShowDibError() {
  platform::ShowMessageBox(platform::Window::Frame, "dib error", kProductName, platform::MbOk);
}

// The file's raster over a new raster of the canvas's size, row y of the
// file (bottom up, so stored at height - 1 - y) to row y of the canvas,
// clipped; only the rows and columns that land on the canvas are read.
// Whatever the file lacks stays 0, selected.
void LoadRaster(FILE* file, Canvas* canvas) {
  uint8_t header[kDibHeaderBytes];
  const size_t got = ReadAt(file, kDibAt, header, sizeof header);
  const int32_t width = Word(header + 4), height = Word(header + 8);
  EnsurePlane(canvas, 1);
  if (got < sizeof header || width < 1 || height < 1) {
    ShowDibError();
    return;
  }
  const uint64_t stride = DibStride(width, 8);
  const uint64_t rows = kDibAt + kDibHeaderBytes + kPaletteBytes;
  const int shown = std::min(width, canvas->canvasWidth);
  const int shownRows = std::min(height, canvas->canvasHeight);
  std::vector<uint8_t> row(static_cast<size_t>(std::max(shown, 1)));
  bool whole = true;
  for (int y = 0; y < shownRows && shown > 0; ++y) {
    const uint64_t at = rows + uint64_t(height - 1 - y) * stride;
    if (ReadAt(file, at, row.data(), row.size()) < row.size()) whole = false;
    WriteSelectionRow(canvas, y, 0, shown - 1, row.data());
  }
  // The rows off the canvas must still be there for the raster to be whole.
  uint8_t last;
  if (!whole || ReadAt(file, rows + uint64_t(height) * stride - 1, &last, 1) < 1) ShowDibError();
}

}  // namespace

int SaveSelection(const std::string& path, Canvas* canvas) {
  if (canvas->selectionKind == kShapelessSelection) return 0;
  if (!canvas->selectionPlane) return 1;
  const size_t slash = path.find_last_of("/\\");
  const std::string folder = slash == std::string::npos ? "" : path.substr(0, slash + 1);
  const std::string temporary = platform::TempName(folder + "~tesel-XXXXXX.tss");
  FILE* file = platform::OpenFile(temporary, "wb");
  if (!file) return 0;
  bool written = WriteSelection(file, canvas);
  written = std::fclose(file) == 0 && written;
  if (written && platform::MoveFileOver(temporary, path)) return 1;
  platform::RemoveFile(temporary);
  return 0;
}

int LoadSelection(const std::string& path, Canvas* canvas) {
  FILE* file = platform::OpenFile(path, "rb");
  if (!file) {
    draftAllowsHooks.Run();
    return 0;
  }
  std::vector<uint8_t> fixed(kSelectionFileFixedBytes);
  ReadAt(file, 0, fixed.data(), fixed.size());
  const int32_t kind = Word(fixed.data());
  if (IsPathKind(kind))
    LoadPath(file, canvas);
  else
    LoadShape(fixed.data(), canvas);
  if (kind == cmd::kSeedFill) {
    LoadRaster(file, canvas);
    if (viewWindows.invalidate) viewWindows.invalidate(canvas);
  } else {
    CommitShape(canvas, 0, 1);
  }
  std::fclose(file);
  if (!ShiftHeld() && HasShapeTool(kind) && selectionWindows.sendCommand)
    selectionWindows.sendCommand(kind);
  draftAllowsHooks.Run();
  return 1;
}

bool ReadSelectionHead(const std::string& path, SelectionFileHead* head) {
  FILE* file = platform::OpenFile(path, "rb");
  if (!file) return false;
  uint8_t bytes[20];
  ReadAt(file, 0, bytes, sizeof bytes);
  std::fclose(file);
  *head = {Word(bytes), Word(bytes + 4), Word(bytes + 8), Word(bytes + 12), Word(bytes + 16)};
  return true;
}
