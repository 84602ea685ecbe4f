#include "selection/win/draft_cursors.h"

#include <cstring>
#include <map>
#include <vector>

#include "platform/win32/win32_windows.h"

namespace {

// '#' black, 'o' white, anything else shows through; the hot spot is the
// middle of the picture.
struct Picture {
  std::vector<const char*> rows;
};

const std::map<std::string, Picture>& Pictures() {
  static const std::map<std::string, Picture> pictures = {
      {"move",
       {{"       #       ", "      #o#      ", "     #ooo#     ", "    ###o###    ",
         "  #   #o#   #  ", " ##   #o#   ## ", "#ooooooooooooo#", " ##   #o#   ## ",
         "  #   #o#   #  ", "    ###o###    ", "     #ooo#     ", "      #o#      ",
         "       #       "}}},
      {"posmove",
       {{"      #o#      ", "      #o#      ", "      #o#      ", "      #o#      ",
         "    #######    ", "    #ooooo#    ", "#####o###o#####", "ooooo#   #ooooo",
         "#####o###o#####", "    #ooooo#    ", "    #######    ", "      #o#      ",
         "      #o#      ", "      #o#      ", "      #o#      "}}},
      {"posmove2",
       {{"      #o#      ", "      #o#      ", "      #o#      ", "     #####     ",
         "    #ooooo#    ", "   #o#####o#   ", "####o#   #o####", "oooo#     #oooo",
         "####o#   #o####", "   #o#####o#   ", "    #ooooo#    ", "     #####     ",
         "      #o#      ", "      #o#      ", "      #o#      "}}},
      {"cross",
       {{"      #o#      ", "      #o#      ", "      #o#      ", "      #o#      ",
         "      #o#      ", "      #o#      ", "#######o#######", "ooooooo ooooooo",
         "#######o#######", "      #o#      ", "      #o#      ", "      #o#      ",
         "      #o#      ", "      #o#      ", "      #o#      "}}},
  };
  return pictures;
}

constexpr int kSize = 32;  // the standard cursor, one bit a pixel
constexpr int kRowBytes = kSize / 8;

HCURSOR Draw(const Picture& picture) {
  BYTE andMask[kSize * kRowBytes], xorMask[kSize * kRowBytes];
  std::memset(andMask, 0xFF, sizeof andMask);
  std::memset(xorMask, 0, sizeof xorMask);
  const int height = static_cast<int>(picture.rows.size());
  for (int y = 0; y < height; ++y)
    for (int x = 0; picture.rows[y][x]; ++x) {
      const char c = picture.rows[y][x];
      if (c != '#' && c != 'o') continue;
      const BYTE bit = static_cast<BYTE>(0x80 >> (x & 7));
      andMask[y * kRowBytes + x / 8] &= static_cast<BYTE>(~bit);
      if (c == 'o') xorMask[y * kRowBytes + x / 8] |= bit;
    }
  const int width = static_cast<int>(std::strlen(picture.rows[0]));
  return CreateCursor(win32::ProgramInstance(), width / 2, height / 2, kSize, kSize, andMask,
                      xorMask);
}

}  // namespace

// Each is made once and kept for the program's life.
HCURSOR DraftCursor(const std::string& name) {
  static std::map<std::string, HCURSOR> made;
  auto found = Pictures().find(name);
  if (found == Pictures().end()) return nullptr;
  HCURSOR& cursor = made[name];
  if (!cursor) cursor = Draw(found->second);
  return cursor;
}
