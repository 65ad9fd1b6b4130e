// Tab on each page of the window: it goes through the controls a pupil can use in reading order
// (the column of collected data first, then the page from its top left), reaches every question
// button, and passes over what can't act.

#include "MainWindowFixture.h"

#include "app/pages/AudioStage.h"
#include "app/pages/AveragesPage.h"
#include "app/pages/ComparePage.h"
#include "app/pages/GroupsPage.h"
#include "controls/ShapedTabs.h"

#include <QTextEdit>

#include <functional>

using namespace mainwindowtest;

namespace {

// A stop of Tab: the control that has the focus, named by the control it belongs to.
struct Stop {
    QString name;
    QRect rect;          // in the window's coordinates
    bool marked = false; // the control looks otherwise with the focus than before it came
    bool list = false;
};

// Where a control shows in the window: cut by its containers, or, where one of them hides it
// wholly (the list in a folded drop-down), the place of that container.
QRect Seen(const QWidget *w, const QWidget *window)
{
    QRect seen(w->mapTo(window, QPoint(0, 0)), w->size());
    for (const QWidget *p = w->parentWidget(); p && p != window; p = p->parentWidget()) {
        const QRect container(p->mapTo(window, QPoint(0, 0)), p->size());
        seen = seen.intersected(container).isEmpty() ? container : seen.intersected(container);
    }
    return seen;
}

// The stops of Tab pressed again and again from the window's first one until it comes back
// there: what the keyboard really does, compound controls and their focus proxies included. A
// loop that never comes back to the start ends the walk after a hundred presses.
std::vector<Stop> TabStops(QWidget *window)
{
    std::vector<Stop> stops;
    window->setFocus(Qt::OtherFocusReason);
    QImage before = window->grab().toImage();
    QTest::keyClick(window, Qt::Key_Tab);
    const QWidget *first = QApplication::focusWidget();
    for (const QWidget *w = first; w && w != window && stops.size() < 100;) {
        // A list's inner surface is named by the list.
        const QWidget *named = w;
        for (const QWidget *p = w->parentWidget(); p && p != window; p = p->parentWidget())
            if (p->focusProxy() == named)
                named = p;
        while (named && named->objectName().isEmpty())
            named = named->parentWidget();
        const QRect seen = Seen(w, window);
        const QImage after = window->grab().toImage();
        stops.push_back({named ? named->objectName() : QStringLiteral("?"), seen, after.copy(seen) != before.copy(seen),
                         qobject_cast<const zrt::RowList *>(named) != nullptr});
        before = after;
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        w = QApplication::focusWidget();
        if (w == first)
            break;
    }
    return stops;
}

bool RowsOverlap(const QRect &a, const QRect &b) { return a.top() < b.bottom() && b.top() < a.bottom(); }
bool ColumnsOverlap(const QRect &a, const QRect &b) { return a.left() < b.right() && b.left() < a.right(); }

struct PageCase {
    const char *page;
    std::function<void(MainWindowTest &, MainFrm &)> show;
    QStringList reached;    // among the stops
    QStringList passedOver; // never a stop
};

class TabOrderTest : public MainWindowTest {
public:
    void Collect(int pairs)
    {
        for (int i = 0; i < pairs; ++i) {
            window->P2->cl2->AddItem(QString::number(0.3 + i / 100.0));
            window->P2->CL4->AddItem(QString::number(0.45 - i / 90.0));
        }
        window->P2->SetDataCount();
    }
    using MainWindowTest::VisualRun;
};

void Analysis(MainWindowTest &t, MainFrm &w, Page page)
{
    static_cast<TabOrderTest &>(t).Collect(12);
    w.choosePage(page);
}

const PageCase kPages[] = {
    {"Record",
     [](MainWindowTest &, MainFrm &) {},
     {"cmdRemove", "Check5_0", "cl2", "cl1", "command1", "List1", "List2", "Check4", "CheckSpace"},
     {"GlossButton1_0"}},
    {"Record, the run's end",
     [](MainWindowTest &t, MainFrm &w) {
         w.P3->Check4->setValue(0);
         w.P2->Check4_Click();
         static_cast<TabOrderTest &>(t).VisualRun({300, 320, 340, 360});
     },
     {"command1", "GlossButton1_0", "GlossButton1_1"},
     {"List1", "Check4"}},
    {"Audio stage",
     [](MainWindowTest &t, MainFrm &) { static_cast<TabOrderTest &>(t).VisualRun({300, 320, 340, 360}); },
     {"cl5", "cmdStartAudio"},
     {"command1", "List1", "Check4", "CheckSpace", "GlossButton1_0", "cl1"}},
    {"Averages",
     [](MainWindowTest &t, MainFrm &w) { Analysis(t, w, Page::Averages); },
     {"cl3", "Check1", "t1", "Tab1", "cmd1_0", "cmd1_3", "cmd1_8", "cmdshowall"},
     {"cmd2_0", "cmdBP"}},
    {"Averages, spread",
     [](MainWindowTest &t, MainFrm &w) {
         Analysis(t, w, Page::Averages);
         w.averages->Tab1_Click(1);
     },
     {"Tab1", "cmd2_0", "cmd2_3", "cmdSA", "cmdinfo"},
     {"cmd1_0"}},
    {"Groups",
     [](MainWindowTest &t, MainFrm &w) { Analysis(t, w, Page::Groups); },
     {"Check2", "t4", "Tab2", "cmdTally"},
     {"cmdR"}},
    {"Groups, plot",
     [](MainWindowTest &t, MainFrm &w) {
         Analysis(t, w, Page::Groups);
         w.groups->Tab2_Click(3);
         w.groups->cmdPlot->Click();
     },
     {"Tab2", "Check3", "cmdPlot"},
     {"cmdTally"}},
    {"Compare",
     [](MainWindowTest &t, MainFrm &w) { Analysis(t, w, Page::Compare); },
     {"Text1", "ShapedTabs1", "cmdSG"},
     {"cmdSR"}},
    {"Compare, rank",
     [](MainWindowTest &t, MainFrm &w) {
         Analysis(t, w, Page::Compare);
         w.compare->ShapedTabs1_Click(1);
     },
     {"ShapedTabs1", "ucTableView1", "cmdSR"},
     {"cmdSG"}},
};

} // namespace

