// Charts out of the window: PNG, SVG and the clipboard, painted by the charts' own calls.

#include "ChartTestSupport.h"

#include "charts/BoxPlots.h"
#include "charts/ChartPictures.h"
#include "charts/CumulativeFrequency.h"
#include "charts/EstimatedMeanTable.h"
#include "charts/ScatterGraph.h"
#include "charts/StemAndLeaf.h"
#include "charts/TallyChart.h"

#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QFile>
#include <QMenu>
#include <QPainter>
#include <QSignalSpy>
#include <QSvgRenderer>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <functional>

using namespace zrt;
using namespace charttest;

namespace {

struct Chart {
    const char *name;
    QSize size;
    std::function<void(PictureBox &)> draw;
    std::vector<const char *> texts; // labels the chart writes
};

AnalysisResults EightTimes()
{
    AnalysisResults r;
    r.SampleSize = 8;
    r.LowestValue = 20;
    r.HighestValue = 60;
    r.RangeValue = 40;
    r.MedianValue = 29;
    r.LowerQuartile = 25;
    r.UpperQuartile = 34;
    r.InterquartileRange = 9;
    r.LowerOutlierLimit = 11.5;
    r.UpperOutlierLimit = 47.5;
    return r;
}

std::vector<int> Grouped() { return {45, 21, 22, 23, 24, 25, 26, 27, 41, 42, 43, 44}; }

std::vector<Chart> Charts()
{
    return {
        {"box plot", {400, 200},
         [](PictureBox &s) { DrawBoxPlot(s, {20, 24, 26, 28, 30, 32, 36, 60}, EightTimes(), 0, true); },
         {"20", "55"}},
        {"scatter graph", {500, 400},
         [](PictureBox &s) {
             std::vector<int> v{23, 25, 27, 29, 31}, a{33, 31, 37, 35, 39};
             BoxSummary vs, as;
             DrawScatter(s, v, a, true, vs, as);
         },
         {"30", "40"}},
        {"tally", {400, 300},
         [](PictureBox &s) {
             auto d = Grouped();
             DrawTally(s, d, true);
         },
         {"Frequency"}},
        {"estimated mean", {500, 300},
         [](PictureBox &s) {
             auto d = Grouped();
             DrawEstimatedMean(s, d, true);
         },
         {"Frequency"}},
        {"cumulative table", {500, 300},
         [](PictureBox &s) {
             auto d = Grouped();
             DrawCFTable(s, d, true);
         },
         {"Time (t)", "20&lt;t&lt;30"}},
        {"cumulative plot", {400, 300},
         [](PictureBox &s) {
             auto d = Grouped();
             DrawCFPlot(s, d, true, true);
         },
         {"10"}},
        {"stem and leaf", {400, 300},
         [](PictureBox &s) { DrawStemAndLeaf(s, {"0.23", "0.27", "0.31", "0.45", "0.48", "0.52"}, 6, true); },
         {"Key: 7|3 = 0.73 seconds"}},
    };
}

bool near(QRgb a, QRgb b, int tolerance)
{
    return std::abs(qRed(a) - qRed(b)) + std::abs(qGreen(a) - qGreen(b)) + std::abs(qBlue(a) - qBlue(b)) <= tolerance;
}

// Pixels of a that have no pixel of about the same colour in b within reach.
int unmatched(const QImage &a, const QImage &b, int reach, int tolerance)
{
    int n = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x) {
            const QRgb p = a.pixel(x, y);
            bool found = false;
            for (int dy = -reach; dy <= reach && !found; ++dy)
                for (int dx = -reach; dx <= reach && !found; ++dx) {
                    const int u = x + dx, v = y + dy;
                    found = u >= 0 && v >= 0 && u < b.width() && v < b.height() && near(p, b.pixel(u, v), tolerance);
                }
            n += found ? 0 : 1;
        }
    return n;
}

