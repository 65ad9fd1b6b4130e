// Saving, opening and the questions around them answered by keys, Enter never leaking from a
// dialog into the window, and the two lists of a large sample read across one line.

#include "JourneyHarness.h"

#include <QFile>
#include <QFileInfo>
#include <QThread>
#include <gtest/gtest.h>

using namespace journey;

namespace {

constexpr int TimerVisualPop = 20482;

// No box may come up by itself in the next while (a key release that leaked would open one).
void ExpectNoBoxComes(Program &p, const char *when)
{
    QThread::msleep(700);
    EXPECT_EQ(p.ask(QStringLiteral("modal")), QStringLiteral("none")) << when;
}

void RecordOneResult(Program &p)
{
    p.click(p.control(QStringLiteral("Check4")).rect.topLeft() + QPoint(8, 10)); // visual only
    p.click(QStringLiteral("command1"));
    for (int attempt = 0; attempt < 4; ++attempt) {
        p.ask(QStringLiteral("rnd 0"));
        ASSERT_TRUE(p.fire(TimerVisualPop));
        ASSERT_TRUE(p.waitUntil([&] { return p.ask(QStringLiteral("risen ucGifPlayer1_0")) == QLatin1String("1"); }));
        p.click(QStringLiteral("ucGifPlayer1_0"));
        ASSERT_TRUE(p.waitUntil([&] { return p.lines(QStringLiteral("cl1")) == attempt + 1; }));
    }
    ASSERT_TRUE(p.waitUntil([&] { return p.control(QStringLiteral("GlossButton1_0")).visible; }));
    p.click(QStringLiteral("GlossButton1_0"));
    ASSERT_TRUE(p.waitUntil([&] { return p.lines(QStringLiteral("cl2")) == 1; }));
}

} // namespace

TEST(DataJourney, SaveOverwriteAndOpenAnsweredByKeys)
{
    Program p;
    ASSERT_TRUE(p.started());
    RecordOneResult(p);
    const QString saved = p.documents() + QStringLiteral("/class1.rtd");

    p.click(p.toolbarButton(QStringLiteral("Save")));
    ASSERT_TRUE(p.waitUntil([&] { return p.modalShown(); })) << "no save dialog";
    p.shot(QStringLiteral("save_dialog"));
    p.type(p.documents() + QStringLiteral("/class1"));
    p.key("Return");
    ASSERT_TRUE(p.waitUntil([&] { return QFileInfo::exists(saved); }));
    ExpectNoBoxComes(p, "after the save dialog closed by Enter");
    const QByteArray first = [&] { QFile f(saved); f.open(QIODevice::ReadOnly); return f.readAll(); }();
    EXPECT_TRUE(first.contains("DataItems=1\r\n"));

    // The same name again: the overwrite question, answered Yes by Enter.
    p.click(p.toolbarButton(QStringLiteral("Save")));
    ASSERT_TRUE(p.waitUntil([&] { return p.modalShown(); }));
    p.type(p.documents() + QStringLiteral("/class1"));
    p.key("Return");
    QString box;
    ASSERT_TRUE(p.waitUntil([&] { return (box = p.ask(QStringLiteral("modal"))).endsWith(QLatin1String("File Exist")); }))
        << qPrintable(box);
    p.shot(QStringLiteral("file_exist_question"));
    p.key("Return");
    ASSERT_TRUE(p.waitUntil([&] { return !p.modalShown(); }));
    ExpectNoBoxComes(p, "after Yes was given by Enter");
    EXPECT_TRUE(QFileInfo::exists(saved));

    // Clear, then open what was saved: the saved data ask no question.
    p.click(p.toolbarButton(QStringLiteral("Clear")));
    ASSERT_TRUE(p.waitUntil([&] { return p.lines(QStringLiteral("cl2")) == 0; }));
    ASSERT_TRUE(p.openByKeys(p.documents() + QStringLiteral("/class1.rtd")));
    ASSERT_TRUE(p.waitUntil([&] { return p.lines(QStringLiteral("cl2")) == 1; }));
    ExpectNoBoxComes(p, "after the open dialog closed by Enter");
}

TEST(DataJourney, EnterThatClosesAMessageDoesNotPressTheButtonBehind)
{
    Program p;
    ASSERT_TRUE(p.started());
    // Remove with nothing selected: the button keeps the focus behind its message.
    p.click(QStringLiteral("cmdRemove"));
    ASSERT_TRUE(p.waitUntil([&] { return p.ask(QStringLiteral("modal")).endsWith(QLatin1String("No Time Selected")); }));
    p.shot(QStringLiteral("no_time_selected"));
    p.key("Return");
    ASSERT_TRUE(p.waitUntil([&] { return !p.modalShown(); }));
    ExpectNoBoxComes(p, "Enter's release reached the Remove button");
    // Enter pressed on the button itself still presses it.
    p.key("Return");
    ASSERT_TRUE(p.waitUntil([&] { return p.modalShown(); }));
    p.key("Escape");
    ASSERT_TRUE(p.waitUntil([&] { return !p.modalShown(); }));
}

TEST(DataJourney, FortyPairsScrollAsOneTable)
{
    Program p;
    ASSERT_TRUE(p.started());
    ASSERT_TRUE(WriteSample(p.documents() + QStringLiteral("/forty.rtd"), 40));
    ASSERT_TRUE(p.openByKeys(p.documents() + QStringLiteral("/forty.rtd")));
    ASSERT_TRUE(p.waitUntil([&] { return p.lines(QStringLiteral("cl2")) == 40 && p.lines(QStringLiteral("CL4")) == 40; }));
    for (const char *list : {"cl2", "CL4"}) {
        const QString name = QString::fromLatin1(list);
        const QPoint at = p.control(name).centre();
        const QString before = p.ask(QStringLiteral("top ") + name);
        p.moveTo(at);
        for (int i = 0; i < 4; ++i)
            p.click(at, name == QLatin1String("cl2") ? 5 : 4); // wheel down in one, up in the other
        ASSERT_TRUE(p.waitUntil([&] { return p.ask(QStringLiteral("top ") + name) != before; })) << list;
        EXPECT_EQ(p.ask(QStringLiteral("top cl2")), p.ask(QStringLiteral("top CL4"))) << "after scrolling " << list;
        if (name == QLatin1String("cl2"))
            p.shot(QStringLiteral("forty_pairs_scrolled"));
    }
}
