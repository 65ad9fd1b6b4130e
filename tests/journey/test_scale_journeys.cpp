// The whole program at twice the scale (QT_SCALE_FACTOR=2) on a large X screen: a visual run
// ended with Add by the mouse, then a class's file and the three analysis pages, checked on the
// server's own screen at the start size and at a large size.

#include "JourneyHarness.h"

#include <QStringList>
#include <gtest/gtest.h>

#include <vector>

using namespace journey;

namespace {

constexpr int TimerVisualPop = 20482;
constexpr int kScale = 2;

struct Caption {
    QString name;
    int needed = 0, room = 0; // X pixels
};

std::vector<Caption> Captions(Program &p)
{
    std::vector<Caption> out;
    for (const QString &entry : p.ask(QStringLiteral("captions")).split(QLatin1Char(';'), Qt::SkipEmptyParts)) {
        const QStringList parts = entry.split(QLatin1Char(':'));
        if (parts.size() == 3)
            out.push_back({parts[0], parts[1].toInt(), parts[2].toInt()});
    }
    return out;
}

// Every shown caption's text, drawn at the window's scale, fits in the room its control gives it.
void ExpectNoCaptionClipped(Program &p, const QString &where, const QStringList &mustBeAmong)
{
    const std::vector<Caption> captions = Captions(p);
    QStringList seen;
    for (const Caption &c : captions) {
        seen << c.name;
        EXPECT_LE(c.needed, c.room) << qPrintable(c.name) << " is clipped at " << qPrintable(where);
    }
    for (const QString &name : mustBeAmong)
        EXPECT_TRUE(seen.contains(name)) << qPrintable(name) << " was not measured at " << qPrintable(where);
}

// Pixels of a chart surface's picture that are not its white ground.
int Inked(const QImage &image) { return image.width() * image.height() - CountNear(image, qRgb(255, 255, 255), 6); }

// The thickness, in X pixels, of each horizontal line of the colour that runs across at least
// `share` of the picture's width: runs of neighbouring rows count as one line.
std::vector<int> LongLines(const QImage &image, QRgb colour, int tolerance, double share)
{
    std::vector<int> lines;
    int run = 0;
    for (int y = 0; y < image.height(); ++y) {
        int longest = 0, current = 0;
        for (int x = 0; x < image.width(); ++x) {
            const QRgb p = image.pixel(x, y);
            const bool near = std::abs(qRed(p) - qRed(colour)) <= tolerance &&
                              std::abs(qGreen(p) - qGreen(colour)) <= tolerance &&
                              std::abs(qBlue(p) - qBlue(colour)) <= tolerance;
            current = near ? current + 1 : 0;
            longest = std::max(longest, current);
        }
        if (longest >= image.width() * share) {
            ++run;
        } else if (run > 0) {
            lines.push_back(run);
            run = 0;
        }
    }
    if (run > 0)
        lines.push_back(run);
    return lines;
}

QString Risen(Program &p)
{
    for (int i = 0; i < 5; ++i) {
        const QString name = QStringLiteral("ucGifPlayer1_%1").arg(i);
        if (p.ask(QStringLiteral("risen ") + name) == QLatin1String("1"))
            return name;
    }
    return {};
}

void OpenPage(Program &p, const char *page, const char *shown)
{
    p.click(p.toolbarButton(QString::fromLatin1(page)));
    ASSERT_TRUE(p.waitUntil([&] { return p.control(QString::fromLatin1(shown)).visible; })) << page;
    p.settle(300);
}

// The class's file opened over the result just added: the box asking whether to drop unsaved
// data is answered Yes, the file dialog by typing the path.
void OpenClassOverUnsavedData(Program &p)
{
    const QString path = p.documents() + QStringLiteral("/class.rtd");
    ASSERT_TRUE(WriteClass(path));
    p.click(p.toolbarButton(QStringLiteral("Open")));
    ASSERT_TRUE(p.waitUntil([&] { return p.modalShown(); }));
    p.shot(QStringLiteral("scale2_unsaved_question"));
    p.key("Return"); // Yes
    ASSERT_TRUE(p.waitUntil([&] { return p.modalShown(); }));
    p.settle(300);
    p.type(path);
    p.key("Return");
    ASSERT_TRUE(p.waitUntil([&] { return p.text(QStringLiteral("Label5")) == QLatin1String("Data Collected: (20)"); }));
    ASSERT_TRUE(p.waitUntil([&] { return !p.modalShown(); }));
}

} // namespace

