// The charts on the window: each show button puts its chart on the screen at once, without a
// tab change, and Hide takes it away; the list choice redraws the tally; the controls over the
// charts leave the data uncovered; failures explain themselves in a pupil's words.

#include "MainWindowFixture.h"

#include "app/PlainFailures.h"
#include "charts/BoxPlots.h"
#include "charts/PictureBox.h"
#include "controls/ShapedTabs.h"

#include <QPixmap>
#include <QTextEdit>
#include <QScreen>

using namespace mainwindowtest;

namespace {

constexpr QRgb Maroon = qRgb(128, 0, 0);
constexpr QRgb Green = qRgb(0, 255, 0);
constexpr QRgb Red = qRgb(255, 0, 0);
constexpr QRgb BoxFill = qRgb(225, 215, 210);

// Counts the paint events a widget receives.
class PaintCounter : public QObject {
public:
    explicit PaintCounter(QWidget *w) { w->installEventFilter(this); }
    int count = 0;

protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Paint)
            ++count;
        return false;
    }
};

int CountColour(const QImage &image, QRgb colour)
{
    int n = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            n += (image.pixel(x, y) & 0xFFFFFF) == (colour & 0xFFFFFF) ? 1 : 0;
    return n;
}

class ChartsOnWindowTest : public MainWindowTest {
protected:
    void Twenty()
    {
        const char *visual[] = {"0.23", "0.27", "0.31", "0.25", "0.29", "0.33", "0.41", "0.22", "0.36", "0.28",
                                "0.45", "0.26", "0.3",  "0.34", "0.24", "0.39", "0.27", "0.52", "0.31", "0.29"};
        const char *audio[] = {"0.31", "0.35", "0.3",  "0.29", "0.4",  "0.37", "0.42", "0.33", "0.38", "0.36",
                               "0.48", "0.32", "0.34", "0.39", "0.31", "0.44", "0.35", "0.57", "0.37", "0.33"};
        for (int i = 0; i < 20; ++i) {
            window->P2->cl2->AddItem(visual[i]);
            window->P2->CL4->AddItem(audio[i]);
        }
        window->P2->SetDataCount();
    }

    // What the screen shows of a widget: the window's backing store, as the platform holds it,
    // without painting anything first.
    QImage OnScreen(QWidget *w)
    {
        const QPixmap shot = window->screen()->grabWindow(window->winId());
        const QPoint at = w->mapTo(window.get(), QPoint(0, 0));
        return shot.toImage().copy(QRect(at, w->size())).convertToFormat(QImage::Format_RGB32);
    }

    // Presses a show button and lets the event loop run once, as after a real click.
    void Press(GlossButton *button)
    {
        QTest::mouseClick(button, Qt::LeftButton);
        QCoreApplication::processEvents();
    }

    // After a press: the surface was painted, its image holds the colour, and so does the screen.
    void ExpectShown(zrt::PictureBox *surface, QRgb colour, const PaintCounter &paints, int before,
                     const char *what)
    {
        EXPECT_GT(paints.count, before) << what << ": no repaint was asked for";
        EXPECT_GT(CountColour(surface->Image(), colour), 0) << what;
        EXPECT_GT(CountColour(OnScreen(surface), colour), 0) << what << ": not on the screen";
    }
    void ExpectHidden(zrt::PictureBox *surface, QRgb colour, const char *what)
    {
        EXPECT_EQ(CountColour(surface->Image(), colour), 0) << what;
        EXPECT_EQ(CountColour(OnScreen(surface), colour), 0) << what << ": still on the screen";
    }

    // Press Show, check, press Hide, check.
    void ShowAndHide(GlossButton *button, zrt::PictureBox *surface, QRgb colour, const char *what)
    {
        QCoreApplication::processEvents();
        PaintCounter paints(surface);
        Press(button);
        ExpectShown(surface, colour, paints, 0, what);
        const int shown = paints.count;
        Press(button);
        EXPECT_GT(paints.count, shown) << what << ": Hide asked for no repaint";
        ExpectHidden(surface, colour, what);
    }
};

} // namespace

