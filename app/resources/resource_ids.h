#pragma once
// Identifiers shared by the resource script and the program.
#define IDI_KLICKWERK 1
#define IDB_GRID_BACKGROUND 101
