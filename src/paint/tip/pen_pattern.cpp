#include "paint/tip/pen_pattern.h"

#include <algorithm>
#include <cctype>

#include "paint/tip/pen_record.h"
#include "platform/platform.h"
#include "resources/strings.h"
#include "store/dib.h"

namespace {

constexpr int kStringUseAsTip = 1500;

std::string Extension(const std::string& path) {
  size_t dot = path.find_last_of('.');
  size_t slash = path.find_last_of("/\\");
  if (dot == std::string::npos || (slash != std::string::npos && dot < slash)) return "";
  std::string ext = path.substr(dot + 1);
  for (char& c : ext) c = char(std::tolower(static_cast<unsigned char>(c)));
  return ext;
}

// The mask beside a bmp pattern, when there is one of the pattern's size.
Plane* ReadMask(const std::string& path, const Plane* image) {
  Plane* mask = LoadBmp(path.substr(0, path.size() - 3) + "bmm");
  if (mask && (mask->bits != 8 || mask->width != image->width || mask->height != image->height))
    PlaneStore.FreePlane(&mask);
  return mask;
}

}  // namespace

void FreePenPattern() {
  PlaneStore.FreePlane(&pen.patternImage);
  PlaneStore.FreePlane(&pen.patternAlpha);
  pen.patternActive = 0;
  tipState.patternIsTip = 0;
}

int SetPenPattern(const std::string& path, Plane* image, Plane* alpha) {
  if (!image) {
    PlaneStore.FreePlane(&alpha);
    return 0;
  }
  FreePenPattern();
  pen.patternImage = image;
  pen.patternAlpha = alpha;
  pen.patternActive = 1;
  std::string ext = Extension(path);
  if (ext == "bmp") {
    Plane* mask = ReadMask(path, image);
    if (!mask) return 1;
    PlaneStore.FreePlane(&pen.patternAlpha);
    pen.patternAlpha = mask;
  } else if (ext != "tsl" && ext != "png") {
    return 1;
  }
  if (int64_t(image->width) * image->height < kStampPixelLimit &&
      platform::ShowMessageBox(platform::Window::Frame, StringText(kStringUseAsTip), kProductName,
                               platform::MbYesNo | platform::MbIconQuestion) == platform::IdYes)
    tipState.patternIsTip = 1;
  return 1;
}
