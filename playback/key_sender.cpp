#include "playback/key_sender.h"

#include <initializer_list>

#include "core/app.h"
#include "core/basic_text.h"
#include "core/error_log.h"
#include "platform/win_constants.h"
#include "playback/key_letters.h"
#include "playback/run_input.h"
#include "playback/waits.h"

namespace {

constexpr std::uint32_t kKeyDown = 0;
constexpr std::uint32_t kKeyUp = win::kKeyEventKeyUp;

// The program's own key events must not be taken for hot keys or the stop key.
void SetKeyTimers(App& app, bool enabled) {
    for (Timer timer : {Timer::Hotkey, Timer::ShiftNext, Timer::Stop}) app.ui.main.SetTimer(timer, enabled);
}

// Only the key of VkKeyScan's answer counts; no key on the layout gives 255.
constexpr std::uint8_t kNoKey = 0xFF;

std::uint8_t KeyOf(App& app, char character) {
    return static_cast<std::uint8_t>(app.os.input.VkKeyScan(character) & 0xFF);
}

// A character that no key of the layout makes ("é" on a US layout) goes as
// the character itself, without Shift; virtual key 255 would type nothing.
void TypeCharacter(App& app, char character, bool shifted) {
    std::uint8_t key = KeyOf(app, character);
    if (key == kNoKey) {
        app.os.input.SendUnicodeChar(character);
        return;
    }
    if (shifted) SendKey(app, win::kVkShift, kKeyDown);
    SendKey(app, key, kKeyDown);
    SendKey(app, key, kKeyUp);
    if (shifted) SendKey(app, win::kVkShift, kKeyUp);
}

bool NeedsShift(const App& app, char character) {
    return app.shiftedCharacters.find(character) != std::string::npos;
}

// "%f<digit>" or "$f<digit>": one full press of F1 to F9; any other
// character after the "f" counts as 0 and is swallowed too.
void PressFunctionKey(App& app, const std::string& text, std::size_t& position) {
    int digit = 0;
    if (position < text.size() && text[position] >= '0' && text[position] <= '9') digit = text[position] - '0';
    std::uint8_t key = static_cast<std::uint8_t>(win::kVkF1 - 1 + digit);
    SendKey(app, key, kKeyDown);
    SendKey(app, key, kKeyUp);
    ++position;
}

void RunCommand(App& app, char letter, bool press, const std::string& text, std::size_t& position) {
    if (letter == 'f') {
        PressFunctionKey(app, text, position);
    } else if (letter == 'l') {
        // Caps Lock toggles with a full press; its release form is two key-ups.
        SendKey(app, win::kVkCapital, press ? kKeyDown : kKeyUp);
        SendKey(app, win::kVkCapital, kKeyUp);
    } else {
        SendKey(app, CommandKey(letter), press ? kKeyDown : kKeyUp);
    }
}

}  // namespace

void TypeKeyText(App& app, const std::string& text) {
    app.shiftedCharacters = kShiftedCharacters;
    Pause(app, 0.1);
    SetKeyTimers(app, false);
    std::size_t length = text.size();
    for (std::size_t position = 1; position <= length; ++position) KeySend(app, text, position);
    SetKeyTimers(app, true);
}

void KeySend(App& app, const std::string& text, std::size_t& position) {
    Trapped(app, "KeySend", [&] {
        char character = text.at(position - 1);
        std::string& prefix = app.pendingPrefix;
        if (prefix.empty() && (character == '%' || character == '$')) {
            prefix = character;
            return;
        }
        if (!prefix.empty() && IsCommandLetter(character)) {
            RunCommand(app, Lower(std::string(1, character))[0], prefix == "%", text, position);
            prefix.clear();
            return;
        }
        if (!prefix.empty()) {
            // A prefix without a command letter is typed as it stands.
            TypeCharacter(app, prefix[0], true);
            prefix.clear();
        }
        TypeCharacter(app, character, NeedsShift(app, character));
    });
}
