// A fresh folder for one test, removed with everything in it afterwards.
#pragma once

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

class TempFolder {
 public:
  TempFolder() {
    std::string templ = (std::filesystem::temp_directory_path() / "tesel-XXXXXX").string();
    path_ = std::string(mkdtemp(templ.data())) + "/";
  }
  ~TempFolder() { std::filesystem::remove_all(path_); }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  // The folder, with its trailing separator.
  const std::string& path() const { return path_; }
  std::string operator/(const std::string& name) const { return path_ + name; }

  void Write(const std::string& name, const std::vector<uint8_t>& bytes) const {
    std::filesystem::create_directories(std::filesystem::path(path_ + name).parent_path());
    std::ofstream(path_ + name, std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
  }
  void WriteText(const std::string& name, const std::string& text) const {
    Write(name, std::vector<uint8_t>(text.begin(), text.end()));
  }
  std::vector<uint8_t> Read(const std::string& name) const { return ReadFile(path_ + name); }
  std::string ReadText(const std::string& name) const {
    std::vector<uint8_t> bytes = Read(name);
    return std::string(bytes.begin(), bytes.end());
  }
  bool Exists(const std::string& name) const { return std::filesystem::exists(path_ + name); }

  static std::vector<uint8_t> ReadFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return std::vector<uint8_t>(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
  }

 private:
  std::string path_;
};
