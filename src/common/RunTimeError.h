#pragma once
// A failure that the program's own code does not trap (an overflow, a bad subscript,
// a bad property index). It ends the operation under way; the event-handler boundary
// catches it, shows "Run-time error 'N': text" and the program goes on.

#include <stdexcept>
#include <string>

namespace zrt {

enum RunTimeErrorNumber : int {
    ErrInvalidCall = 5,
    ErrOverflow = 6,
    ErrSubscript = 9,
    ErrDivisionByZero = 11,
    ErrTypeMismatch = 13,
    ErrInvalidPropertyIndex = 381,
};

class RunTimeError : public std::runtime_error {
public:
    explicit RunTimeError(int number);
    RunTimeError(int number, const std::string &description);

    int number() const noexcept { return m_number; }
    std::string description() const { return what(); }
    // "Run-time error '6': Overflow", and on a line of its own the plain sentence when there is one.
    std::string message() const;

    // What went wrong in words a pupil understands ("All the times are equal, so there is no
    // box to draw."), set where the cause is known; empty otherwise.
    const std::string &plain() const noexcept { return m_plain; }
    RunTimeError &explain(const std::string &sentence)
    {
        m_plain = sentence;
        return *this;
    }

    static std::string standardText(int number);

private:
    int m_number;
    std::string m_plain;
};

[[noreturn]] void raise(int number);

// Checked narrowing as the original integer types behave: out of range is an overflow.
short toInt16(long long value);
int toInt32(long long value);
int addInt32(int a, int b);
int subInt32(int a, int b);
int mulInt32(int a, int b);
short addInt16(short a, short b);

} // namespace zrt
