// What a screen reader hears on the window: every control a pupil acts on, and every chart,
// has a human name; a chart's words hold an answer only once the pupil has revealed it, and
// follow the data when they change.

#include "MainWindowFixture.h"

#include "access/Accessibility.h"
#include "app/Language.h"
#include "charts/PictureBox.h"
#include "controls/ShapedTabs.h"
#include "controls/ucTableView.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAccessible>
#include <QTextEdit>
#include <QTreeWidget>

#include <functional>

using namespace mainwindowtest;

namespace {

class AccessNamesTest : public MainWindowTest {
protected:
    void SetUp() override
    {
        zrt::installAccessibility();
        MainWindowTest::SetUp();
    }

    // A control a pupil acts on, or a chart: what a screen reader must be able to name.
    static bool NeedsName(const QWidget *w)
    {
        return qobject_cast<const zrt::PictureBox *>(w) || qobject_cast<const ucGifPlayer *>(w) ||
               qobject_cast<const GlossButton *>(w) || qobject_cast<const Check *>(w) ||
               qobject_cast<const RowList *>(w) || qobject_cast<const DropPanel *>(w) ||
               qobject_cast<const ShapedTabs *>(w) || qobject_cast<const zrt::ucTableView *>(w) ||
               qobject_cast<const QAbstractButton *>(w) || qobject_cast<const QTextEdit *>(w) ||
               qobject_cast<const QAbstractItemView *>(w) || (w->focusPolicy() & Qt::TabFocus);
    }

    // Every such control a screen reader finds under `page`, walking its accessibility tree, that
    // it would announce by its role alone (or by the program's own name for it), as
    // "objectName (class)". The drawn parts of a control (rows, tabs, cells) are its own business.
    static QString Unnamed(QWidget *page)
    {
        QStringList unnamed;
        std::function<void(QAccessibleInterface *)> walk = [&](QAccessibleInterface *iface) {
            for (int i = 0; i < iface->childCount(); ++i) {
                QAccessibleInterface *child = iface->child(i);
                auto *w = child ? qobject_cast<QWidget *>(child->object()) : nullptr;
                if (!w)
                    continue;
                const QString name = child->text(QAccessible::Name).trimmed();
                if (NeedsName(w) && (name.isEmpty() || name == w->objectName()))
                    unnamed << QStringLiteral("%1 (%2)").arg(w->objectName(), w->metaObject()->className());
                walk(child);
            }
        };
        QAccessibleInterface *root = QAccessible::queryAccessibleInterface(page);
        if (root)
            walk(root);
        return unnamed.join(QStringLiteral(", "));
    }

    static QString Words(const zrt::PictureBox *chart)
    {
        QAccessibleInterface *iface = QAccessible::queryAccessibleInterface(const_cast<zrt::PictureBox *>(chart));
        return iface ? iface->text(QAccessible::Description) : QString();
    }
};

} // namespace

TEST_F(AccessNamesTest, EveryControlAndChartOnEveryPageHasAName)
{
    Six();
    // Paired results show the audio stage's list and both lists of the data column.
    window->P5->show();
    EXPECT_EQ(Unnamed(window->P2), "");
    EXPECT_EQ(Unnamed(window->P3), "") << "the Record page and the audio stage on it";
    EXPECT_FALSE(window->P3->ucGifPlayer1.empty());
    window->P5->hide();
    for (const char *page : {"Averages", "Groups", "Compare"}) {
        window->ClickToolbarButton(page);
        for (PagePanel *p : window->p4) {
            if (p && p->isVisible()) {
                EXPECT_EQ(Unnamed(p), "") << page;
            }
        }
    }

    // Names as a pupil hears them, from the captions beside the controls.
    auto name = [](QWidget *w) { return QAccessible::queryAccessibleInterface(w)->text(QAccessible::Name); };
    EXPECT_EQ(name(window->P2->cl2), "Visual reaction times");
    EXPECT_EQ(name(window->P2->CL4), "Audio reaction times");
    EXPECT_EQ(name(window->P3->dd1), "Number of Zorvanes");
    EXPECT_EQ(name(window->P3->DD2), "Number of attempts");
    EXPECT_EQ(QAccessible::queryAccessibleInterface(window->P3->DD2)->text(QAccessible::Value), "4")
        << "the drop-down still says its value";
    EXPECT_EQ(name(window->P3->ucGifPlayer1[0]), "Zorvane 1");
    EXPECT_EQ(name(window->averages->pBox), "Box plot");
    EXPECT_EQ(name(window->compare->ucTableView1), "Spearman's rank table");
    EXPECT_EQ(name(window->compare->ucTableView1->List()), "Spearman's rank table")
        << "the list inside the table answers for it";

    // A caption beside its control is that control's label, so it need not be read twice.
    QAccessibleInterface *caption = QAccessible::queryAccessibleInterface(window->P3->Label1[1]);
    ASSERT_NE(caption, nullptr);
    const auto labelled = caption->relations(QAccessible::Labelled);
    ASSERT_EQ(labelled.size(), 1);
    EXPECT_EQ(labelled.front().first->object(), window->P3->DD2);
    const auto labels = QAccessible::queryAccessibleInterface(window->P3->DD2)->relations(QAccessible::Label);
    ASSERT_EQ(labels.size(), 1);
    EXPECT_EQ(labels.front().first->object(), window->P3->Label1[1]);

    // A character added later is named as well.
    window->ClickToolbarButton("Record");
    window->P3->List1->setListIndex(4);
    ASSERT_EQ(window->P3->ucGifPlayer1.size(), 5u);
    EXPECT_EQ(name(window->P3->ucGifPlayer1[4]), "Zorvane 5");
}