TEST_F(TabOrderTest, TabGoesThroughEveryPageInReadingOrder)
{
    for (const PageCase &c : kPages) {
        SCOPED_TRACE(c.page);
        TearDown();
        SetUp();
        window->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
        c.show(*this, *window);
        QApplication::processEvents();
        const std::vector<Stop> stops = TabStops(window.get());
        QStringList names;
        for (const Stop &s : stops)
            names << s.name;
        SCOPED_TRACE(names.join(QLatin1Char(' ')).toStdString());
        ASSERT_FALSE(stops.empty());
        ASSERT_LT(stops.size(), 100u) << "Tab goes round a loop that never comes back";
        // The column of collected data comes first, then the page.
        EXPECT_EQ(stops.front().name, QStringLiteral("cmdRemove"));
        for (size_t i = 1; i < stops.size(); ++i) {
            const Stop &a = stops[i - 1], &b = stops[i];
            // Never back to the left along a row, never up within a column.
            EXPECT_FALSE(RowsOverlap(a.rect, b.rect) && b.rect.center().x() < a.rect.center().x())
                << qPrintable(a.name) << " -> " << qPrintable(b.name) << " goes back along the row";
            EXPECT_FALSE(ColumnsOverlap(a.rect, b.rect) && !RowsOverlap(a.rect, b.rect) && b.rect.top() < a.rect.top())
                << qPrintable(a.name) << " -> " << qPrintable(b.name) << " goes up the column";
        }
        // The lists paint from a picture of their own that a grab of the whole window here does
        // not show; their mark is checked on the list itself.
        for (const Stop &s : stops)
            EXPECT_TRUE(s.marked || s.list) << qPrintable(s.name) << " shows no focus mark";
        for (const QString &name : c.reached)
            EXPECT_TRUE(names.contains(name)) << qPrintable(name) << " is not reached";
        for (const QString &name : c.passedOver)
            EXPECT_FALSE(names.contains(name)) << qPrintable(name) << " takes the focus";
    }
}
