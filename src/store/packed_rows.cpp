#include "store/packed_rows.h"

#include <zlib.h>

#include <algorithm>
#include <cstring>
#include <new>

#include "platform/platform.h"

namespace {

constexpr int kCommitTries = 3;

}  // namespace

PackedRows::~PackedRows() { Release(); }

void PackedRows::Release() {
  platform::ReleaseRange(reservedBase, reservedSize);
  delete[] blocks;
  delete[] blockBuffer;
  staging_.reset();
  reservedBase = nullptr;
  reservedSize = 0;
  blocks = nullptr;
  blockBuffer = nullptr;
  blockCount = 0;
  blockDirty = 0;
  blockFirstRow = 0;
}

int PackedRows::Setup(int bitsIn, int width, int heightIn, int rowsPerBlockIn) {
  if (bitsIn != 8 && bitsIn != 24) return -1;
  if (reservedSize) Release();
  bits = bitsIn;
  height = heightIn;
  rowsPerBlock = std::max(rowsPerBlockIn, 4);
  rowBytes = static_cast<size_t>(width) * (bits / 8);
  rowStride = (rowBytes + 3) / 4 * 4;
  blockBytes = static_cast<size_t>(rowsPerBlock) * rowStride;
  blockCount = (height + rowsPerBlock - 1) / rowsPerBlock;

  blocks = new (std::nothrow) Block[blockCount]();
  blockBuffer = new (std::nothrow) uint8_t[blockBytes]();
  staging_.reset(new (std::nothrow) uint8_t[blockBytes]);
  if (!blocks || !blockBuffer || !staging_) {
    Release();
    return -2;
  }
  // Every block, the last one too, has a whole block's room: a block that
  // doesn't shrink is kept as it is.
  size_t size = blockBytes * static_cast<size_t>(blockCount);
  reservedBase = static_cast<uint8_t*>(platform::ReserveRange(size));
  if (!reservedBase) {
    Release();
    return -3;
  }
  reservedSize = size;
  for (int i = 0; i < blockCount; ++i) blocks[i] = {reservedBase + i * blockBytes, 0};
  return 0;
}

bool PackedRows::Commit(uint8_t* address, size_t size) {
  for (int attempt = 0; attempt < kCommitTries; ++attempt) {
    if (platform::CommitRange(address, size)) return true;
    platform::ShowMessageBox(platform::Window::None,
                             "Please close some other applications and Press OK.",
                             "Insufficient Memory Available", platform::MbOk);
  }
  return false;
}

int PackedRows::PackBlock() {
  Block& block = blocks[blockFirstRow / rowsPerBlock];
  uLongf packed = blockBytes;
  // A block that doesn't shrink (noise) is stored unpacked: a length of
  // blockBytes marks it, since a packed one is always shorter.
  const bool shrank = compress(staging_.get(), &packed, blockBuffer, blockBytes) == Z_OK &&
                      packed < blockBytes;
  if (!shrank) packed = blockBytes;
  if (!Commit(block.packed, packed)) return -1;
  std::memcpy(block.packed, shrank ? staging_.get() : blockBuffer, packed);
  block.length = packed;
  return 0;
}

int PackedRows::Switch(int y, bool unpackEmpty) {
  if (y >= blockFirstRow && y < blockFirstRow + rowsPerBlock) return 0;
  int result = 0;
  if (blockDirty) {
    result = PackBlock();
    blockDirty = 0;
  }
  const Block& block = blocks[y / rowsPerBlock];
  blockFirstRow = y / rowsPerBlock * rowsPerBlock;
  if (block.length == blockBytes) {
    std::memcpy(blockBuffer, block.packed, blockBytes);
  } else if (block.length != 0) {
    uLongf size = blockBytes;
    uncompress(blockBuffer, &size, block.packed, block.length);
  } else if (!unpackEmpty) {
    std::memset(blockBuffer, 0, blockBytes);  // a row goes into a fresh block
  }
  // Otherwise unpacking a never-stored block fails: blockBuffer keeps what it held.
  return result;
}

int PackedRows::StoreRow(int y, const uint8_t* src) {
  if (!Holds(y)) return -1;
  int result = Switch(y, false);
  std::memcpy(blockBuffer + (y - blockFirstRow) * rowStride, src, rowBytes);
  blockDirty = 1;
  return result;
}

int PackedRows::FetchRow(int y, uint8_t* dest) {
  if (!Holds(y)) return -1;
  int result = Switch(y, true);
  std::memcpy(dest, blockBuffer + (y - blockFirstRow) * rowStride, rowBytes);
  return result;
}

uint8_t* PackedRows::RowInBlock(int y, bool write) {
  if (!Holds(y)) return nullptr;
  Switch(y, true);  // a block that can't be packed loses its changes, as FetchRow's would
  if (write) blockDirty = 1;
  return blockBuffer + (y - blockFirstRow) * rowStride;
}