// Blocks of 4 x 4 pixels whose mean colours differ by more than the tolerance in a channel.
// Smoothed edges, and dots laid out another way along a dotted line, keep about the same mean;
// a line or a label that is missing or added changes it.
int differingBlocks(const QImage &a, const QImage &b, int tolerance)
{
    const QSize blocks = a.size() / 4;
    const QImage x = a.scaled(blocks, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    const QImage y = b.scaled(blocks, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    int n = 0;
    for (int v = 0; v < blocks.height(); ++v)
        for (int u = 0; u < blocks.width(); ++u) {
            const QRgb p = x.pixel(u, v), q = y.pixel(u, v);
            n += std::abs(qRed(p) - qRed(q)) > tolerance || std::abs(qGreen(p) - qGreen(q)) > tolerance ||
                 std::abs(qBlue(p) - qBlue(q)) > tolerance;
        }
    return n;
}

int differing(const QImage &a, const QImage &b)
{
    int n = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x)
            n += a.pixel(x, y) != b.pixel(x, y) ? 1 : 0;
    return n;
}

} // namespace

TEST(ChartPictures, ThePngIsTheSurfacesPixels)
{
    QTemporaryDir dir;
    for (const Chart &c : Charts()) {
        SCOPED_TRACE(c.name);
        PictureBox s;
        Prepare(s, c.size.width(), c.size.height());
        c.draw(s);
        const QString path = dir.filePath(QString::fromLatin1(c.name) + ".png");
        ASSERT_EQ(SaveChartPng(s, path, 1), QString());
        const QImage png(path);
        ASSERT_EQ(png.size(), c.size);
        EXPECT_EQ(differing(png.convertToFormat(QImage::Format_RGB32), s.Image()), 0);
        EXPECT_GT(InkIn(s, QRect(QPoint(0, 0), c.size - QSize(1, 1))), 0);
    }
}

// The drawing painted again by its recorded calls gives the very pixels the chart drew; at
// twice the size each pixel of the fills lands where it belongs.
TEST(ChartPictures, TheReplayedDrawingIsTheChart)
{
    for (const Chart &c : Charts()) {
        SCOPED_TRACE(c.name);
        PictureBox s;
        Prepare(s, c.size.width(), c.size.height());
        c.draw(s);
        EXPECT_GT(s.ReplaySteps(), 0u);
        QImage again(c.size, QImage::Format_RGB32);
        again.fill(Qt::black);
        QPainter painter(&again);
        s.Replay(painter);
        painter.end();
        EXPECT_EQ(differing(again, s.Image()), 0);

        const QImage twice = ChartImage(s, 2);
        ASSERT_EQ(twice.size(), c.size * 2);
        // Halved again, the large picture holds the colours of the small one (text drawn at
        // twice the size loses some of its thin strokes on the way down).
        const QImage halved = twice.scaled(c.size, Qt::IgnoreAspectRatio, Qt::FastTransformation);
        EXPECT_LT(unmatched(s.Image(), halved, 2, 60), c.size.width() * c.size.height() * 3 / 100);
    }

    // The box plot's fill, by its exact place.
    PictureBox s;
    Prepare(s, 400, 200);
    Charts()[0].draw(s);
    const QImage twice = ChartImage(s, 2);
    EXPECT_EQ(QColor(twice.pixel(140, 150)), TranslateColor(BoxFill));
    EXPECT_EQ(QColor(twice.pixel(280, 150)), TranslateColor(White));

    // Cls forgets the drawing.
    s.Cls();
    EXPECT_EQ(s.ReplaySteps(), 0u);
    QImage blank(800, 400, QImage::Format_RGB32);
    blank.fill(TranslateColor(White));
    EXPECT_EQ(differing(ChartImage(s, 2), blank), 0);
}

TEST(ChartPictures, TheSvgParsesRastersLikeThePngAndHoldsTheTexts)
{
    for (const Chart &c : Charts()) {
        SCOPED_TRACE(c.name);
        PictureBox s;
        Prepare(s, c.size.width(), c.size.height());
        c.draw(s);
        const QByteArray svg = ChartSvg(s, QStringLiteral("Box & <plot>"));
        QSvgRenderer renderer(svg);
        ASSERT_TRUE(renderer.isValid());
        EXPECT_EQ(renderer.defaultSize(), c.size);
        QImage raster(c.size, QImage::Format_RGB32);
        raster.fill(Qt::black);
        QPainter painter(&raster);
        renderer.render(&painter);
        painter.end();
        // The renderer smooths edges and lays the dots of a dotted line out its own way; seen
        // in blocks of 4 x 4 pixels, the two pictures agree.
        EXPECT_LE(differingBlocks(s.Image(), raster, 40), c.size.width() * c.size.height() / 16 / 200);
        for (const char *text : c.texts)
            EXPECT_TRUE(svg.contains(QByteArray(">") + text + "<")) << text;
        EXPECT_TRUE(svg.contains("<title>Box &amp; &lt;plot&gt;</title>"));
    }
}

