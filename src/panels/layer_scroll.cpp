#include "panels/layer_scroll.h"

#include <algorithm>

#include "panels/layer_rows.h"

namespace {

constexpr int kLineStep = 1;
constexpr int kPageStep = 10;

int MoveTo(int offset) {
  const int before = layerPanel.scrollOffset;
  layerPanel.scrollOffset = std::clamp(offset, 0, MaxScrollOffset());
  return layerPanel.scrollOffset - before;
}

}  // namespace

int MaxScrollOffset() {
  return std::max(0, int(layerPanel.listHeight) - int(layerPanel.clientHeight));
}

int ScrollList(int request, int thumb) {
  const int offset = layerPanel.scrollOffset;
  switch (request) {
    case kScrollLineUp:
      return MoveTo(offset - kLineStep);
    case kScrollLineDown:
      return MoveTo(offset + kLineStep);
    case kScrollPageUp:
      return MoveTo(offset - kPageStep);
    case kScrollPageDown:
      return MoveTo(offset + kPageStep);
    case kScrollThumbPosition:
    case kScrollThumbTrack:
      return MoveTo(thumb);
    case kScrollTop:
      return MoveTo(0);
    case kScrollBottom:
      return MoveTo(MaxScrollOffset());
  }
  return 0;
}

int SizeList(int clientHeight) {
  layerPanel.clientHeight = uint32_t(std::max(0, clientHeight));
  return MoveTo(layerPanel.scrollOffset);
}
