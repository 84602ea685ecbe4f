// What the Open dialog tells of the file selected, before it is opened:
// its size and colours, and how many layers it has.
#pragma once

#include <string>

struct FileDescription {
  std::string size;    // string 20000: "%d x %dpixels %s" with the colour text
  std::string layers;  // string 20001: "LayerCount %d"
  bool canPreview = false;
};

// A file no reader can size says string 20002 on both lines; a comic tool
// file ("mff") says "[コミックツール]" and has no preview.
FileDescription DescribeFile(const std::string& path);
