#include "common/RunTimeError.h"

#include <climits>
#include <cstdint>

namespace zrt {

std::string RunTimeError::standardText(int number)
{
    switch (number) {
    case ErrInvalidCall: return "Invalid procedure call or argument";
    case ErrOverflow: return "Overflow";
    case ErrSubscript: return "Subscript out of range";
    case ErrDivisionByZero: return "Division by zero";
    case ErrTypeMismatch: return "Type mismatch";
    case ErrInvalidPropertyIndex: return "Invalid property array index";
    default: return "Application-defined or object-defined error";
    }
}

RunTimeError::RunTimeError(int number) : RunTimeError(number, standardText(number)) {}

RunTimeError::RunTimeError(int number, const std::string &description)
    : std::runtime_error(description), m_number(number)
{
}

std::string RunTimeError::message() const
{
    std::string text = "Run-time error '" + std::to_string(m_number) + "': " + what();
    if (!m_plain.empty())
        text += "\n\n" + m_plain;
    return text;
}

void raise(int number) { throw RunTimeError(number); }

short toInt16(long long value)
{
    if (value < SHRT_MIN || value > SHRT_MAX)
        raise(ErrOverflow);
    return static_cast<short>(value);
}

int toInt32(long long value)
{
    if (value < INT_MIN || value > INT_MAX)
        raise(ErrOverflow);
    return static_cast<int>(value);
}

int addInt32(int a, int b) { return toInt32(static_cast<long long>(a) + b); }
int subInt32(int a, int b) { return toInt32(static_cast<long long>(a) - b); }
int mulInt32(int a, int b) { return toInt32(static_cast<long long>(a) * b); }
short addInt16(short a, short b) { return toInt16(static_cast<long long>(a) + b); }

} // namespace zrt
