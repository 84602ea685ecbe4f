// Writes the shipped first-run settings file: make_env <output path>.
#include <cstdio>
#include <memory>

#include "settings/default_settings.h"

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: make_env <output path>\n");
    return 2;
  }
  auto record = std::make_unique<Settings>();
  DefaultSettings(*record);
  FILE* file = std::fopen(argv[1], "wb");
  if (!file) {
    std::perror(argv[1]);
    return 1;
  }
  bool written = std::fwrite(record.get(), 1, sizeof *record, file) == sizeof *record;
  if (std::fclose(file) != 0 || !written) {
    std::fprintf(stderr, "make_env: could not write %s\n", argv[1]);
    return 1;
  }
  return 0;
}
