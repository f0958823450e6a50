#include "platform/date_pattern.h"

#include <cctype>

namespace {
class PatternReader {
public:
    explicit PatternReader(const std::string& text) : text_(text) {}

    bool AtEnd() const { return at_ == text_.size(); }

    // Up to `maxDigits` digits, at least one.
    std::optional<int> Number(std::size_t maxDigits) {
        std::size_t start = at_;
        int value = 0;
        while (at_ < text_.size() && at_ - start < maxDigits && std::isdigit(Byte())) {
            value = value * 10 + (text_[at_] - '0');
            ++at_;
        }
        if (at_ == start) return std::nullopt;
        return value;
    }

    void SkipWhile(int (*test)(int)) {
        while (at_ < text_.size() && test(Byte())) ++at_;
    }

    void SkipWord() {
        while (at_ < text_.size() && (std::isalpha(Byte()) || text_[at_] == '.')) ++at_;
    }

    bool Literal(char expected) {
        if (std::isspace(static_cast<unsigned char>(expected))) {
            SkipWhile(std::isspace);
            return true;
        }
        if (at_ < text_.size() && text_[at_] == expected) {
            ++at_;
            return true;
        }
        return false;
    }

private:
    unsigned char Byte() const { return static_cast<unsigned char>(text_[at_]); }

    const std::string& text_;
    std::size_t at_ = 0;
};

bool IsLeapYear(int year) { return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0; }

int DaysInMonth(int year, int month) {
    static const int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return month == 2 && IsLeapYear(year) ? 29 : kDays[month - 1];
}

bool IsRealDay(const Date& date) {
    return date.year >= 1 && date.month >= 1 && date.month <= 12 && date.day >= 1 &&
           date.day <= DaysInMonth(date.year, date.month);
}

int WithCentury(int twoDigitYear) { return twoDigitYear + (twoDigitYear <= 29 ? 2000 : 1900); }

// Reads one picture element (`letter` repeated `count` times) into `date`.
bool ReadElement(PatternReader& reader, char letter, std::size_t count, Date& date) {
    std::optional<int> number;
    switch (letter) {
        case 'd':
            if (count > 2) {
                reader.SkipWord();
                return true;
            }
            number = reader.Number(2);
            if (number) date.day = *number;
            return number.has_value();
        case 'M':
            if (count > 2) return false;
            number = reader.Number(2);
            if (number) date.month = *number;
            return number.has_value();
        case 'y':
            number = reader.Number(count <= 2 ? 2 : 4);
            if (number) date.year = count <= 2 ? WithCentury(*number) : *number;
            return number.has_value();
        default:  // 'g': era
            reader.SkipWord();
            return true;
    }
}

bool IsPictureLetter(char c) { return c == 'd' || c == 'M' || c == 'y' || c == 'g'; }
}  // namespace

std::optional<Date> ParseDateWithPattern(const std::string& text, const std::string& pattern) {
    PatternReader reader(text);
    reader.SkipWhile(std::isspace);
    Date date;
    std::size_t at = 0;
    while (at < pattern.size()) {
        char c = pattern[at];
        if (IsPictureLetter(c)) {
            std::size_t count = 1;
            while (at + count < pattern.size() && pattern[at + count] == c) ++count;
            if (!ReadElement(reader, c, count, date)) return std::nullopt;
            at += count;
        } else if (c == '\'') {
            std::size_t close = pattern.find('\'', at + 1);
            if (close == std::string::npos) close = pattern.size();
            for (std::size_t i = at + 1; i < close; ++i)
                if (!reader.Literal(pattern[i])) return std::nullopt;
            at = close + 1;
        } else {
            if (!reader.Literal(c)) return std::nullopt;
            ++at;
        }
    }
    reader.SkipWhile(std::isspace);
    if (!reader.AtEnd() || !IsRealDay(date)) return std::nullopt;
    return date;
}
