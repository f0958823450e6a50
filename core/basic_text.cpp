#include "core/basic_text.h"

#include <cctype>
#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "core/runtime_error.h"

namespace {

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// Length of the longest number at the start of `text` (sign, digits, one
// point, exponent); 0 when there is none. `digits` tells whether any digit
// was seen in the mantissa.
std::size_t NumberPrefix(std::string_view text, bool& digits) {
    std::size_t i = 0;
    digits = false;
    if (i < text.size() && (text[i] == '+' || text[i] == '-')) ++i;
    while (i < text.size() && IsDigit(text[i])) { ++i; digits = true; }
    if (i < text.size() && text[i] == '.') {
        ++i;
        while (i < text.size() && IsDigit(text[i])) { ++i; digits = true; }
    }
    if (!digits) return 0;
    if (i < text.size() && (text[i] == 'e' || text[i] == 'E' || text[i] == 'd' || text[i] == 'D')) {
        std::size_t j = i + 1;
        if (j < text.size() && (text[j] == '+' || text[j] == '-')) ++j;
        if (j < text.size() && IsDigit(text[j])) {
            while (j < text.size() && IsDigit(text[j])) ++j;
            i = j;
        }
    }
    return i;
}

double ParseNumber(std::string_view text) {
    std::string copy(text);
    for (char& c : copy) {
        if (c == 'd' || c == 'D') c = 'e';
    }
    return std::strtod(copy.c_str(), nullptr);
}

double RoundHalfEven(double value) { return value - std::remainder(value, 1.0); }

}  // namespace

double Val(std::string_view text) {
    std::string compact;
    compact.reserve(text.size());
    for (char c : text) {
        if (!IsBlank(c)) compact.push_back(c);
    }
    bool digits = false;
    std::size_t length = NumberPrefix(compact, digits);
    return length == 0 ? 0.0 : ParseNumber(std::string_view(compact).substr(0, length));
}

bool IsNumeric(std::string_view text) {
    std::string trimmed = Trim(text);
    bool digits = false;
    return !trimmed.empty() && NumberPrefix(trimmed, digits) == trimmed.size();
}

bool ToBoolean(std::string_view text) {
    std::string lowered = Lower(Trim(text));
    if (lowered == "true") return true;
    if (lowered == "false") return false;
    if (IsNumeric(text)) return ParseNumber(Trim(text)) != 0.0;
    RaiseTypeMismatch();
}

std::int16_t CInt(double value) {
    double rounded = RoundHalfEven(value);
    if (!(rounded >= -32768.0 && rounded <= 32767.0)) RaiseOverflow();
    return static_cast<std::int16_t>(rounded);
}

std::int32_t CLng(double value) {
    double rounded = RoundHalfEven(value);
    if (!(rounded >= -2147483648.0 && rounded <= 2147483647.0)) RaiseOverflow();
    return static_cast<std::int32_t>(rounded);
}

double TextToDouble(std::string_view text) {
    if (!IsNumeric(text)) RaiseTypeMismatch();
    return ParseNumber(Trim(text));
}

std::int32_t TextToLong(std::string_view text) { return CLng(TextToDouble(text)); }

double IntPart(double value) { return std::floor(value); }

std::string NumberText(double value) {
    if (value == 0.0) return "0";
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, "%.15g", value);
    return buffer;
}

std::string FixedText(double value, int decimals) {
    char buffer[512];
    std::snprintf(buffer, sizeof buffer, "%.*f", decimals, value);
    return buffer;
}

std::string Trim(std::string_view text) {
    std::size_t first = 0;
    std::size_t last = text.size();
    while (first < last && text[first] == ' ') ++first;
    while (last > first && text[last - 1] == ' ') --last;
    return std::string(text.substr(first, last - first));
}

std::string Lower(std::string_view text) {
    std::string result(text);
    for (char& c : result) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return result;
}

std::string Upper(std::string_view text) {
    std::string result(text);
    for (char& c : result) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return result;
}

std::vector<std::string> Split(std::string_view text, std::string_view separator) {
    std::vector<std::string> parts;
    if (separator.empty()) return {std::string(text)};
    std::size_t start = 0;
    for (std::size_t found; (found = text.find(separator, start)) != std::string_view::npos;
         start = found + separator.size()) {
        parts.emplace_back(text.substr(start, found - start));
    }
    parts.emplace_back(text.substr(start));
    return parts;
}

std::string Join(const std::vector<std::string>& parts, std::string_view separator) {
    std::string result;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        if (i > 0) result.append(separator);
        result.append(parts[i]);
    }
    return result;
}

std::string ReplaceAll(std::string_view text, std::string_view what, std::string_view with) {
    return Join(Split(text, what), with);
}

bool EndsWith(std::string_view text, std::string_view tail) {
    return text.size() >= tail.size() && text.substr(text.size() - tail.size()) == tail;
}

bool StartsWith(std::string_view text, std::string_view head) {
    return text.substr(0, head.size()) == head;
}
