#pragma once
// The fixed word lists of the program: the grid's columns, click actions,
// stop-key names, the command letters of keystroke text and the window
// commands.
#include <array>
#include <cstdint>
#include <string>
#include <vector>

enum Column : int { kColNumber = 0, kColX, kColY, kColButton, kColAdditional, kColMins, kColSecs, kColRepeat };
inline constexpr int kColumnCount = 8;
extern const std::array<const char*, kColumnCount> kColumnHeaders;  // "#" ... "Repeat"

extern const std::array<const char*, 9> kClickActions;  // "No Click" ... "Right Up"

// Name of a stop-key code ("" for codes without a name, F6 included).
std::string StopKeyName(std::int16_t code);
// Code of a stop-key name (0 for an unknown name, "F6" included).
std::int16_t StopKeyCodeOf(const std::string& name);
// The entries of cmbStopKeys: "ESCAPE", "F1" ... "F9".
std::vector<std::string> StopKeyChoices();

// True for the command letters of keystroke text, in any case.
bool IsCommandLetter(char character);
// The virtual key a lower-case command letter presses; 0 for "f", which
// takes the digit that follows, and for other characters.
std::uint8_t CommandKey(char letter);
// The command letter that presses `virtualKey`; '\0' for none.
char CommandLetterOfKey(int virtualKey);

struct NamedLetter {
    char letter;
    const char* keyName;
};
// The command letters of keys that are pressed and released, with their
// keys' names, in the order the editor's reference lists them.
std::vector<NamedLetter> NamedCommandLetters();

enum class WindowAction { Focus, Minimise, Maximise, Restore, Move, Close };

struct WindowCommand {
    const char* name;  // as typed, "%winfoc"
    WindowAction action;
    const char* meaning;  // the editor's reference line after " = "
};
extern const std::array<WindowCommand, 6> kWindowCommands;
