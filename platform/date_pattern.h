#pragma once
// Reading a date written in the user's short date form, given that form's
// picture as the system describes it ("M/d/yyyy", "dd.MM.yyyy",
// "yyyy-MM-dd", "d' de 'MMMM' de 'yyyy"...).
#include <optional>
#include <string>

#include "platform/clock.h"

// Day and month pictures of one or two letters take one or two digits; "yy"
// and "y" take a two-digit year (up to 29 means 20xx, from 30 on 19xx);
// weekday names ("ddd") and era marks ("g") are passed over. A month name
// ("MMM") cannot be read. Nothing when the text does not fit the picture or
// names no real day.
std::optional<Date> ParseDateWithPattern(const std::string& text, const std::string& pattern);
