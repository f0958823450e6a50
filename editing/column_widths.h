#pragma once
struct App;

// Takes the grid's current column widths, rounded to whole twips, as the
// widths saved in "ColWidth", and records their total.
void NewWidth(App& app);
// tmrColResize's tick: picks up columns or a window the user resized.
void OnColResizeTimer(App& app);
