// Files by UTF-8 name: a Japanese folder and file name must reach the disk
// as those characters, whatever the system's code page.
#include <cstdio>
#include <string>
#include <vector>

#include "platform/win32/win32_platform.h"
#include "seam_check.h"

namespace seam_check {

void CheckFileNames() {
  wchar_t temp[MAX_PATH];
  const std::wstring folder = std::wstring(temp, GetTempPathW(MAX_PATH, temp)) + L"tesel_画像";
  CreateDirectoryW(folder.c_str(), nullptr);
  const std::string path = platform::Narrow(folder) + "\\テスト画像.tsl";

  // Every byte value, so that a text mode would show as a changed size.
  std::vector<unsigned char> bytes(512), back(513);
  for (size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<unsigned char>(i * 7);
  if (FILE* out = platform::OpenFile(path, "wb")) {
    std::fwrite(bytes.data(), 1, bytes.size(), out);
    std::fclose(out);
  }
  WIN32_FIND_DATAW found{};
  HANDLE search = FindFirstFileW((folder + L"\\*.tsl").c_str(), &found);
  const bool named = search != INVALID_HANDLE_VALUE && std::wstring(found.cFileName) == L"テスト画像.tsl";
  if (search != INVALID_HANDLE_VALUE) FindClose(search);
  Report("a file written by a Japanese name has that name on disk", named, platform::Narrow(found.cFileName));

  FILE* in = platform::OpenFile(path, "rb");
  back.resize(in ? std::fread(back.data(), 1, back.size(), in) : 0);
  if (in) std::fclose(in);
  Report("it reads back byte for byte", back == bytes, std::to_string(back.size()) + " bytes");
  DeleteFileW((folder + L"\\テスト画像.tsl").c_str());
  RemoveDirectoryW(folder.c_str());
}

}  // namespace seam_check
