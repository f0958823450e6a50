#include "fakes/fake_views.h"

#include <limits>

void FakeMainView::SetTimer(Timer timer, bool enabled) {
    TimerSlot& slot = timers[timer];
    if (enabled && !slot.enabled) slot.nextDue = nowMs + slot.interval;
    slot.enabled = enabled;
}

double FakeMainView::NextDue() const {
    double next = std::numeric_limits<double>::infinity();
    for (const auto& [timer, slot] : timers) {
        if (slot.enabled && slot.interval > 0 && slot.nextDue < next) next = slot.nextDue;
    }
    return next;
}

void FakeMainView::FireDue(double now) {
    nowMs = now;
    for (auto& [timer, slot] : timers) {
        if (!slot.enabled || slot.interval <= 0 || slot.nextDue > now) continue;
        slot.nextDue = now + slot.interval;
        if (onTimer) onTimer(timer);
    }
}

BoxAnswer ScriptedBoxes::Show(const std::string& text, const std::string& title, BoxStyle style) {
    shown.push_back({text, title, style});
    if (onShow) onShow(shown.back());
    if (!answers.empty()) {
        BoxAnswer answer = answers.front();
        answers.pop_front();
        return answer;
    }
    bool question = style == BoxStyle::QuestionYesNo || style == BoxStyle::YesNoCancel;
    return question ? BoxAnswer::No : BoxAnswer::Ok;
}

std::vector<std::string> ScriptedBoxes::Texts() const {
    std::vector<std::string> texts;
    for (const Shown& box : shown) texts.push_back(box.text);
    return texts;
}
