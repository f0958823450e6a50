#pragma once
// The fixed word lists of the program: click actions, stop-key names and the
// keyword lists of the keystroke-text tools.
#include <array>
#include <cstdint>
#include <string>
#include <vector>

extern const std::array<const char*, 9> kClickActions;  // "No Click" ... "Right Up"

// Name of a stop-key code ("" for codes without a name, F6 included).
std::string StopKeyName(std::int16_t code);
// Code of a stop-key name (0 for an unknown name, "F6" included).
std::int16_t StopKeyCodeOf(const std::string& name);
// The entries of cmbStopKeys: "ESCAPE", "F1" ... "F9".
std::vector<std::string> StopKeyChoices();

std::vector<std::string> CommandLetterList();
std::vector<std::string> KeyNameList();
std::vector<std::string> WindowCommandList();
