#pragma once
// Text and number conversions with the classic BASIC meanings that grid cells
// and settings assume. All of the program converts through these.
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// Leading numeric value: blanks skipped, stops at the first character that
// cannot continue a number ("12abc" is 12, "abc" is 0).
double Val(std::string_view text);
// The whole trimmed text is one number; empty is not.
bool IsNumeric(std::string_view text);
// "True"/"False" in any case, or a number (0 is false); anything else raises
// Type mismatch.
bool ToBoolean(std::string_view text);
// A number given "as an integer": rounded half to even, Overflow outside 16 bits.
std::int16_t CInt(double value);
// The same for 32 bits.
std::int32_t CLng(double value);
// A cell or setting "converted to an integer": Type mismatch when not numeric.
std::int32_t TextToLong(std::string_view text);
double TextToDouble(std::string_view text);
// Integer part, towards minus infinity.
double IntPart(double value);
// A number as CStr writes it: "12", "-1", "1.5", "0.25" (15 significant digits).
std::string NumberText(double value);
// A number with exactly `decimals` digits after the point ("0.00" style).
std::string FixedText(double value, int decimals);

std::string Trim(std::string_view text);
std::string Lower(std::string_view text);
std::string Upper(std::string_view text);
std::vector<std::string> Split(std::string_view text, std::string_view separator);
std::string Join(const std::vector<std::string>& parts, std::string_view separator);
std::string ReplaceAll(std::string_view text, std::string_view what, std::string_view with);
bool EndsWith(std::string_view text, std::string_view tail);
bool StartsWith(std::string_view text, std::string_view head);