TEST_F(AccessNamesTest, AChartSaysItsAnswersOnlyOnceRevealedAndFollowsNewData)
{
    Six();
    window->ClickToolbarButton("Averages");
    auto &a = *window->averages;
    a.Tab1_Click(2);
    const QString hidden = Words(a.pBox);
    EXPECT_TRUE(hidden.startsWith("Box plot of visual reaction times, 6 values, in hundredths of a second."))
        << hidden.toStdString();
    EXPECT_FALSE(hidden.contains("median")) << "the box plot is not yet shown";
    EXPECT_FALSE(hidden.contains("28"));
    QTest::mouseClick(a.cmdBP, Qt::LeftButton);
    const QString shown = Words(a.pBox);
    EXPECT_TRUE(shown.contains("lowest value 23")) << shown.toStdString();
    EXPECT_TRUE(shown.contains("median 28"));
    EXPECT_TRUE(shown.contains("highest value 33"));

    a.Tab1_Click(3);
    EXPECT_TRUE(Words(a.PicSL).contains("Stems 2 to 3.")) << Words(a.PicSL).toStdString();
    EXPECT_FALSE(Words(a.PicSL).contains("stem 2: 3 5 7 9"));
    QTest::mouseClick(a.cmdSL, Qt::LeftButton);
    EXPECT_TRUE(Words(a.PicSL).contains("stem 2: 3 5 7 9; stem 3: 1 3.")) << Words(a.PicSL).toStdString();

    // New data: the words tell the new sample, never the old answers.
    Collect({{"0.5", "0.45"}});
    window->ClickToolbarButton("Averages");
    a.Tab1_Click(2);
    const QString again = Words(a.pBox);
    EXPECT_TRUE(again.contains("7 values")) << again.toStdString();
    EXPECT_TRUE(again.contains("highest value 50"));
    EXPECT_FALSE(again.contains("highest value 33"));
    QTest::mouseClick(a.cmdBP, Qt::LeftButton);
    EXPECT_FALSE(Words(a.pBox).contains("median")) << "hidden again, the answers go with it";

    // Not enough data: the charts say nothing that belongs to an old sample.
    window->ToolbarButtonClick("Clear");
    Collect({{"0.3", "0.4"}});
    a.Get_Averages();
    EXPECT_TRUE(Words(a.pBox).isEmpty()) << Words(a.pBox).toStdString();
    a.DrawBoxPlot(); // as a resize does: the picture may stay, the old answers are not said
    EXPECT_TRUE(Words(a.pBox).isEmpty()) << Words(a.pBox).toStdString();
}

