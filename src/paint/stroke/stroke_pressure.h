// Pressure on the pen. Around every dab or segment of a stroke the pen is
// copied, bent by the tablet's pressure (thickness, density, size, as the
// reflect options say) and put back, so pressure always acts on the
// unchanged values. Until a tablet answers nothing is bent: a mouse paints
// at full pressure.
#pragma once

#include <cstdint>
#include <functional>

// What the tablet delivers, once its subsystem has started it.
struct TabletPacket {
  int32_t pressure;     // 0..255
  int32_t orientation;  // below 0 while the eraser end of the stylus is down
  uint32_t tick;        // milliseconds
};

// The tablet as the stroke engine sees it. Its subsystem sets state to
// kTabletUsable and registers readSample, which answers 1 with a packet
// and 0 when none came; first is set on the first reading of a stroke.
constexpr int32_t kTabletUsable = 2;
struct TabletLink {
  int32_t state = 0;
  std::function<int(TabletPacket* out, int first)> readSample;
};
extern TabletLink tabletLink;

// Reads one packet; 0 when the tablet has none or isn't there.
int ReadTabletSample(TabletPacket* out, int first);

// Pressure -1 reads the tablet; 0..255 is given (the replay). Copies the
// pen, then bends it. 1 when the pressure is above zero; 0 also when no
// tablet is in use.
int ApplyPressure(int first, int pressure);
// The eraser end of the stylus is down: the pen paints as the Eraser, and
// the mode it replaced waits in savedMode for the end of the stroke.
void UseStylusEraser();

// Puts the pen back as ApplyPressure found it, but for the tip rasters,
// which a change of size may have rebuilt.
void RestorePen();
