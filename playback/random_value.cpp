#include "playback/random_value.h"

#include <algorithm>
#include <cmath>
#include <random>

#include "core/app.h"
#include "core/basic_text.h"
#include "core/status_line.h"

namespace {

constexpr int kMostDecimals = 100;

double StandardDraw(std::uint32_t seed) {
    std::mt19937 generator(seed);
    return std::uniform_real_distribution<double>(0.0, 1.0)(generator);
}

// Re-seeded from the clock on every evaluation.
double DrawR(App& app) {
    std::uint32_t seed = app.os.clock.TickCount();
    return app.drawRandom ? app.drawRandom(seed) : StandardDraw(seed);
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
    double value = Val(fields[0]) + Val(fields[1]) * DrawR(app);
    if (fields[2] != "0") {
        int decimals = std::clamp(static_cast<int>(IntPart(Val(fields[2]))), 0, kMostDecimals);
        return PatternText(value, decimals, app.decimalSeparator);
    }
    return NumberText(IntPart(value));
}

double RndNumber(App& app, const std::string& text, int stepNumber) {
    std::string value = RndEval(app, text, stepNumber);
    std::replace(value.begin(), value.end(), app.decimalSeparator, '.');
    return Val(value);
}