TEST_F(AccessNamesTest, GroupedChartsSayTheirCountsAndReadingsOnceRevealed)
{
    Six();
    window->ClickToolbarButton("Groups");
    auto &g = *window->groups;
    const QString tally = Words(g.ptally);
    EXPECT_TRUE(tally.contains("2 classes from 20 to 40.")) << tally.toStdString();
    EXPECT_FALSE(tally.contains("20 to under 30: 4"));
    QTest::mouseClick(g.cmdTally, Qt::LeftButton);
    EXPECT_TRUE(Words(g.ptally).contains("Frequencies: 20 to under 30: 4; 30 to under 40: 2."))
        << Words(g.ptally).toStdString();

    g.Tab2_Click(1);
    EXPECT_FALSE(Words(g.pEmean).contains("Estimated Mean"));
    QTest::mouseClick(g.cmdR, Qt::LeftButton);
    EXPECT_TRUE(Words(g.pEmean).contains("Estimated Mean = 28.33")) << Words(g.pEmean).toStdString();

    g.Tab2_Click(2);
    EXPECT_FALSE(Words(g.pCF).contains("Cumulative frequencies"));
    QTest::mouseClick(g.cmdCF, Qt::LeftButton);
    EXPECT_TRUE(Words(g.pCF).contains("Cumulative frequencies: 20 to under 30: 4; 20 to under 40: 6."))
        << Words(g.pCF).toStdString();

    g.Tab2_Click(3);
    EXPECT_FALSE(Words(g.ppCF).contains("(30, 4)"));
    QTest::mouseClick(g.cmdPlot, Qt::LeftButton);
    EXPECT_TRUE(Words(g.ppCF).contains("(30, 4), (40, 6)")) << Words(g.ppCF).toStdString();
    EXPECT_FALSE(Words(g.ppCF).contains("median"));
    QTest::mouseClick(g.Check3->Check1(), Qt::LeftButton);
    ASSERT_EQ(g.Check3->Value(), 1);
    const QString read = Words(g.ppCF);
    EXPECT_TRUE(read.contains("Read from the curve: median ")) << read.toStdString();
    EXPECT_TRUE(read.contains("lower quartile ") && read.contains("upper quartile "));
}

TEST_F(AccessNamesTest, CompareChartsSayTheCoefficientAndSummariesOnceRevealed)
{
    Six();
    window->ClickToolbarButton("Compare");
    auto &c = *window->compare;
    EXPECT_TRUE(Words(c.pFR[0]).startsWith("Scatter graph of audio against visual reaction times, 6 pairs"))
        << Words(c.pFR[0]).toStdString();
    EXPECT_FALSE(Words(c.pFR[0]).contains("mean point"));
    QTest::mouseClick(c.cmdSG, Qt::LeftButton);
    EXPECT_TRUE(Words(c.pFR[0]).contains("their mean point is (28, 34)")) << Words(c.pFR[0]).toStdString();

    c.ShapedTabs1_Click(1);
    const QString coefficient = c.lbSR->text();
    ASSERT_FALSE(coefficient.isEmpty());
    EXPECT_FALSE(Words(c.pFR[1]).contains(coefficient));
    QTest::mouseClick(c.cmdSR, Qt::LeftButton);
    EXPECT_TRUE(Words(c.pFR[1]).contains("Spearman's rank correlation coefficient r " + coefficient))
        << Words(c.pFR[1]).toStdString();
    QTest::mouseClick(c.cmdSR, Qt::LeftButton);
    EXPECT_FALSE(Words(c.pFR[1]).contains(coefficient)) << "hidden again";

    c.ShapedTabs1_Click(2);
    EXPECT_FALSE(Words(c.pFR[2]).contains("Visual:"));
    QTest::mouseClick(c.cmdBPc, Qt::LeftButton);
    EXPECT_TRUE(Words(c.pFR[2]).contains("Visual: lowest value 23")) << Words(c.pFR[2]).toStdString();
    EXPECT_TRUE(Words(c.pFR[2]).contains("Audio: lowest value 29"));
}

namespace {

class GermanAccessNamesTest : public AccessNamesTest {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(Language::load(QStringLiteral("de")));
        AccessNamesTest::SetUp();
    }
    void TearDown() override
    {
        AccessNamesTest::TearDown();
        Language::load(QStringLiteral("en"));
    }
};

} // namespace

TEST_F(GermanAccessNamesTest, NamesAndWordsAreSpokenInTheWindowsLanguage)
{
    Six();
    auto name = [](QWidget *w) { return QAccessible::queryAccessibleInterface(w)->text(QAccessible::Name); };
    EXPECT_EQ(name(window->P2->cl2), "Visuelle Reaktionszeiten");
    EXPECT_EQ(name(window->P3->DD2), "Anzahl der Versuche");
    window->ClickToolbarButton("Averages");
    auto &a = *window->averages;
    a.Tab1_Click(2);
    QTest::mouseClick(a.cmdBP, Qt::LeftButton);
    EXPECT_EQ(Words(a.pBox), "Boxplot der visuellen Reaktionszeiten, 6 Werte, in Hundertstelsekunden. kleinster Wert 23, "
                             "unteres Quartil 25, Median 28, oberes Quartil 31, größter Wert 33.");
    window->ClickToolbarButton("Groups");
    EXPECT_TRUE(Words(window->groups->ptally).contains("2 Klassen von 20 bis 40."))
        << Words(window->groups->ptally).toStdString();
}
