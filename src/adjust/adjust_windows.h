// What the Image menu's channel and colour operations ask of the windows:
// the Win32 side fills `adjustWindows`, tests script it. An empty member is
// a step the window side can't take; the operation then does nothing.
#pragma once

#include <functional>
#include <string>
#include <vector>

// tsl_chcopy, "Copy between Channels": what it shows and returns. The
// names are the texts of the two lists.
struct ChannelCopyChoice {
  std::string originName, destinationName;
  bool inverted = false;   // "&Inverted Copy"
  bool insideOnly = true;  // "Do &not apply outside border"
};

struct AdjustWindows {
  // Both lists hold names; each selects its name of choice where the list
  // has it, else its first entry. True on OK, with the chosen texts and
  // the flags in choice.
  std::function<bool(const std::vector<std::string>& names, ChannelCopyChoice* choice)>
      channelCopyDialog;
};
extern AdjustWindows adjustWindows;
