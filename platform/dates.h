#pragma once
// Calendar dates: reading the user's short date form back, and calendar
// months added as the classic DateAdd("m") does.
#include <optional>
#include <string_view>

#include "platform/clock.h"

int DaysInMonth(int year, int month);

// The same day `months` later; a day the target month lacks becomes its last
// (31 January + 1 month is 28 or 29 February).
Date AddMonths(Date date, int months);

// Reads a date written in a short date pattern of the system ("M/d/yyyy",
// "dd.MM.yy", "yyyy-MM-dd"): three numbers in the pattern's order of day,
// month and year, whatever separates them. A first number of four digits is
// a year (an ISO date reads whatever the pattern); two-digit years are 1930
// to 2029. Nothing when the text is no such date.
std::optional<Date> DateFromText(std::string_view text, std::string_view pattern);
