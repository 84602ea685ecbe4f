// What the file level asks of the windows: the Win32 side fills it, tests
// script it. An empty member is a step the window side can't take, and it
// is left out.
#pragma once

#include <functional>
#include <string>

struct FileWindows {
  // tsl_save: saving in a format that drops layers and transparency. True
  // to go on; the box "Do not show this warning again" sets the setting.
  std::function<bool()> confirmFlatFormat;
  // The Save dialog, seeded with the canvas's name: true when the user
  // confirmed, with the name typed and the extension of the chosen filter.
  std::function<bool(const std::string& name, std::string* chosen, std::string* extension)>
      saveDialog;
  // The Open dialog: true with the path of the file chosen.
  std::function<bool(std::string* path)> openDialog;
};
extern FileWindows fileWindows;
