// The rows of a Packed plane: blocks of rows kept zlib-compressed in an
// address range that is reserved up front and committed only as packed
// bytes arrive. One block at a time is unpacked in blockBuffer.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

constexpr int kRowsPerBlock = 32;

class PackedRows {
 public:
  struct Block {
    uint8_t* packed;  // the block's place in the reserved range
    size_t length;    // packed bytes, 0 until first stored
  };

  PackedRows() = default;
  virtual ~PackedRows();
  PackedRows(const PackedRows&) = delete;
  PackedRows& operator=(const PackedRows&) = delete;

  // 0; -1 for bits other than 8 and 24; -2 when the tables can't be
  // allocated; -3 when the range can't be reserved. Until a set-up
  // succeeds, every store and fetch fails with -1 and touches nothing.
  int Setup(int bits, int width, int height, int rowsPerBlock);

  // Store or fetch the rowBytes bytes of row y. 0, or -1 when the block
  // that had to be packed first could not be committed (its changes are
  // lost) or when y is outside the plane.
  int StoreRow(int y, const uint8_t* src);
  int FetchRow(int y, uint8_t* dest);
  // Row y in the unpacked block, brought in as FetchRow brings it; with
  // `write` the block counts as changed. Null where FetchRow fails.
  uint8_t* RowInBlock(int y, bool write);

  int32_t blockFirstRow = 0;
  uint8_t* blockBuffer = nullptr;
  size_t blockBytes = 0;
  int32_t rowsPerBlock = 0;
  uint32_t blockDirty = 0;
  int32_t bits = 0;
  int32_t height = 0;
  size_t rowBytes = 0;
  size_t rowStride = 0;
  Block* blocks = nullptr;
  int32_t blockCount = 0;
  size_t reservedSize = 0;
  uint8_t* reservedBase = nullptr;

 private:
  void Release();
  // Whether row y can be stored and fetched: inside, and set up.
  bool Holds(int y) const { return reservedBase && y >= 0 && y < height; }
  // Brings the block of row y into blockBuffer, packing the dirty one first.
  // `unpackEmpty` tells whether a never-stored block is unpacked (and so
  // leaves blockBuffer as it was) or reads as zero.
  int Switch(int y, bool unpackEmpty);
  int PackBlock();
  bool Commit(uint8_t* address, size_t size);

  std::unique_ptr<uint8_t[]> staging_;  // compress output, blockBytes
};
