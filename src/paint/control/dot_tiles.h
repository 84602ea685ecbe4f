// The tiles of the dot pen panel: the files of the family in use, fifteen
// to a page, each drawn as a thumbnail of its picture; the family is
// changed by the next button or the folder popup.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

constexpr int kDotTilesPerPage = 15;

// Opening the panel: the tiles show the page of the file in use, and with
// no dot tip yet the file in use becomes it.
void OpenDotTiles();
int DotPageCount();  // at least 1
int NextDotPage();   // wraps to the first; returns the page shown
// The file of a tile on the page shown; -1 for an empty tile.
int DotTileFile(int tile);
// A tile becomes the tip; 0 for an empty tile.
int PickDotTile(int tile);
// Another family, its first page, and its first file as the tip. The next
// one wraps to the first family. 0 when there is no such family.
int NextDotFolder();
int ChooseDotFolder(int index);

// A thumbnail of a pen picture in a square of size x size, white around
// it, shrunk to fit keeping each channel's darkest value so that thin
// strokes stay visible. A file that can't be read gives a grey square and 0.
int DotThumbnail(const std::string& path, int size, std::vector<uint8_t>& bgr);
