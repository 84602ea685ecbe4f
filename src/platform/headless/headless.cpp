// The seam for native tests on Linux: real memory, recorded interface.
#include "platform/headless/headless.h"

#include <dlfcn.h>
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <filesystem>
#include <random>

#include "plugin_abi/progress.h"

namespace headless {

namespace {
State state;
thread_local uint32_t lastError = 0;
}  // namespace

State& Recorded() { return state; }

void Reset() { state = State{}; }

void ScriptPointer(const std::vector<PointerSample>& samples) {
  state.pointerScript.insert(state.pointerScript.end(), samples.begin(), samples.end());
}

std::vector<SentMessage> MessagesTo(platform::Window to, uint32_t message) {
  std::vector<SentMessage> out;
  for (const SentMessage& m : state.messages)
    if (m.to == to && m.message == message) out.push_back(m);
  return out;
}

}  // namespace headless

namespace platform {

using headless::state;

int ShowMessageBox(Window owner, const std::string& text, const std::string& caption,
                   unsigned style) {
  state.boxes.push_back({owner, text, caption, style});
  if (!state.boxAnswers.empty()) {
    int answer = state.boxAnswers.front();
    state.boxAnswers.pop_front();
    return answer;
  }
  unsigned buttons = style & 0xF;
  return (buttons == MbYesNo || buttons == MbYesNoCancel) ? IdYes : IdOk;
}

intptr_t SendToWindow(Window to, uint32_t message, intptr_t wParam, intptr_t lParam) {
  state.messages.push_back({to, message, wParam, lParam});
  return 0;
}

// A mapping is a memfd: anonymous shared memory that views map at offsets.
MappingHandle CreateMapping(uint64_t size, const std::string& name) {
  if (state.failMappings > 0) {
    --state.failMappings;
    headless::lastError = ENOMEM;
    return nullptr;
  }
  int fd = memfd_create(name.c_str(), MFD_CLOEXEC);
  if (fd < 0 || ftruncate(fd, static_cast<off_t>(size)) != 0) {
    headless::lastError = static_cast<uint32_t>(errno);
    if (fd >= 0) close(fd);
    return nullptr;
  }
  return reinterpret_cast<MappingHandle>(static_cast<intptr_t>(fd) + 1);
}

static int MappingFd(MappingHandle mapping) {
  return static_cast<int>(reinterpret_cast<intptr_t>(mapping) - 1);
}

void CloseMapping(MappingHandle mapping) {
  if (mapping) close(MappingFd(mapping));
}

void* MapView(MappingHandle mapping, uint64_t offset, size_t size) {
  void* view = mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_SHARED, MappingFd(mapping),
                    static_cast<off_t>(offset));
  if (view == MAP_FAILED) {
    headless::lastError = static_cast<uint32_t>(errno);
    return nullptr;
  }
  return view;
}

void UnmapView(void* view, size_t size) {
  if (view) munmap(view, size);
}

uint32_t AllocationGranularity() { return 65536; }

