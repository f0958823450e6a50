#pragma once
// The operating system's name, determined once at start-up.
#include <string>

#include "platform/os_info.h"

struct App;

// The name of a version as GetVersionExA reports it; "" for versions the
// table does not know (6.0 and later among them).
std::string OSName(const OsVersion& version);
// Sets app.osName.
void GetWinV(App& app);
