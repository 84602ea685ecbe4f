// What the reader and the writer of the WIC plug-in share: COM set-up, a
// small owning pointer, the factory, paths and the size limits.
#pragma once

#include <windows.h>
#include <wincodec.h>

#include <cstdint>
#include <string>

namespace wic {

// The transparency slot "0T": alpha, 255 opaque.
constexpr int kTransparencyPlane = 1;
// A picture beyond these is a broken or hostile file, not a painting.
constexpr int64_t kMaxSide = 32768;
constexpr int64_t kMaxPixels = int64_t{1} << 28;
// A picture without a resolution opens at the host's own default.
constexpr int32_t kDefaultDpi = 96;

inline bool SizeAllowed(int64_t width, int64_t height) {
  return width > 0 && height > 0 && width <= kMaxSide && height <= kMaxSide &&
         width * height <= kMaxPixels;
}

// COM for the span of one entry point. The host may call from a thread whose
// apartment is already set, even as multithreaded: that is fine for WIC.
class ComScope {
 public:
  ComScope() {
    const HRESULT hr = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    owned_ = SUCCEEDED(hr);  // S_FALSE too must be balanced
    usable_ = owned_ || hr == RPC_E_CHANGED_MODE;
  }
  ~ComScope() {
    if (owned_) CoUninitialize();
  }
  ComScope(const ComScope&) = delete;
  ComScope& operator=(const ComScope&) = delete;
  bool usable() const { return usable_; }

 private:
  bool owned_ = false, usable_ = false;
};

// Owns one reference.
template <class T>
class Ptr {
 public:
  Ptr() = default;
  ~Ptr() { Reset(); }
  Ptr(const Ptr&) = delete;
  Ptr& operator=(const Ptr&) = delete;
  T* get() const { return p_; }
  T* operator->() const { return p_; }
  explicit operator bool() const { return p_ != nullptr; }
  T** Out() {
    Reset();
    return &p_;
  }
  void Reset() {
    if (p_) p_->Release();
    p_ = nullptr;
  }

 private:
  T* p_ = nullptr;
};

bool CreateFactory(Ptr<IWICImagingFactory>* factory);
// The host's paths are UTF-8; empty when it isn't.
std::wstring Widen(const char* utf8);
// Rounded, or kDefaultDpi for a missing or absurd value.
int32_t DpiFrom(double dpi);

}  // namespace wic
