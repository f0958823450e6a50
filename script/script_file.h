#pragma once
// The script file format and the working copy "\Data.dat".
#include <string>

struct App;

// Writes the grid to the working copy; `purge` first removes the "NEW" rows.
bool SaveData(App& app, bool purge);
// The same write without the busy pointer and the status messages.
bool SaveDataQuietly(App& app);
// Reads a script into the grid (an empty path means the working copy);
// appends rows, or with `overwrite` fills the existing rows in order.
// False only when the file does not exist.
bool ReadData(App& app, const std::string& path, bool overwrite);
