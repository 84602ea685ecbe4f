// Limits that several levels share.
#pragma once

// The largest side of a canvas, in pixels; also the width of the row
// buffers that every canvas row fits.
constexpr int kMaxCanvasSide = 10240;
