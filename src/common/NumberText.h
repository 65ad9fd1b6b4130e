#pragma once
// Number <-> text conversions with the program's fixed rules. Every text uses a full stop as
// decimal separator whatever the machine's locale, so that files and answers agree everywhere.

#include <string>
#include <string_view>

namespace zrt {

// The general text form: the shortest decimal text that reads back to the same value.
// Plain decimals from 1E-04 up to below 1E+15, otherwise "1.5E-05" / "2E+15".
std::string GeneralText(double value);
std::string GeneralText(float value);

// Conversion of a double to a 32-bit integer: nearest, ties to even; out of range is an overflow.
int CLng(double value);

// Text to double as the item conversion does it: blanks around are allowed, anything else that
// is not a number (also an empty text) is a type mismatch (run-time error 13).
double CDbl(std::string_view text);

// The numeric parse: blanks anywhere are skipped, the leading number is taken, 0 if there is none.
double Val(std::string_view text);

// The leading integer of a text after leading blanks (an optional sign, then digits); 0 if none.
// Values beyond 32 bits are clamped to the 32-bit range.
long long LeadingInteger(std::string_view text);

// Format(t, "0"): t written with 15 significant digits, then rounded to a whole number with
// halves going away from zero. Returns the text, e.g. "35" for 34.4999999999999 (0.345 x 100).
std::string FormatWhole(double t);

} // namespace zrt
