#pragma once
// A whole App over fakes with the main window's timers created and wired to
// their handlers, so keys "pressed" at a fake time reach the running code.
#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "app/main_timers.h"
#include "core/app.h"
#include "fakes/test_app.h"

class PlaybackRig : public ::testing::Test {
protected:
    static constexpr Control kLockedByRun[] = {Control::Start,    Control::Record,       Control::RecOptions,
                                               Control::ToolSave, Control::ToolLoad,     Control::ToolSettings,
                                               Control::Grid};

    PlaybackRig() {
        CreateMainTimers(app);
        t.main.panels[5] = "0";
        t.main.onTimer = [this](Timer timer) {
            RunDueActions();
            OnMainTimer(app, timer);
        };
    }

    // Runs `action` before the first timer tick at or after `atMs` of fake time.
    void At(double atMs, std::function<void()> action) { scheduled.insert({atMs, std::move(action)}); }

    // The key goes down at `atMs` and, when given, up again at `upMs`.
    void PressKeyAt(int virtualKey, double atMs, double upMs = -1) {
        At(atMs, [this, virtualKey] { t.input.pressedKeys.insert(virtualKey); });
        if (upMs >= 0) At(upMs, [this, virtualKey] { t.input.pressedKeys.erase(virtualKey); });
    }

    // A checked step; cells in grid order from X to Repeat.
    void AddStep(const std::string& x, const std::string& y, const std::string& button,
                 const std::string& additional, const std::string& mins = "0", const std::string& secs = "0",
                 const std::string& repeat = "0", bool checked = true) {
        std::string number = std::to_string(t.grid.RowCount() + 1);
        t.AddStep({number, x, y, button, additional, mins, secs, repeat}, checked);
    }

    // The window as a run leaves it: unlocked, the stop timer and pointer
    // guard off, the step keys listened for and fine timing ended.
    bool Idle() const {
        for (Control control : kLockedByRun) {
            if (!t.main.IsEnabled(control)) return false;
        }
        return !t.main.TimerEnabled(Timer::Stop) && t.main.TimerEnabled(Timer::ShiftNext) &&
               !t.main.TimerEnabled(Timer::MouseSaver) && t.clock.fineTiming == 0;
    }

    std::vector<InputEvent> KeyEvents() const { return EventsOf(InputEvent::Key); }
    std::vector<InputEvent> MouseEvents() const { return EventsOf(InputEvent::Mouse); }

    std::vector<InputEvent> EventsOf(InputEvent::Kind kind) const {
        std::vector<InputEvent> found;
        for (const InputEvent& event : t.input.events) {
            if (event.kind == kind) found.push_back(event);
        }
        return found;
    }

    TestApp t;
    App& app = t.app;

private:
    void RunDueActions() {
        while (!scheduled.empty() && scheduled.begin()->first <= t.clock.nowMs) {
            auto action = std::move(scheduled.begin()->second);
            scheduled.erase(scheduled.begin());
            action();
        }
    }

    std::multimap<double, std::function<void()>> scheduled;
};

inline InputEvent Down(std::uint32_t key) { return {InputEvent::Key, key, 0}; }
inline InputEvent Up(std::uint32_t key) { return {InputEvent::Key, key, 2}; }
inline InputEvent Click(std::uint32_t flags) { return {InputEvent::Mouse, flags, 0}; }
inline InputEvent Char(char character) { return {InputEvent::Unicode, static_cast<unsigned char>(character), 0}; }
