#include "playback/random_value.h"

#include <algorithm>
#include <cmath>
#include <random>

#include "core/app.h"
#include "core/basic_text.h"
#include "core/runtime_error.h"
#include "core/status_line.h"

namespace {

constexpr int kMostDecimals = 100;

// The rounding field's integer part, clamped while it is still a double.
int DecimalsOf(const std::string& field) {
    double decimals = IntPart(Val(field));
    if (!(decimals > 0)) return 0;
    return decimals < kMostDecimals ? static_cast<int>(decimals) : kMostDecimals;
}

// The three fields between "rnd(" and ")", blanks trimmed, empty ones "0".
std::vector<std::string> Fields(const std::string& lowered) {
    std::vector<std::string> fields = Split(lowered.substr(4, lowered.size() - 5), ",");
    fields.resize(3);
    for (std::string& field : fields) {
        field = Trim(field);
        if (field.empty()) field = "0";
    }
    return fields;
}

// The "#.00" pattern: `decimals` digits after the separator and no leading
// zero, so 0.3 gives ".3" and 5 with no decimals gives "5.". Halves round
// away from zero, as number formats do.
std::string PatternText(double value, int decimals, char separator) {
    double scale = std::pow(10.0, decimals);
    double rounded = std::round(value * scale) / scale;
    std::string text = FixedText(std::isfinite(rounded) ? rounded : value, decimals);
    if (decimals == 0) text += '.';
    std::size_t point = text.find('.');
    text[point] = separator;
    bool negative = text[0] == '-';
    std::size_t integerStart = negative ? 1 : 0;
    if (text.compare(integerStart, point - integerStart, "0") == 0) text.erase(integerStart, 1);
    return text;
}

}  // namespace

double DrawRandom(App& app) {
    if (app.drawRandom) return app.drawRandom();
    if (!app.random) app.random.emplace(app.os.clock.TickCount());
    return std::uniform_real_distribution<double>(0.0, 1.0)(*app.random);
}

bool IsRnd(const std::string& text) {
    return Lower(text.substr(0, 4)) == "rnd(" && !text.empty() && text.back() == ')';
}

std::string RndEval(App& app, const std::string& text, int stepNumber) {
    std::string lowered = Lower(text);
    if (!IsRnd(lowered)) return "0";
    std::vector<std::string> fields = Fields(lowered);
    if (std::count(lowered.begin(), lowered.end(), ',') != 2) {
        ShowStatus(app, "Incorrect RND syntax in step #" + std::to_string(stepNumber) + " [" + text +
                            "].  Zeros assigned.");
        return "0";
    }
    double value = Val(fields[0]) + Val(fields[1]) * DrawRandom(app);
    // As a plain number too large for a cell does.
    if (!std::isfinite(value)) RaiseOverflow();
    if (fields[2] != "0") return PatternText(value, DecimalsOf(fields[2]), app.decimalSeparator);
    return NumberText(IntPart(value));
}

double RndNumber(App& app, const std::string& text, int stepNumber) {
    std::string value = RndEval(app, text, stepNumber);
    std::replace(value.begin(), value.end(), app.decimalSeparator, '.');
    return Val(value);
}
