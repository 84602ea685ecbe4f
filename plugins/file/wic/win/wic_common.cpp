#include "wic_common.h"

#include <cmath>

namespace wic {

bool CreateFactory(Ptr<IWICImagingFactory>* factory) {
  return SUCCEEDED(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                                    IID_IWICImagingFactory,
                                    reinterpret_cast<void**>(factory->Out())));
}

std::wstring Widen(const char* utf8) {
  if (!utf8 || !*utf8) return {};
  const int n = MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, utf8, -1, nullptr, 0);
  if (n <= 0) return {};
  std::wstring wide(size_t(n), L'\0');
  MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, utf8, -1, wide.data(), n);
  wide.resize(size_t(n - 1));
  return wide;
}

int32_t DpiFrom(double dpi) {
  if (!(dpi >= 1.0 && dpi <= 100000.0)) return kDefaultDpi;
  return int32_t(std::lround(dpi));
}

}  // namespace wic
