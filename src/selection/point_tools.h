// The point tools, polygon (20004) and connect line (20008): their shape
// is the canvas's point list, drawn by clicks in the tool's own loop. A
// polygon keeps its first point twice, at index 0 and at the last index,
// and every edit keeps the two equal.
#pragma once

#include "document/canvas.h"

// The outline of the first `count` points: dotted lines between
// neighbours, and with pegs set a peg on every pegEvery-th point, the last
// one too when pegOnLast is set (a polygon's last is its first again).
void PointOutline(Canvas* canvas, int count, bool pegs, int pegEvery, bool pegOnLast);

// The peg menu's two items on the point under the pointer. Add Point puts
// a point beside it (+5, +5), Delete Point takes it out; the count moves
// by one even where the capacity or the least count held the points still.
enum PointMenuItem { kAddPoint = 1, kDeletePoint = 2 };
void AddPoint(Canvas* canvas, int index);
void DeletePoint(Canvas* canvas, int index, bool closed);

void InstallPointTools();
