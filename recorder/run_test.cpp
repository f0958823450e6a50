#include "recorder/run_test.h"

#include <cstdlib>
#include <vector>

#include "core/app.h"
#include "core/basic_text.h"
#include "core/error_log.h"
#include "core/status_line.h"
#include "core/vocabulary.h"

namespace {

constexpr int kRecheckNoticeMs = 5000;

// Occurrences of `prefix` + `letter` at any position.
int Count(const std::string& text, char prefix, char letter) {
    int count = 0;
    for (std::size_t i = 0; i + 1 < text.size(); ++i) count += text[i] == prefix && text[i + 1] == letter;
    return count;
}

struct Balance {
    NamedLetter letter;
    int presses;
    int releases;
};

std::vector<Balance> Unbalanced(const std::string& text) {
    std::vector<Balance> found;
    for (const NamedLetter& letter : NamedCommandLetters()) {
        Balance balance{letter, Count(text, '%', letter.letter), Count(text, '$', letter.letter)};
        if (balance.presses != balance.releases) found.push_back(balance);
    }
    return found;
}

std::string Report(const std::vector<Balance>& unbalanced) {
    std::string report;
    for (const Balance& balance : unbalanced) {
        report += "\r\n" + Upper(balance.letter.keyName) + ": Pressed " + std::to_string(balance.presses) +
                  "| Released " + std::to_string(balance.releases);
    }
    return report;
}

// Repair appends, even where a missing press belongs before its release:
// the question warns of that.
std::string Repaired(App& app, std::string text) {
    ShowStatus(app, "Please re-check the text, as it's possible the keys were not released at the right time.",
               false, false, kRecheckNoticeMs);
    for (const Balance& balance : Unbalanced(text)) {
        char prefix = balance.presses > balance.releases ? '$' : '%';
        for (int i = std::abs(balance.presses - balance.releases); i > 0; --i) text += {prefix, balance.letter.letter};
    }
    return text;
}

}  // namespace

std::string RunTest(App& app, const std::string& text, bool fix) {
    std::string result = text;
    Trapped(app, "RunTest", [&] {
        if (text.find("%win") != std::string::npos) return;
        if (fix) {
            result = Repaired(app, text);
            return;
        }
        std::string report = Report(Unbalanced(text));
        if (report.empty()) return;
        BoxAnswer answer = app.ui.boxes.Show(report + "\r\nPress Yes to fix (might yield unwanted results!)",
                                             app.appTitle, BoxStyle::QuestionYesNo);
        if (answer == BoxAnswer::Yes) result = Repaired(app, text);
    });
    return result;
}
