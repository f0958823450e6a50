#pragma once
// Pressing a key as a keyboard does (keybd_event, which also sets the key's
// asynchronous state that polling programs read) and timing the reaction.
#include <windows.h>

#include <functional>

struct KeyReaction {
    bool seen = false;
    double milliseconds = 0;  // from the key's press to the reaction
};

// Holds the key down until `reacted()` answers true or `timeoutMs` has
// passed, polling about every millisecond, then releases it.
KeyReaction PressKeyUntil(BYTE virtualKey, const std::function<bool()>& reacted, DWORD timeoutMs);