TEST_F(ChartsOnWindowTest, EveryShowButtonPutsItsChartOnTheScreenAtOnce)
{
    Twenty();
    window->ClickToolbarButton("Averages");
    auto &a = *window->averages;
    window->averages->Tab1_Click(2);
    ShowAndHide(a.cmdBP, a.pBox, BoxFill, "box plot");
    window->averages->Tab1_Click(3);
    ShowAndHide(a.cmdSL, a.PicSL, Maroon, "stem and leaf");

    window->ClickToolbarButton("Groups");
    auto &g = *window->groups;
    ShowAndHide(g.cmdTally, g.ptally, Maroon, "tally");
    window->groups->Tab2_Click(1);
    ShowAndHide(g.cmdR, g.pEmean, Maroon, "estimated mean");
    window->groups->Tab2_Click(2);
    ShowAndHide(g.cmdCF, g.pCF, Maroon, "cumulative frequency");
    window->groups->Tab2_Click(3);
    ShowAndHide(g.cmdPlot, g.ppCF, Green, "CF plot");

    // The quartiles' reading lines appear when their box is ticked, and go with it.
    Press(g.cmdPlot);
    QTest::mouseClick(g.Check3->Check1(), Qt::LeftButton);
    QCoreApplication::processEvents();
    ASSERT_EQ(g.Check3->Value(), 1);
    EXPECT_GT(CountColour(OnScreen(g.ppCF), Maroon), 0) << "reading lines";
    Press(g.cmdPlot);
    ExpectHidden(g.ppCF, Green, "CF plot hidden again");

    window->ClickToolbarButton("Compare");
    auto &c = *window->compare;
    ShowAndHide(c.cmdSG, c.pFR[0], Red, "scatter graph");
    window->compare->ShapedTabs1_Click(1);
    QCoreApplication::processEvents();
    PaintCounter rank(c.pFR[1]);
    Press(c.cmdSR);
    ExpectShown(c.pFR[1], Red, rank, 0, "Spearman scale");
    Press(c.cmdSR);
    ExpectHidden(c.pFR[1], Red, "Spearman scale");
    window->compare->ShapedTabs1_Click(2);
    ShowAndHide(c.cmdBPc, c.pFR[2], BoxFill, "comparison box plots");
}

// Ticking "Audio Data" on the Groups page refills the numbers and the tally with the audio
// times, and the screen shows the new tally, not the visual one it had.
TEST_F(ChartsOnWindowTest, AudioDataRedrawsTheShownTally)
{
    Twenty();
    window->ClickToolbarButton("Groups");
    auto &g = *window->groups;
    Press(g.cmdTally);
    const QImage visual = g.ptally->Image();
    QTest::mouseClick(window->P2->Check5[1]->Check1(), Qt::LeftButton);
    QCoreApplication::processEvents();
    ASSERT_EQ(window->P2->Check5[1]->Value(), 1);
    ASSERT_EQ(window->P2->Check5[0]->Value(), 0);
    EXPECT_TRUE(g.t4->toPlainText().startsWith("31, 35,"));
    const QImage audio = g.ptally->Image();
    EXPECT_NE(audio, visual) << "the tally follows the ticked list";
    // The rows above the button are what the screen shows.
    const QRect rows(0, 0, g.ptally->width(), g.cmdTally->y() - 2);
    EXPECT_EQ(OnScreen(g.ptally).copy(rows), audio.copy(rows));
}

// The "Show Quartiles" box and the Show Plot button stand above the plot: under them the
// chart has no ink, whatever the sample.
TEST_F(ChartsOnWindowTest, PlotControlsCoverNoPartOfThePlot)
{
    Twenty();
    window->ClickToolbarButton("Groups");
    auto &g = *window->groups;
    window->groups->Tab2_Click(3);
    Press(g.cmdPlot);
    g.Check3->setValue(1);
    window->groups->DrawCFPlot();
    for (QWidget *control : {static_cast<QWidget *>(g.Check3), static_cast<QWidget *>(g.cmdPlot)}) {
        const QImage under = g.ppCF->Image().copy(control->geometry());
        EXPECT_EQ(CountColour(under, qRgb(255, 255, 255)), under.width() * under.height())
            << control->metaObject()->className();
    }
}

