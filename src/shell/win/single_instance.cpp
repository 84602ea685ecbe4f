// A second start hands its file names to the running frame as one drop at
// the pointer, and the frame reads such a drop like any other.
#include "shell/win/single_instance.h"

#include <cstring>

#include "platform/win32/win32_windows.h"
#include "shell/drop_files.h"

namespace {

// Windows copies the block of a posted drop into the receiving process;
// Wine passes the handle through as it stands. Under Wine the block is
// therefore written straight into the running instance's memory.
bool RunningOnWine() {
  HMODULE ntdll = GetModuleHandleW(L"ntdll.dll");
  return ntdll && GetProcAddress(ntdll, "wine_get_version");
}

HGLOBAL SharedBlock(const std::vector<uint8_t>& bytes) {
  HGLOBAL block = GlobalAlloc(GMEM_SHARE | GMEM_MOVEABLE | GMEM_ZEROINIT, bytes.size());
  if (!block) return nullptr;
  std::memcpy(GlobalLock(block), bytes.data(), bytes.size());
  GlobalUnlock(block);
  return block;
}

void* BlockInProcessOf(HWND window, const std::vector<uint8_t>& bytes) {
  DWORD processId = 0;
  GetWindowThreadProcessId(window, &processId);
  HANDLE process = OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_WRITE, FALSE, processId);
  if (!process) return nullptr;
  void* block = VirtualAllocEx(process, nullptr, bytes.size(), MEM_COMMIT | MEM_RESERVE,
                               PAGE_READWRITE);
  if (block && !WriteProcessMemory(process, block, bytes.data(), bytes.size(), nullptr)) {
    VirtualFreeEx(process, block, 0, MEM_RELEASE);
    block = nullptr;
  }
  CloseHandle(process);
  return block;
}

}  // namespace

void HandOverFiles(HWND runningFrame, const std::vector<std::string>& files) {
  POINT pointer{};
  GetCursorPos(&pointer);
  const std::vector<uint8_t> bytes = BuildDropBlock(files, pointer.x, pointer.y);
  if (RunningOnWine()) {
    if (void* block = BlockInProcessOf(runningFrame, bytes))
      PostMessageW(runningFrame, kDropFilesMessage, reinterpret_cast<WPARAM>(block), 0);
    return;
  }
  HGLOBAL block = SharedBlock(bytes);
  if (block && !PostMessageW(runningFrame, kDropFilesMessage, reinterpret_cast<WPARAM>(block), 0))
    GlobalFree(block);
}

bool ReadDrop(HDROP drop, DropBlock& block) {
  // A block written in by a second start under Wine is no heap block:
  // its size is that of the pages it was given.
  SIZE_T size = GlobalSize(drop);
  const bool ownPages = size == 0;
  if (ownPages) {
    MEMORY_BASIC_INFORMATION region{};
    if (!VirtualQuery(drop, &region, sizeof region) || region.BaseAddress != drop ||
        region.State != MEM_COMMIT)
      return false;
    size = region.RegionSize;
  }
  const auto* bytes = static_cast<const uint8_t*>(ownPages ? drop : GlobalLock(drop));
  const bool read = bytes && ParseDropBlock(bytes, size, block);
  if (ownPages) {
    VirtualFree(drop, 0, MEM_RELEASE);
  } else {
    GlobalUnlock(drop);
    DragFinish(drop);
  }
  return read;
}
