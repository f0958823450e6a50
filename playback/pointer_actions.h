#pragma once
// What a step does with the mouse: the smooth move and the click actions.
#include <string>

#include "platform/input_device.h"

struct App;

// Glides the pointer to (x, y) in screen pixels, two pixels per axis per
// message-loop pass, ending exactly on the target.
void SScroll(App& app, int x, int y);
// Sends the mouse events of a Button cell ("Left Click", ...) at the screen
// position `at`; an unknown text sends nothing. Each event carries the
// position itself: a system that learns of pointer moves late (Wine hears
// of them from the X server) would otherwise click where the pointer was.
void SendClickAction(App& app, const std::string& action, Point at);
