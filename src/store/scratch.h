// The store's work buffer: bulk and file work move a plane's bytes through
// it in chunks, and report progress when there are many.
#pragma once

constexpr int kScratchBytes = 2000000;
constexpr int kChunkBytes = 1999900;         // a chunk always fits with room to spare
constexpr int kProgressThreshold = 1000001;  // bulk work of this many bytes reports progress