// At the start size the formula of Spearman's rank is shown whole.
TEST_F(ChartsOnWindowTest, SpearmanFormulaIsNotCutAtTheStartSize)
{
    window->resize(785, 656);
    Twenty();
    window->ClickToolbarButton("Compare");
    window->compare->ShapedTabs1_Click(1);
    QCoreApplication::processEvents();
    QLabel *formula = window->compare->pdsqr;
    EXPECT_GE(formula->width(), formula->sizeHint().width());
    EXPECT_LE(formula->geometry().right(), window->compare->pFR[1]->width() - 1);
}

TEST_F(ChartsOnWindowTest, FailuresNameTheErrorAndSayWhatHappened)
{
    // Compare on a file of visual times only.
    for (const char *v : {"0.23", "0.27", "0.31", "0.25", "0.29", "0.33"})
        window->P2->cl2->AddItem(v);
    window->P2->SetDataCount();
    said.clear();
    window->ClickToolbarButton("Compare");
    ASSERT_FALSE(said.empty());
    EXPECT_TRUE(said.back().text.startsWith("Run-time error '9': ")) << said.back().text.toStdString();
    EXPECT_TRUE(said.back().text.contains(zrt::NoAudioSentence)) << said.back().text.toStdString();
}

TEST_F(ChartsOnWindowTest, EqualTimesExplainWhyThereIsNoBox)
{
    for (int i = 0; i < 6; ++i)
        window->P2->cl2->AddItem("0.3");
    window->P2->SetDataCount();
    window->ClickToolbarButton("Averages");
    try { // the tab's scale alone already needs a range
        window->averages->Tab1_Click(2);
        ADD_FAILURE() << "no run-time error";
    } catch (const zrt::RunTimeError &e) {
        EXPECT_EQ(e.plain(), zrt::AllEqualSentence);
    }
    said.clear();
    QTest::mouseClick(window->averages->cmdBP, Qt::LeftButton);
    ASSERT_FALSE(said.empty());
    EXPECT_TRUE(said.back().text.startsWith("Run-time error '5': ")) << said.back().text.toStdString();
    EXPECT_TRUE(said.back().text.contains(zrt::AllEqualSentence));
}

TEST_F(ChartsOnWindowTest, AnEmptyTimeIsNamedAsSuch)
{
    for (const char *v : {"0.23", "0.27", "", "0.25", "0.29", "0.33"})
        window->P2->cl2->AddItem(v);
    window->P2->SetDataCount();
    said.clear();
    window->ClickToolbarButton("Averages");
    ASSERT_FALSE(said.empty());
    EXPECT_TRUE(said.back().text.startsWith("Run-time error '13': ")) << said.back().text.toStdString();
    EXPECT_TRUE(said.back().text.contains(zrt::NotANumberSentence));
}

// Outside the outline of the tab strip's round corners, what the strip shows is the page's own
// colour: no white specks at the corners on the grey pages.
TEST_F(ChartsOnWindowTest, TabStripCornersShowThePageColour)
{
    Twenty();
    for (const char *page : {"Averages", "Groups", "Compare"}) {
        window->ClickToolbarButton(page);
        QCoreApplication::processEvents();
    }
    const QRgb page = MainMod1::PanelColour.rgb();
    for (ShapedTabs *tabs : {window->averages->Tab1, window->groups->Tab2, window->compare->ShapedTabs1}) {
        const QImage strip = tabs->grab().toImage().convertToFormat(QImage::Format_RGB32);
        const QRegion mask = tabs->mask();
        const QRgb outline = qRgb(64, 64, 0);
        int outside = 0;
        for (int y = 0; y < strip.height(); ++y)
            for (int side = 0; side < 2; ++side) {
                // From each end of the row inward, up to the first pixel of the outline.
                for (int i = 0; i < strip.width(); ++i) {
                    const int x = side == 0 ? i : strip.width() - 1 - i;
                    if (!mask.contains(QPoint(x, y)))
                        continue;
                    if ((strip.pixel(x, y) & 0xFFFFFF) == (outline & 0xFFFFFF))
                        break;
                    if (y >= ShapedTabs::TabBottom) { // the body's corners
                        ++outside;
                        EXPECT_EQ(strip.pixel(x, y) & 0xFFFFFF, page & 0xFFFFFF) << x << "," << y;
                    }
                    break;
                }
            }
        EXPECT_GT(outside, 0) << "the corners were looked at";
    }
}