TEST(ScaleJourney, WholeSessionAtTwiceTheScale)
{
    Options options;
    options.scale = kScale;
    Program p(options);
    ASSERT_TRUE(p.started()) << qPrintable(p.output());

    // The window is laid out in logical pixels: at twice the scale it covers twice the X pixels.
    const Control window = p.control(QStringLiteral("MainFrm"));
    const Control start = p.control(QStringLiteral("command1"));
    EXPECT_GE(window.rect.width(), 2 * 785);
    EXPECT_EQ(start.rect.height(), kScale * 30) << "Start is 30 logical pixels high";
    p.shot(QStringLiteral("scale2_record_start"));
    // A one-pixel line is two X pixels: Start's edge above and below.
    const std::vector<int> edges = LongLines(p.region(start.rect), qRgb(0, 60, 116), 24, 0.6);
    EXPECT_EQ(edges, (std::vector<int>{kScale, kScale})) << "Start's top and bottom edge";
    ExpectNoCaptionClipped(p, QStringLiteral("the Record page"),
                           {"command1", "Check4", "CheckSpace", "Label1_0", "Label1_1", "cmdRemove"});

    // A visual run played with the mouse, ended with Add.
    p.click(p.control(QStringLiteral("Check4")).rect.topLeft() + p.px(QPoint(8, 10)));
    ASSERT_TRUE(p.waitUntil([&] { return p.text(QStringLiteral("Check4")).endsWith(QLatin1String("=0")); }));
    p.click(QStringLiteral("command1"));
    for (int attempt = 0; attempt < 4; ++attempt) {
        p.ask(QStringLiteral("rnd 0"));
        ASSERT_TRUE(p.fire(TimerVisualPop));
        QString risen;
        ASSERT_TRUE(p.waitUntil([&] { return !(risen = Risen(p)).isEmpty(); }));
        p.click(p.control(risen).centre());
        ASSERT_TRUE(p.waitUntil([&] { return p.lines(QStringLiteral("cl1")) == attempt + 1; }));
    }
    ASSERT_TRUE(p.waitUntil([&] { return p.control(QStringLiteral("GlossButton1_0")).visible; }));
    p.shot(QStringLiteral("scale2_record_finished"));
    ExpectNoCaptionClipped(p, QStringLiteral("the run's end"), {"GlossButton1_0", "GlossButton1_1"});
    p.click(QStringLiteral("GlossButton1_0"));
    ASSERT_TRUE(p.waitUntil([&] { return p.lines(QStringLiteral("cl2")) == 1; }));
    EXPECT_EQ(p.text(QStringLiteral("Label5")), QStringLiteral("Data Collected: (1)"));

    // The class's sample, and Averages with the mean revealed and the box plot shown.
    OpenClassOverUnsavedData(p);
    OpenPage(p, "Averages", "p4_0");
    p.click(QStringLiteral("cmd1_3"));
    ASSERT_TRUE(p.waitUntil([&] { return !p.text(QStringLiteral("lb1_3")).isEmpty(); })) << "the mean stays hidden";
    p.shot(QStringLiteral("scale2_averages_mean"));
    ExpectNoCaptionClipped(p, QStringLiteral("Averages"), {"cmd1_0", "cmd1_3", "cmdshowall", "lb1_3", "Label6"});
    // By keys through the X server: Tab reaches the tab strip, whose mark shows, and Right
    // chooses the next tab; the next Tab goes to that tab's first question.
    p.focusMainWindow();
    const QRect strip = p.control(QStringLiteral("Tab1")).rect;
    const QImage unmarked = p.region(strip);
    ASSERT_TRUE(p.tabTo(QStringLiteral("Tab1")));
    p.settle(200);
    EXPECT_NE(p.region(strip), unmarked) << "no focus mark on the tab strip";
    p.key("Right");
    ASSERT_TRUE(p.waitUntil([&] { return p.control(QStringLiteral("cmd2_0")).visible; }));
    p.key("Tab");
    EXPECT_EQ(p.ask(QStringLiteral("focus")), QStringLiteral("cmd2_0"));
    // Round to the column of collected data: a list is named by itself, not by its inner part.
    EXPECT_TRUE(p.tabTo(QStringLiteral("cl2")));
    p.shot(QStringLiteral("scale2_averages_by_keys"));
    p.click(p.tab(QStringLiteral("Tab1"), 2));
    ASSERT_TRUE(p.waitUntil([&] { return p.control(QStringLiteral("cmdBP")).visible; }));
    p.click(QStringLiteral("cmdBP"));
    p.settle(300);
    const QRect box = p.control(QStringLiteral("pBox")).rect;
    EXPECT_GT(Inked(p.region(box)), 4000) << "the box plot is blank";
    p.shot(QStringLiteral("scale2_averages_boxplot"));
    ExpectNoCaptionClipped(p, QStringLiteral("the box plot"), {"cmdBP"});
    p.click(p.tab(QStringLiteral("Tab1"), 3));
    ASSERT_TRUE(p.waitUntil([&] { return p.control(QStringLiteral("cmdSL")).visible; }));
    p.click(QStringLiteral("cmdSL"));
    p.settle(300);
    EXPECT_GT(Inked(p.region(p.control(QStringLiteral("PicSL")).rect)), 4000) << "the stem and leaf diagram is blank";
    p.shot(QStringLiteral("scale2_averages_stem_leaf"));
    // The balloon that explains outliers, drawn by the program itself.
    p.click(p.tab(QStringLiteral("Tab1"), 1));
    ASSERT_TRUE(p.waitUntil([&] { return p.control(QStringLiteral("cmdinfo")).visible; }));
    ExpectNoCaptionClipped(p, QStringLiteral("spread"), {"cmd2_0", "cmd2_3", "cmdSA"});
    p.click(QStringLiteral("cmdinfo"));
    ASSERT_TRUE(p.waitUntil([&] { return p.modalShown(); }));
    p.settle(300);
    p.shot(QStringLiteral("scale2_outliers_balloon"));
    p.key("Return");
    ASSERT_TRUE(p.waitUntil([&] { return !p.modalShown(); }));

    // Groups: the tally chart.
    OpenPage(p, "Groups", "p4_1");
    p.click(p.tab(QStringLiteral("Tab2"), 0));
    ASSERT_TRUE(p.waitUntil([&] { return p.control(QStringLiteral("cmdTally")).visible; }));
    p.click(QStringLiteral("cmdTally"));
    p.settle(300);
    EXPECT_GT(Inked(p.region(p.control(QStringLiteral("ptally")).rect)), 4000) << "the tally chart is blank";
    p.shot(QStringLiteral("scale2_groups_tally"));
    ExpectNoCaptionClipped(p, QStringLiteral("Groups"), {"cmdTally", "Label8"});
    p.click(p.tab(QStringLiteral("Tab2"), 3));
    ASSERT_TRUE(p.waitUntil([&] { return p.control(QStringLiteral("cmdPlot")).visible; }));
    p.click(QStringLiteral("cmdPlot"));
    p.settle(300);
    EXPECT_GT(Inked(p.region(p.control(QStringLiteral("ppCF")).rect)), 4000) << "the cumulative frequency plot is blank";
    p.shot(QStringLiteral("scale2_groups_cf_plot"));
    ExpectNoCaptionClipped(p, QStringLiteral("the plot"), {"cmdPlot", "Check3"});

    // Compare: the scatter graph with its coordinates.
    OpenPage(p, "Compare", "p4_2");
    p.click(p.tab(QStringLiteral("ShapedTabs1"), 0));
    ASSERT_TRUE(p.waitUntil([&] { return p.control(QStringLiteral("cmdSG")).visible; }));
    p.click(QStringLiteral("cmdSG"));
    p.settle(300);
    const QRect scatterRect = p.control(QStringLiteral("pFR_0")).rect;
    const QImage scatter = p.region(scatterRect);
    EXPECT_GT(Inked(scatter), 4000) << "the scatter graph is blank";
    p.shot(QStringLiteral("scale2_compare_scatter"));
    ExpectNoCaptionClipped(p, QStringLiteral("Compare"), {"cmdSG", "Label9"});
    p.click(p.tab(QStringLiteral("ShapedTabs1"), 1));
    ASSERT_TRUE(p.waitUntil([&] { return p.control(QStringLiteral("cmdSR")).visible; }));
    p.click(QStringLiteral("cmdSR"));
    p.settle(300);
    p.shot(QStringLiteral("scale2_compare_rank"));
    ExpectNoCaptionClipped(p, QStringLiteral("Spearman's rank"), {"cmdSR", "lbSR", "lbc_1"});
    // Lines keep their logical width: the axis, drawn two pixels wide, is four X pixels.
    const std::vector<int> axes = LongLines(scatter, qRgb(0, 0, 0), 60, 0.5);
    ASSERT_FALSE(axes.empty()) << "no horizontal axis found";
    EXPECT_EQ(axes.back(), 2 * kScale) << "the horizontal axis";

    // Larger: 1280x1024 logical pixels fill most of the screen.
    p.click(p.tab(QStringLiteral("ShapedTabs1"), 0));
    p.resizeWindow(p.px(1280), p.px(1024));
    p.settle(500);
    p.shot(QStringLiteral("scale2_compare_large"));
    ExpectNoCaptionClipped(p, QStringLiteral("Compare, large"), {"cmdSG"});
    EXPECT_GT(Inked(p.region(p.control(QStringLiteral("pFR_0")).rect)), 4000) << "the scatter graph is blank, large";
    OpenPage(p, "Averages", "p4_0");
    p.click(p.tab(QStringLiteral("Tab1"), 0));
    p.settle(300);
    p.shot(QStringLiteral("scale2_averages_large"));
    ExpectNoCaptionClipped(p, QStringLiteral("Averages, large"), {"cmd1_3"});
    OpenPage(p, "Record", "P3");
    p.shot(QStringLiteral("scale2_record_large"));
    ExpectNoCaptionClipped(p, QStringLiteral("Record, large"), {"command1"});
}
