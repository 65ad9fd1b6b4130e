#include "common/NumberText.h"

#include "common/RunTimeError.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <system_error>

namespace zrt {
namespace {

bool isBlank(char c) { return c == ' ' || c == '\t'; }

// Splits a shortest scientific text "d.ddde+XX" into its digits and decimal exponent.
struct Decimal {
    bool negative = false;
    std::string digits; // no leading zeros, at least one digit
    int exponent = 0;   // value = d.ddd x 10^exponent
};

template <typename T>
Decimal shortestDecimal(T value)
{
    std::array<char, 64> buf{};
    auto res = std::to_chars(buf.data(), buf.data() + buf.size(), value, std::chars_format::scientific);
    std::string_view s(buf.data(), static_cast<size_t>(res.ptr - buf.data()));
    Decimal d;
    size_t i = 0;
    if (s[i] == '-') {
        d.negative = true;
        ++i;
    }
    for (; i < s.size() && s[i] != 'e'; ++i)
        if (s[i] != '.')
            d.digits.push_back(s[i]);
    d.exponent = std::atoi(std::string(s.substr(i + 1)).c_str());
    while (d.digits.size() > 1 && d.digits.back() == '0')
        d.digits.pop_back();
    return d;
}

std::string layOut(const Decimal &d)
{
    std::string out = d.negative ? "-" : "";
    if (d.exponent >= -4 && d.exponent < 15) {
        if (d.exponent >= 0) {
            size_t intLen = static_cast<size_t>(d.exponent) + 1;
            std::string digits = d.digits;
            if (digits.size() < intLen)
                digits.append(intLen - digits.size(), '0');
            out += digits.substr(0, intLen);
            if (digits.size() > intLen)
                out += "." + digits.substr(intLen);
        } else {
            out += "0." + std::string(static_cast<size_t>(-d.exponent - 1), '0') + d.digits;
        }
        return out;
    }
    out += d.digits.substr(0, 1);
    if (d.digits.size() > 1)
        out += "." + d.digits.substr(1);
    char exp[16];
    std::snprintf(exp, sizeof exp, "E%c%02d", d.exponent < 0 ? '-' : '+', std::abs(d.exponent));
    return out + exp;
}

template <typename T>
std::string generalText(T value)
{
    if (std::isnan(value))
        return "NaN";
    if (std::isinf(value))
        return value < 0 ? "-Inf" : "Inf";
    if (value == 0)
        return "0";
    return layOut(shortestDecimal(value));
}

// Reads [sign] digits [. digits] [E|D [sign] digits] from the front of s; returns chars used.
size_t scanNumber(std::string_view s, std::string &normalised)
{
    size_t i = 0;
    normalised.clear();
    if (i < s.size() && (s[i] == '+' || s[i] == '-'))
        normalised.push_back(s[i++]);
    size_t mantissaDigits = 0;
    while (i < s.size() && s[i] >= '0' && s[i] <= '9') {
        normalised.push_back(s[i++]);
        ++mantissaDigits;
    }
    if (i < s.size() && s[i] == '.') {
        normalised.push_back(s[i++]);
        while (i < s.size() && s[i] >= '0' && s[i] <= '9') {
            normalised.push_back(s[i++]);
            ++mantissaDigits;
        }
    }
    if (mantissaDigits == 0)
        return 0;
    if (i < s.size() && (s[i] == 'e' || s[i] == 'E' || s[i] == 'd' || s[i] == 'D')) {
        size_t j = i + 1;
        std::string exp = "e";
        if (j < s.size() && (s[j] == '+' || s[j] == '-'))
            exp.push_back(s[j++]);
        size_t expDigits = 0;
        while (j < s.size() && s[j] >= '0' && s[j] <= '9') {
            exp.push_back(s[j++]);
            ++expDigits;
        }
        if (expDigits > 0) {
            normalised += exp;
            i = j;
        }
    }
    return i;
}

double parseNormalised(const std::string &text)
{
    std::string_view v = text;
    if (!v.empty() && v.front() == '+')
        v.remove_prefix(1);
    double out = 0;
    auto res = std::from_chars(v.data(), v.data() + v.size(), out);
    if (res.ec == std::errc::result_out_of_range)
        raise(ErrOverflow);
    return out;
}

} // namespace

std::string GeneralText(double value) { return generalText(value); }
std::string GeneralText(float value) { return generalText(value); }

int CLng(double value)
{
    if (std::isnan(value))
        raise(ErrOverflow);
    double r = std::nearbyint(value); // default rounding mode: nearest, ties to even
    if (r < -2147483648.0 || r > 2147483647.0)
        raise(ErrOverflow);
    return static_cast<int>(r);
}

double CDbl(std::string_view text)
{
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    std::string normalised;
    size_t used = scanNumber(text, normalised);
    if (used == 0 || used != text.size())
        raise(ErrTypeMismatch);
    return parseNormalised(normalised);
}

double Val(std::string_view text)
{
    std::string compact;
    compact.reserve(text.size());
    for (char c : text)
        if (!isBlank(c) && c != '\n' && c != '\r')
            compact.push_back(c);
    std::string normalised;
    if (scanNumber(compact, normalised) == 0)
        return 0.0;
    double v = 0;
    std::string_view n = normalised;
    if (!n.empty() && n.front() == '+')
        n.remove_prefix(1);
    std::from_chars(n.data(), n.data() + n.size(), v);
    return v;
}

long long LeadingInteger(std::string_view text)
{
    size_t i = 0;
    while (i < text.size() && isBlank(text[i]))
        ++i;
    bool negative = false;
    if (i < text.size() && (text[i] == '+' || text[i] == '-'))
        negative = text[i++] == '-';
    long long v = 0;
    const long long limit = 2147483648LL;
    for (; i < text.size() && text[i] >= '0' && text[i] <= '9'; ++i) {
        v = v * 10 + (text[i] - '0');
        if (v > limit)
            v = limit;
    }
    v = negative ? -v : v;
    if (v > std::numeric_limits<int>::max())
        v = std::numeric_limits<int>::max();
    return v;
}

std::string FormatWhole(double t)
{
    if (!std::isfinite(t))
        raise(ErrOverflow);
    // 15 significant digits; to_chars, unlike printf, ignores the locale's decimal separator.
    std::array<char, 64> buf{};
    auto res = std::to_chars(buf.data(), buf.data() + buf.size(), t, std::chars_format::scientific, 14);
    std::string_view s(buf.data(), static_cast<size_t>(res.ptr - buf.data()));
    bool negative = s.front() == '-';
    if (negative)
        s.remove_prefix(1);
    std::string digits;
    size_t e = s.find('e');
    for (size_t i = 0; i < e; ++i)
        if (s[i] != '.')
            digits.push_back(s[i]);
    int exponent = std::atoi(std::string(s.substr(e + 1)).c_str());

    // The whole part has exponent + 1 digits of the 15; the next one decides the rounding.
    std::string whole;
    int next = 0;
    if (exponent < 0) {
        whole = "0";
        next = exponent == -1 ? digits[0] - '0' : 0;
    } else if (exponent >= 14) {
        whole = digits + std::string(static_cast<size_t>(exponent - 14), '0');
    } else {
        whole = digits.substr(0, static_cast<size_t>(exponent) + 1);
        next = digits[static_cast<size_t>(exponent) + 1] - '0';
    }
    if (next >= 5) {
        int i = static_cast<int>(whole.size()) - 1;
        while (i >= 0 && whole[static_cast<size_t>(i)] == '9')
            whole[static_cast<size_t>(i--)] = '0';
        if (i < 0)
            whole.insert(whole.begin(), '1');
        else
            ++whole[static_cast<size_t>(i)];
    }
    if (negative && whole != "0")
        whole.insert(whole.begin(), '-');
    return whole;
}

} // namespace zrt
