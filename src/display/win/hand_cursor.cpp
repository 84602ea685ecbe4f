#include "display/win/hand_cursor.h"

#include <windows.h>

#include <cstring>
#include <iterator>

#include "platform/win32/win32_windows.h"

namespace {

// An open hand: '#' black, 'o' white, anything else shows through.
constexpr const char* kHand[] = {
    "        ##",
    "    ## #oo###",
    "   #oo##oo#oo#",
    "   #oo##oo#oo#",
    "    #oo#oo#oo# ##",
    "    #oo#oo#oo##oo#",
    "  ## #oooooooo#oo#",
    " #oo##ooooooooooo#",
    " #oooooooooooooo#",
    "  #ooooooooooooo#",
    "   #oooooooooooo#",
    "   #ooooooooooo#",
    "    #oooooooooo#",
    "     #ooooooooo#",
    "      #oooooooo#",
    "      #oooooooo#",
    "      ##########",
};
constexpr int kSize = 32;  // the standard cursor, one bit a pixel
constexpr int kRowBytes = kSize / 8;
constexpr int kHotX = 9, kHotY = 9;  // the palm

HCURSOR hand = nullptr;

HCURSOR DrawHand() {
  BYTE andMask[kSize * kRowBytes], xorMask[kSize * kRowBytes];
  std::memset(andMask, 0xFF, sizeof andMask);
  std::memset(xorMask, 0, sizeof xorMask);
  for (int y = 0; y < static_cast<int>(std::size(kHand)); ++y)
    for (int x = 0; kHand[y][x]; ++x) {
      const char c = kHand[y][x];
      if (c != '#' && c != 'o') continue;
      const BYTE bit = static_cast<BYTE>(0x80 >> (x & 7));
      andMask[y * kRowBytes + x / 8] &= static_cast<BYTE>(~bit);
      if (c == 'o') xorMask[y * kRowBytes + x / 8] |= bit;
    }
  return CreateCursor(win32::ProgramInstance(), kHotX, kHotY, kSize, kSize, andMask, xorMask);
}

}  // namespace

void ShowHandCursor(bool on) {
  if (on) {
    if (!hand) hand = DrawHand();
    SetCursor(hand ? hand : LoadCursor(nullptr, IDC_HAND));
    return;
  }
  SetCursor(LoadCursor(nullptr, IDC_ARROW));
  if (hand) DestroyCursor(hand);
  hand = nullptr;
}
