// Saving, opening and the questions around them answered by keys, Enter never leaking from a
// dialog into the window, and the two lists of a large sample read across one line.

#include "JourneyHarness.h"

#include <QFile>
#include <QFileInfo>
#include <QProcess>
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

// The class's data out and back in through the real window and its real dialogs: CSV export
// by Ctrl+E, import from the toolbar menu's Data group, and the Averages worksheet as a PDF.
TEST(DataJourney, ExportImportAndWorksheetThroughTheMenu)
{
    Program p;
    ASSERT_TRUE(p.started());
    ASSERT_TRUE(WriteClass(p.documents() + QStringLiteral("/class1.rtd")));
    ASSERT_TRUE(p.openByKeys(p.documents() + QStringLiteral("/class1.rtd")));
    ASSERT_TRUE(p.waitUntil([&] { return p.lines(QStringLiteral("cl2")) == 20; }));

    p.moveTo(p.control(QStringLiteral("Label4")).centre());
    p.focusMainWindow();
    p.chord("Control_L", "e");
    ASSERT_TRUE(p.waitUntil([&] { return p.modalShown(); })) << "no export dialog";
    p.type(p.documents() + QStringLiteral("/class1"));
    p.key("Return");
    const QString csv = p.documents() + QStringLiteral("/class1.csv");
    ASSERT_TRUE(p.waitUntil([&] { return QFileInfo::exists(csv); }));
    QFile exported(csv);
    ASSERT_TRUE(exported.open(QIODevice::ReadOnly));
    const QByteArray text = exported.readAll();
    EXPECT_TRUE(text.startsWith("visual,audio\n")) << text.constData();
    EXPECT_EQ(text.count('\n'), 21);

    p.click(p.toolbarButton(QStringLiteral("Clear")));
    ASSERT_TRUE(p.waitUntil([&] { return p.lines(QStringLiteral("cl2")) == 0; }));
    // The menu from the bar's end, then its fourth entry (About, Export, Import) by keys.
    const Control end = p.control(QStringLiteral("PicRight"));
    ASSERT_TRUE(end.found);
    p.click(end.rect.center() + QPoint(0, end.rect.height() / 4));
    ASSERT_TRUE(p.waitUntil([&] { return p.modalShown(); })) << "no menu";
    p.shot(QStringLiteral("menu_data_group"));
    p.key("Down");
    p.key("Down");
    p.key("Down");
    p.key("Return");
    ASSERT_TRUE(p.waitUntil([&] { return p.ask(QStringLiteral("modal")).contains(QLatin1String("import")); }))
        << qPrintable(p.ask(QStringLiteral("modal")));
    p.type(csv);
    p.key("Return");
    ASSERT_TRUE(p.waitUntil([&] { return p.lines(QStringLiteral("cl2")) == 20 && p.lines(QStringLiteral("CL4")) == 20; }));

    // The Averages page's worksheet, hidden answers left blank, as a PDF.
    p.click(p.toolbarButton(QStringLiteral("Averages")));
    ASSERT_TRUE(p.waitUntil([&] { return p.control(QStringLiteral("p4_0")).visible; }));
    p.click(QStringLiteral("cmd1_3"));
    p.click(end.rect.center() + QPoint(0, end.rect.height() / 4));
    ASSERT_TRUE(p.waitUntil([&] { return p.modalShown(); }));
    for (int i = 0; i < 6; ++i) // About, Export, Import, Add, Print, then Save as PDF
        p.key("Down");
    p.key("Return");
    QString box;
    ASSERT_TRUE(p.waitUntil([&] { return (box = p.ask(QStringLiteral("modal"))).endsWith(QLatin1String("Worksheet")); }))
        << qPrintable(box);
    p.key("Return"); // Yes: blanks for the pupils
    ASSERT_TRUE(p.waitUntil([&] { return p.ask(QStringLiteral("modal")).contains(QLatin1String("worksheet")); }))
        << qPrintable(p.ask(QStringLiteral("modal")));
    p.type(p.documents() + QStringLiteral("/sheet"));
    p.key("Return");
    const QString pdf = p.documents() + QStringLiteral("/sheet.pdf");
    ASSERT_TRUE(p.waitUntil([&] { return QFileInfo(pdf).size() > 0; }, 10000));
    QProcess toText;
    toText.start(QStringLiteral("pdftotext"), {pdf, QStringLiteral("-")});
    if (!toText.waitForFinished(10000))
        GTEST_SKIP() << "pdftotext is not there to read the worksheet";
    const QString words = QString::fromUtf8(toText.readAllStandardOutput());
    EXPECT_TRUE(words.contains(QLatin1String("Averages"))) << qPrintable(words);
    EXPECT_TRUE(words.contains(QLatin1String("Mean"))) << qPrintable(words);
    EXPECT_TRUE(words.contains(p.text(QStringLiteral("lb1_3")))) << qPrintable(words);
}

// A pupil picks Deutsch from the toolbar menu's Language group with the keys; the next start
// of the program speaks German.
TEST(DataJourney, TheLanguageChosenInTheMenuIsSpokenFromTheNextStart)
{
    QString settings;
    {
        Program p;
        ASSERT_TRUE(p.started());
        EXPECT_EQ(p.text(QStringLiteral("Label2")), QStringLiteral("Reaction Times:"));
        const Control end = p.control(QStringLiteral("PicRight"));
        ASSERT_TRUE(end.found);
        p.click(end.rect.center() + QPoint(0, end.rect.height() / 4));
        ASSERT_TRUE(p.waitUntil([&] { return p.modalShown(); })) << "no menu";
        for (int i = 0; i < 8; ++i) // About, the five Data entries, English, then Deutsch
            p.key("Down");
        p.shot(QStringLiteral("menu_language_group"));
        p.key("Return");
        QString box;
        ASSERT_TRUE(p.waitUntil([&] { return (box = p.ask(QStringLiteral("modal"))).endsWith(QLatin1String("Language")); }))
            << qPrintable(box);
        p.key("Return");
        ASSERT_TRUE(p.waitUntil([&] { return !p.modalShown(); }));
        EXPECT_EQ(p.text(QStringLiteral("Label2")), QStringLiteral("Reaction Times:")) << "this window keeps its language";
        QFile ini(p.documents() + QStringLiteral("/Zorvanes.ini"));
        ASSERT_TRUE(ini.open(QIODevice::ReadOnly));
        settings = QString::fromUtf8(ini.readAll());
        EXPECT_TRUE(settings.contains(QLatin1String("Language=de"))) << qPrintable(settings);
    }
    Options again;
    again.settings = settings;
    Program p(again);
    ASSERT_TRUE(p.started());
    EXPECT_EQ(p.text(QStringLiteral("Label2")), QStringLiteral("Reaktionszeiten:"));
    p.shot(QStringLiteral("german_after_restart"));
}
