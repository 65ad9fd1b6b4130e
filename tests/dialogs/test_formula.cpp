#include "dialogs/FormulaText.h"
#include "dialogs/FormulaView.h"

#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

using zrt::FormulaRun;
using zrt::FormulaView;
namespace FormulaText = zrt::FormulaText;

namespace {

QList<FormulaRun> Runs(std::initializer_list<FormulaRun> runs)
{
    return QList<FormulaRun>(runs);
}

// The first row from the top with any dark pixel, or -1.
int TopInkRow(const QImage &image)
{
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (qGray(image.pixel(x, y)) < 128)
                return y;
    return -1;
}

QImage Render(const QString &text, int width = 200)
{
    FormulaView view;
    view.setText(text);
    view.resize(width, view.heightForWidth(width));
    QImage image(view.size(), QImage::Format_RGB32);
    image.fill(Qt::white);
    view.render(&image);
    return image;
}

} // namespace

TEST(FormulaText, MarksBecomeRunsAndNeverPrint)
{
    EXPECT_EQ(FormulaText::Parse(QStringLiteral("x^2 + y")),
              Runs({{FormulaRun::Plain, "x"}, {FormulaRun::Power, "2"}, {FormulaRun::Plain, " + y"}}));
    EXPECT_EQ(FormulaText::Parse(QStringLiteral("C = 2 (Pi)r")),
              Runs({{FormulaRun::Plain, "C = 2"}, {FormulaRun::Pi, QStringLiteral("\u03C0")}, {FormulaRun::Plain, "r"}}));
    EXPECT_EQ(FormulaText::Parse(QStringLiteral("/\u00AF25 = 5")),
              Runs({{FormulaRun::Root, "25"}, {FormulaRun::Plain, " = 5"}}));
    EXPECT_EQ(FormulaText::Parse(QStringLiteral("Mean [ (1.2,3.45)] here")),
              Runs({{FormulaRun::Plain, "Mean "}, {FormulaRun::Pair, "(1.2,3.45)"}, {FormulaRun::Plain, " here"}}));
    EXPECT_EQ(FormulaText::Parse(QStringLiteral("a\r\nb")),
              Runs({{FormulaRun::Plain, "a"}, {FormulaRun::LineBreak, ""}, {FormulaRun::Plain, "b"}}));
    // A power's token ends at a line feed too, and an empty token is allowed at the end.
    EXPECT_EQ(FormulaText::Parse(QStringLiteral("s^2\nx^")),
              Runs({{FormulaRun::Plain, "s"}, {FormulaRun::Power, "2"}, {FormulaRun::LineBreak, ""},
                    {FormulaRun::Plain, "x"}, {FormulaRun::Power, ""}}));
}

TEST(FormulaText, BracketsAroundAnythingButAPairStayAsTheyAre)
{
    for (const char *text : {"[abc]", "[ (1,2,3)]", "[(1,2)]", "[ (,2)]", "open [ (1,2)", "Q1 - (1.5 x IQR)"}) {
        const QString s = QString::fromLatin1(text);
        EXPECT_EQ(FormulaText::Parse(s), Runs({{FormulaRun::Plain, s}})) << text;
        EXPECT_FALSE(FormulaText::HasMarks(s)) << text;
    }
    EXPECT_TRUE(FormulaText::HasMarks(QStringLiteral("x^2")));
    EXPECT_TRUE(FormulaText::HasMarks(QStringLiteral("[ (1,2)]")));
    EXPECT_FALSE(FormulaText::HasMarks(QStringLiteral("Mean Data Point : (0.31,0.28)")));
    EXPECT_TRUE(FormulaText::Parse(QString()).isEmpty());
}

TEST(FormulaView, WrapsAtBlanksAndKeepsLineFeeds)
{
    FormulaView view;
    view.setText(QStringLiteral("alpha beta gamma delta x^2 /\u00AF9"));
    const int wide = view.lineCountForWidth(2000);
    const int narrow = view.lineCountForWidth(60);
    EXPECT_EQ(wide, 1);
    EXPECT_GT(narrow, 3);
    EXPECT_GT(view.heightForWidth(60), view.heightForWidth(2000));

    view.setText(QStringLiteral("one\ntwo\n\nfour"));
    EXPECT_EQ(view.lineCountForWidth(2000), 4);
    view.setText(QString());
    EXPECT_EQ(view.heightForWidth(100), 0);
}

TEST(FormulaView, NumberAndPiStayTogetherOnOneLine)
{
    FormulaView view;
    view.setText(QStringLiteral("2 (Pi)"));
    // However narrow, a word made of a number and its pi sign is never split.
    EXPECT_EQ(view.lineCountForWidth(1), 1);
    view.setText(QStringLiteral("2 x"));
    EXPECT_EQ(view.lineCountForWidth(1), 2);
}

TEST(FormulaView, PowerIsRaisedAndRootCarriesABar)
{
    const int plainTop = TopInkRow(Render(QStringLiteral("x2")));
    const int powerTop = TopInkRow(Render(QStringLiteral("x^2")));
    ASSERT_GE(plainTop, 0);
    ASSERT_GE(powerTop, 0);
    EXPECT_LT(powerTop, plainTop);

    // The bar runs above the token, higher than any letter of the same text without the sign.
    const QImage root = Render(QStringLiteral("/\u00AFxx"));
    const int barRow = TopInkRow(root);
    EXPECT_LT(barRow, TopInkRow(Render(QStringLiteral("xx"))));
    int inked = 0;
    for (int x = 0; x < root.width(); ++x)
        inked += qGray(root.pixel(x, barRow)) < 128 ? 1 : 0;
    EXPECT_GT(inked, 8) << "a bar, not a dot";
}
