// The string table: every text shown to the user, by its number.
#pragma once

#include <string>
#include <vector>

struct StringEntry {
  int id;
  const char* text;
};

// The text of string id, or "" if the table has none.
const char* StringText(int id);

// printf-style formatting of a string of the table.
std::string FormatString(int id, ...);

// The caption of every message box.
inline constexpr const char* kProductName = "Tesel";