void* ReserveRange(size_t size) {
  if (state.failReserves > 0) {
    --state.failReserves;
    return nullptr;
  }
  void* base = mmap(nullptr, size, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
  return base == MAP_FAILED ? nullptr : base;
}

bool CommitRange(void* address, size_t size) {
  if (state.failCommits > 0) {
    --state.failCommits;
    headless::lastError = ENOMEM;
    return false;
  }
  uintptr_t page = static_cast<uintptr_t>(sysconf(_SC_PAGESIZE));
  uintptr_t start = reinterpret_cast<uintptr_t>(address) & ~(page - 1);
  uintptr_t end = reinterpret_cast<uintptr_t>(address) + size;
  return mprotect(reinterpret_cast<void*>(start), end - start, PROT_READ | PROT_WRITE) == 0;
}

void ReleaseRange(void* address, size_t size) {
  if (address) munmap(address, size);
}

uint32_t LastError() { return headless::lastError; }

std::string ErrorText(uint32_t code) { return std::strerror(static_cast<int>(code)); }

int ThreadPriority() { return state.priority; }

bool PriorityBoostPays() { return true; }

void SetThreadPriority(int priority) {
  state.priority = priority;
  state.prioritiesSet.push_back(priority);
}

std::string TempName(const std::string& templ) {
  static std::mt19937 random{std::random_device{}()};
  static const char letters[] = "abcdefghijklmnopqrstuvwxyz0123456789";
  std::string name = templ;
  size_t at = name.rfind("XXXXXX");
  if (at != std::string::npos)
    for (size_t i = 0; i < 6; ++i) name[at + i] = letters[random() % (sizeof letters - 1)];
  return name;
}

FILE* OpenFile(const std::string& path, const char* mode) { return std::fopen(path.c_str(), mode); }

bool RemoveFile(const std::string& path) { return std::remove(path.c_str()) == 0; }

bool FileExists(const std::string& path) {
  std::error_code error;
  return std::filesystem::is_regular_file(path, error);
}

uint64_t FileWriteTime(const std::string& path) {
  std::error_code error;
  const auto time = std::filesystem::last_write_time(path, error);
  return error ? 0 : uint64_t(time.time_since_epoch().count());
}

bool MoveFileOver(const std::string& from, const std::string& to) {
  return std::rename(from.c_str(), to.c_str()) == 0;
}

std::vector<std::string> ListFiles(const std::string& folder, const std::string& suffix) {
  std::vector<std::string> names;
  std::error_code error;
  for (std::filesystem::directory_iterator it(folder, error), end; !error && it != end;
       it.increment(error)) {
    const std::string name = it->path().filename().string();
    if (name.size() >= suffix.size() &&
        std::equal(suffix.begin(), suffix.end(), name.end() - suffix.size(),
                   [](char a, char b) { return std::tolower(a) == std::tolower(b); }))
      names.push_back(name);
  }
  return names;
}

bool MakeFolder(const std::string& folder) {
  std::error_code error;
  std::filesystem::create_directories(folder, error);
  return std::filesystem::is_directory(folder, error);
}

std::string UserDataFolder() {
  if (!state.userDataFolder.empty()) MakeFolder(state.userDataFolder);
  return state.userDataFolder;
}

LocalDateTime LocalTime() {
  if (state.localTime.year) return state.localTime;
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday,
          local.tm_hour,        local.tm_min,     local.tm_sec};
}

LibraryHandle OpenLibrary(const std::string& path) {
  return dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
}

void* LibrarySymbol(LibraryHandle library, const char* name) {
  return library ? dlsym(library, name) : nullptr;
}

void CloseLibrary(LibraryHandle library) {
  if (library) dlclose(library);
}

const char* LibrarySuffix() { return ".so"; }

namespace {

// A report reaches the role's window as the status message, and so the record.
struct RoleSink {
  TeselProgressSink sink;
  Window role;
};

void ReportToRole(TeselProgressSink* sink, int code, int percent) {
  SendToWindow(reinterpret_cast<RoleSink*>(sink)->role, MsgStatus, code, percent);
}

}  // namespace

void* PluginWindow(Window role) {
  static std::array<RoleSink, static_cast<size_t>(Window::CanvasView) + 1> sinks = [] {
    std::array<RoleSink, static_cast<size_t>(Window::CanvasView) + 1> all{};
    for (size_t i = 0; i < all.size(); ++i) all[i] = {{ReportToRole}, static_cast<Window>(i)};
    return all;
  }();
  return &sinks[static_cast<size_t>(role)].sink;
}

PointerPosition PollPointer() {
  const headless::PointerSample& at = state.pointer;
  return {at.x + state.screenOriginX, at.y + state.screenOriginY, at.x, at.y};
}

bool KeyDown(int virtualKey) {
  const std::vector<int>& keys = state.pointer.keysDown;
  return std::find(keys.begin(), keys.end(), virtualKey) != keys.end();
}

void DrainPointerMessages() {
  ++state.drains;
  if (state.pointerScript.empty()) {
    state.pointer.keysDown.clear();
    return;
  }
  state.pointer = state.pointerScript.front();
  state.pointerScript.pop_front();
}

uint32_t TickCount() { return state.tick; }

void BusyWait(uint32_t ms) {
  state.tick += ms;
  state.busyWaits.push_back(ms);
}

void SetWaitCursor(bool on) { state.waitCursorDepth += on ? 1 : -1; }

}  // namespace platform
