#include "platform/dates.h"

#include <algorithm>
#include <cctype>
#include <string>
#include <vector>

namespace {

constexpr int kMonthsPerYear = 12;
// Two-digit years below this are of the 2000s, the others of the 1900s.
constexpr int kTwoDigitYearPivot = 30;

bool IsLeapYear(int year) { return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0; }

// The order of day ('d'), month ('M') and year ('y') in a pattern; text in
// single quotes is literal.
std::string FieldOrder(std::string_view pattern) {
    std::string order;
    bool quoted = false;
    for (char c : pattern) {
        if (c == '\'') quoted = !quoted;
        bool field = c == 'd' || c == 'M' || c == 'y';
        if (!quoted && field && order.find(c) == std::string::npos) order += c;
    }
    return order;
}

// The runs of digits of the text; nothing when it holds a letter.
std::optional<std::vector<std::string>> Numbers(std::string_view text) {
    std::vector<std::string> numbers;
    bool inNumber = false;
    for (char c : text) {
        auto byte = static_cast<unsigned char>(c);
        if (std::isalpha(byte)) return std::nullopt;
        bool digit = std::isdigit(byte) != 0;
        if (digit && !inNumber) numbers.emplace_back();
        if (digit) numbers.back() += c;
        inNumber = digit;
    }
    return numbers;
}

int YearOf(const std::string& digits) {
    int year = std::stoi(digits);
    if (digits.size() > 2) return year;
    return year + (year < kTwoDigitYearPivot ? 2000 : 1900);
}

}  // namespace

int DaysInMonth(int year, int month) {
    static constexpr int kDays[kMonthsPerYear] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    if (month < 1 || month > kMonthsPerYear) return 0;
    return month == 2 && IsLeapYear(year) ? 29 : kDays[month - 1];
}

Date AddMonths(Date date, int months) {
    int index = date.year * kMonthsPerYear + (date.month - 1) + months;
    Date result{index / kMonthsPerYear, index % kMonthsPerYear + 1, 0};
    result.day = std::min(date.day, DaysInMonth(result.year, result.month));
    return result;
}

std::optional<Date> DateFromText(std::string_view text, std::string_view pattern) {
    std::string order = FieldOrder(pattern);
    std::optional<std::vector<std::string>> numbers = Numbers(text);
    if (order.size() != 3 || !numbers || numbers->size() != 3) return std::nullopt;
    if ((*numbers)[0].size() == 4) order = "yMd";
    Date date;
    for (std::size_t i = 0; i < 3; ++i) {
        const std::string& digits = (*numbers)[i];
        if (digits.size() > 4) return std::nullopt;
        int value = std::stoi(digits);
        if (order[i] == 'd') date.day = value;
        if (order[i] == 'M') date.month = value;
        if (order[i] == 'y') date.year = YearOf(digits);
    }
    if (date.day < 1 || date.day > DaysInMonth(date.year, date.month)) return std::nullopt;
    return date;
}
