#pragma once
// What a step does with the mouse: the smooth move and the click actions.
#include <string>

struct App;

// Glides the pointer to (x, y) in screen pixels, two pixels per axis per
// message-loop pass, ending exactly on the target.
void SScroll(App& app, int x, int y);
// Sends the mouse events of a Button cell ("Left Click", ...) where the
// pointer is; an unknown text sends nothing.
void SendClickAction(App& app, const std::string& action);
