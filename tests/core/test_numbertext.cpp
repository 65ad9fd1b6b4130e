#include "common/NumberText.h"
#include "common/RunTimeError.h"

#include <gtest/gtest.h>

using namespace zrt;

TEST(GeneralText, ShortestDecimalForms)
{
    EXPECT_EQ(GeneralText(0.42113), "0.42113");
    EXPECT_EQ(GeneralText(27.0), "27");
    EXPECT_EQ(GeneralText(10.3333), "10.3333");
    EXPECT_EQ(GeneralText(-0.5), "-0.5");
    EXPECT_EQ(GeneralText(0.0), "0");
    EXPECT_EQ(GeneralText(0.0001), "0.0001");
    EXPECT_EQ(GeneralText(0.00001), "1E-05");
    EXPECT_EQ(GeneralText(1.5e15), "1.5E+15");
    EXPECT_EQ(GeneralText(123456789012345.0), "123456789012345");
    EXPECT_EQ(GeneralText(0.1 + 0.2), "0.30000000000000004");
    EXPECT_EQ(GeneralText(0.8f), "0.8");
    EXPECT_EQ(GeneralText(2.5f), "2.5");
}

TEST(CLng, RoundsTiesToEvenAndTrapsOverflow)
{
    EXPECT_EQ(CLng(2.5), 2);
    EXPECT_EQ(CLng(3.5), 4);
    EXPECT_EQ(CLng(-2.5), -2);
    EXPECT_EQ(CLng(2.6), 3);
    EXPECT_THROW(CLng(2147483648.0), RunTimeError);
    EXPECT_EQ(CLng(-2147483648.0), -2147483647 - 1);
}

TEST(CDbl, AcceptsNumbersAndRejectsTheRest)
{
    EXPECT_DOUBLE_EQ(CDbl("0.42113"), 0.42113);
    EXPECT_DOUBLE_EQ(CDbl(" 1.5 "), 1.5);
    EXPECT_DOUBLE_EQ(CDbl(".5"), 0.5);
    EXPECT_DOUBLE_EQ(CDbl("1E-05"), 1e-05);
    for (const char *bad : {"", "abc", "1.5x", "0,5", "-"}) {
        try {
            CDbl(bad);
            FAIL() << bad;
        } catch (const RunTimeError &e) {
            EXPECT_EQ(e.number(), 13) << bad;
            EXPECT_EQ(e.message(), "Run-time error '13': Type mismatch");
        }
    }
}

TEST(Val, TakesTheLeadingNumber)
{
    EXPECT_DOUBLE_EQ(Val("0.50000"), 0.5);
    EXPECT_DOUBLE_EQ(Val("  1 2.5abc"), 12.5);
    EXPECT_DOUBLE_EQ(Val("abc"), 0.0);
    EXPECT_DOUBLE_EQ(Val(""), 0.0);
    EXPECT_DOUBLE_EQ(Val("-0.25"), -0.25);
    EXPECT_DOUBLE_EQ(Val("1e2x"), 100.0);
}

TEST(LeadingInteger, ReadsSignAndDigits)
{
    EXPECT_EQ(LeadingInteger("3"), 3);
    EXPECT_EQ(LeadingInteger(" 42abc"), 42);
    EXPECT_EQ(LeadingInteger("-7"), -7);
    EXPECT_EQ(LeadingInteger("x1"), 0);
    EXPECT_EQ(LeadingInteger("99999999999"), 2147483647);
}

TEST(FormatWhole, RoundsHalvesAwayFromZeroOnFifteenDigits)
{
    EXPECT_EQ(FormatWhole(0.345 * 100), "35"); // 34.4999999999999964 reads 34.5000000000000
    EXPECT_EQ(FormatWhole(2.5), "3");
    EXPECT_EQ(FormatWhole(-2.5), "-3");
    EXPECT_EQ(FormatWhole(0.4), "0");
    EXPECT_EQ(FormatWhole(0.5), "1");
    EXPECT_EQ(FormatWhole(9.5), "10");
    EXPECT_EQ(FormatWhole(1e20), "100000000000000000000");
}
