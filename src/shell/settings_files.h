// The settings record's files: read whole at start, written whole at exit.
#pragma once

#include <string>

// Reads "env__.env", or the shipped "env__2.env" when the first can't be
// opened, over the live record (a missing or short file leaves the rest
// of the record as it was), brings the record within its rules, and reads
// the file history and the palette file. 0 when there is no palette file:
// the palette is then seeded.
// folder is the program folder and ends with a path separator.
int LoadSettings(const std::string& folder);

// Writes "env__.env", then the history, the palette file and the number
// lists. 0, with nothing written, when "env__.env" can't be created;
// later failures are ignored.
int SaveSettings(const std::string& folder);
