#pragma once
// Identifiers shared by the resource script and the program.
#define IDI_KLICKWERK 1
#define IDB_GRID_BACKGROUND 101
// The window picker of the keystroke-text editor: the target at rest, and
// its empty frame while the pointer carries the target.
#define IDI_PICKER_FULL 201
#define IDI_PICKER_EMPTY 202