TEST(ChartPictures, ContextMenuSavesCopiesAndReportsFailures)
{
    QTemporaryDir dir;
    PictureBox s;
    Prepare(s, 400, 200);
    Charts()[0].draw(s);
    ChartPictureMenu *menu = ChartPictureMenu::Attach(&s, QStringLiteral("the box plot"));
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(ChartPictureMenu::Attach(&s, QStringLiteral("again")), menu);
    EXPECT_EQ(ChartPictureMenu::Of(&s), menu);
    EXPECT_EQ(s.contextMenuPolicy(), Qt::CustomContextMenu);

    std::unique_ptr<QMenu> built(menu->BuildMenu());
    QStringList texts;
    for (QAction *a : built->actions())
        if (!a->isSeparator())
            texts << a->text();
    EXPECT_EQ(texts, (QStringList{"Save Picture as &PNG...", "Save Picture as PNG at &Double Size...",
                                  "Save Picture as &SVG...", "&Copy"}));

    QString answer;
    QString askedFilter;
    ChartPictureMenu::SetAskFileName([&](QWidget *, const QString &, const QString &filter) {
        askedFilter = filter;
        return answer;
    });
    QStringList failures;
    ChartPictureMenu::SetShowFailure([&](QWidget *, const QString &, const QString &text) { failures << text; });
    QSignalSpy saved(menu, &ChartPictureMenu::Saved);

    answer = dir.filePath("plot"); // the suffix is added
    menu->Run(ChartPictureMenu::SavePngDouble);
    EXPECT_EQ(askedFilter, "PNG picture (*.png)");
    ASSERT_EQ(saved.count(), 1);
    EXPECT_EQ(saved.takeFirst().at(0).toString(), dir.filePath("plot.png"));
    EXPECT_EQ(QImage(dir.filePath("plot.png")).size(), QSize(800, 400));

    answer = dir.filePath("plot.SVG");
    menu->Run(ChartPictureMenu::SaveSvg);
    EXPECT_EQ(askedFilter, "SVG picture (*.svg)");
    EXPECT_TRUE(QSvgRenderer(dir.filePath("plot.SVG")).isValid());

    answer.clear(); // cancelled: nothing happens
    menu->Run(ChartPictureMenu::SavePng);
    EXPECT_EQ(saved.count(), 1);
    EXPECT_TRUE(failures.isEmpty());

    answer = dir.filePath("no/such/folder/plot.png");
    menu->Run(ChartPictureMenu::SavePng);
    ASSERT_EQ(failures.size(), 1);
    EXPECT_TRUE(failures[0].startsWith("The picture could not be saved as " + answer + ":\n")) << failures[0].toStdString();
    EXPECT_GT(failures[0].size(), QString("The picture could not be saved as " + answer + ":\n").size());
    EXPECT_FALSE(QFile::exists(answer));

    QGuiApplication::clipboard()->clear();
    QSignalSpy copied(menu, &ChartPictureMenu::Copied);
    menu->Run(ChartPictureMenu::Copy);
    EXPECT_EQ(copied.count(), 1);
    const QImage clip = QGuiApplication::clipboard()->image().convertToFormat(QImage::Format_RGB32);
    ASSERT_EQ(clip.size(), QSize(400, 200));
    EXPECT_EQ(differing(clip, s.Image()), 0);

    // A right click on the surface pops the menu up.
    Q_EMIT s.customContextMenuRequested(QPoint(10, 10));
    QMenu *popup = nullptr;
    for (QWidget *w : QApplication::topLevelWidgets())
        if (auto *m = qobject_cast<QMenu *>(w); m && m->isVisible())
            popup = m;
    ASSERT_NE(popup, nullptr);
    EXPECT_EQ(popup->actions().size(), 5);
    popup->close();

    ChartPictureMenu::SetAskFileName({});
    ChartPictureMenu::SetShowFailure({});
}
