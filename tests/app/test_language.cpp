// The window's language: the choice from the settings file or the locale, the German
// translation that is compiled in, the core's texts shown in German, and a whole German window
// in which no English text is left; with no translation loaded everything stays English.

#include "MainWindowFixture.h"

#include "app/Language.h"
#include "app/pages/PageWidgets.h"
#include "charts/BoxPlots.h"
#include "charts/StemAndLeaf.h"
#include "common/RunTimeError.h"
#include "controls/ShapedTabs.h"
#include "controls/ucTableView.h"
#include "dialogs/MsgBoxes.h"
#include "dialogs/msgFrm.h"
#include "toolbar/ToolbarMenu.h"
#include "files/RtdFile.h"
#include "i18n/CoreTexts.h"
#include "stats/Averages.h"
#include "stats/Spearman.h"

#include <QApplication>
#include <QCoreApplication>
#include <QFile>
#include <QLocale>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <QTemporaryDir>
#include <QTextEdit>
#include <QXmlStreamReader>

#include <algorithm>
#include <random>

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

using namespace mainwindowtest;

namespace {

struct Entry {
    QString context, source, translation;
    QStringList forms; // a text that counts: its singular and plural German, with %n
};

// The entries of the German .ts as lupdate wrote them, read once.
const std::vector<Entry> &TsEntries()
{
    static std::vector<Entry> entries;
    if (!entries.empty())
        return entries;
    QFile file(QStringLiteral(ZRT_TS_FILE));
    if (!file.open(QIODevice::ReadOnly))
        return entries;
    QXmlStreamReader xml(&file);
    QString context;
    Entry entry;
    while (!xml.atEnd()) {
        xml.readNext();
        if (!xml.isStartElement())
            continue;
        if (xml.name() == QLatin1String("name"))
            context = xml.readElementText();
        else if (xml.name() == QLatin1String("message"))
            entry = Entry{context, {}, {}, {}};
        else if (xml.name() == QLatin1String("source"))
            entry.source = xml.readElementText();
        else if (xml.name() == QLatin1String("translation")) {
            // A text that counts holds one form per number instead of a text.
            QString text;
            while (!xml.atEnd() && !(xml.isEndElement() && xml.name() == QLatin1String("translation"))) {
                xml.readNext();
                if (xml.isCharacters())
                    text += xml.text();
                else if (xml.isStartElement() && xml.name() == QLatin1String("numerusform"))
                    entry.forms << xml.readElementText();
            }
            entry.translation = entry.forms.isEmpty() ? text : entry.forms.join(QLatin1Char('\n'));
            entries.push_back(entry);
        }
    }
    return entries;
}

// Every visible text of the window's own controls under `root`.
QStringList VisibleTexts(QWidget *root)
{
    QStringList texts;
    for (QWidget *w : root->findChildren<QWidget *>()) {
        if (!w->isVisibleTo(root))
            continue;
        if (auto *label = qobject_cast<QLabel *>(w))
            texts << label->text();
        else if (auto *button = qobject_cast<zrt::GlossButton *>(w))
            texts << button->Caption();
        else if (auto *check = qobject_cast<zrt::Check *>(w))
            texts << check->Caption();
        else if (auto *panel = qobject_cast<zrt::DropPanel *>(w))
            texts << panel->Title();
        else if (auto *tabs = qobject_cast<zrt::ShapedTabs *>(w)) {
            for (int i = 0; i < tabs->NumberOfTabs(); ++i)
                texts << tabs->TabCaption(i);
        } else if (auto *list = qobject_cast<zrt::RowList *>(w)) {
            texts << Items(list);
        } else if (auto *table = qobject_cast<zrt::ucTableView *>(w)) {
            for (int i = 0; i < 6; ++i)
                texts << table->ColumnText(i);
        } else if (auto *box = qobject_cast<QTextEdit *>(w)) {
            texts << box->toPlainText();
        }
    }
    texts.removeAll(QString());
    return texts;
}

// The texts that run past the end of their label, button or check box on any page, with the
// show buttons in both states. The window holds six pairs.
QStringList Clipped(MainFrm &window)
{
    QStringList clipped;
    auto measure = [&] {
        for (QLabel *label : window.findChildren<QLabel *>()) {
            if (label->wordWrap() || label->text().isEmpty() || Qt::mightBeRichText(label->text()))
                continue;
            const int need = label->fontMetrics().horizontalAdvance(label->text());
            if (need > label->contentsRect().width())
                clipped << QStringLiteral("%1 (%2 of %3 px)").arg(label->text()).arg(need).arg(label->contentsRect().width());
        }
        for (auto *button : window.findChildren<GlossButton *>()) {
            const int need = button->fontMetrics().horizontalAdvance(button->Caption()) + 8;
            if (need > button->width())
                clipped << QStringLiteral("%1 (%2 of %3 px)").arg(button->Caption()).arg(need).arg(button->width());
        }
        for (auto *check : window.findChildren<Check *>())
            if (!check->Caption().isEmpty() &&
                check->fontMetrics().horizontalAdvance(check->Caption().replace("&&", "&")) + Check::BoxSize + 4 >
                    check->width())
                clipped << check->Caption();
    };
    measure();
    auto &a = *window.averages;
    auto &g = *window.groups;
    auto &c = *window.compare;
    const std::array<GlossButton *, 8> shows{a.cmdBP, a.cmdSL, g.cmdTally, g.cmdR, g.cmdCF, g.cmdPlot, c.cmdSG, c.cmdBPc};
    QStringList showCaptions;
    for (const GlossButton *button : shows)
        showCaptions << button->Caption();
    window.ClickToolbarButton("Averages");
    a.Tab1_Click(2);
    QTest::mouseClick(a.cmdBP, Qt::LeftButton);
    a.Tab1_Click(3);
    QTest::mouseClick(a.cmdSL, Qt::LeftButton);
    window.ClickToolbarButton("Groups");
    g.Tab2_Click(0);
    QTest::mouseClick(g.cmdTally, Qt::LeftButton);
    g.Tab2_Click(1);
    QTest::mouseClick(g.cmdR, Qt::LeftButton);
    g.Tab2_Click(2);
    QTest::mouseClick(g.cmdCF, Qt::LeftButton);
    g.Tab2_Click(3);
    QTest::mouseClick(g.cmdPlot, Qt::LeftButton);
    window.ClickToolbarButton("Compare");
    c.ShapedTabs1_Click(0);
    QTest::mouseClick(c.cmdSG, Qt::LeftButton);
    c.ShapedTabs1_Click(2);
    QTest::mouseClick(c.cmdBPc, Qt::LeftButton);
    // Every show button was pressed: its caption changed to the hide one.
    for (int i = 0; i < 8; ++i)
        if (shows[i]->Caption() == showCaptions[i])
            clipped << "not pressed: " + showCaptions[i];
    measure();
    clipped.removeDuplicates();
    return clipped;
}

class LanguageTest : public MainWindowTest {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(Language::load(QStringLiteral("de")));
        MainWindowTest::SetUp();
    }
    void TearDown() override
    {
        MainWindowTest::TearDown();
        Language::load(QStringLiteral("en"));
    }

    // The English texts a German window must not show: every source whose German differs.
    // Texts of two words and more are looked for inside composed texts as well.
    QStringList EnglishLeft(const QStringList &shown) const
    {
        QStringList left;
        for (const QString &text : shown) {
            for (const Entry &e : TsEntries()) {
                if (e.source == e.translation)
                    continue;
                const QString source = e.source.trimmed();
                const bool phrase = source.contains(QLatin1Char(' ')) && source.size() >= 8;
                if (text.trimmed() == source || (phrase && text.contains(source)))
                    left << QStringLiteral("\"%1\" shows \"%2\"").arg(text, source);
            }
        }
        return left;
    }
};

} // namespace

TEST(Language, LocaleNamesAndStoredChoices)
{
    EXPECT_EQ(Language::fromLocaleName("de_DE"), "de");
    EXPECT_EQ(Language::fromLocaleName("de-AT"), "de");
    EXPECT_EQ(Language::fromLocaleName("DE_ch.UTF-8"), "de");
    EXPECT_EQ(Language::fromLocaleName("en_GB"), "en");
    EXPECT_EQ(Language::fromLocaleName("fr_FR"), "en") << "a language without a translation falls back to English";
    EXPECT_EQ(Language::fromLocaleName("C"), "en");
    EXPECT_EQ(Language::fromLocaleName(QString()), "en");

    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());
    const QString ini = dir.filePath("Zorvanes.ini");
    EXPECT_TRUE(Language::stored(ini).isEmpty()) << "no file, no choice";
    {
        QFile file(ini);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("[Settings]\r\nSOUND1=\r\nLanguage=klingon\r\n");
    }
    EXPECT_TRUE(Language::stored(ini).isEmpty()) << "a code the program does not offer is no choice";
    EXPECT_EQ(Language::chosen(ini), Language::fromLocaleName(QLocale::system().name()));

    ASSERT_TRUE(Language::setLanguage("de", ini));
    EXPECT_EQ(Language::current(), "en") << "the running window keeps its language";
    EXPECT_EQ(Language::stored(ini), "de");
    EXPECT_EQ(Language::chosen(ini), "de");
    QFile file(ini);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray content = file.readAll();
    EXPECT_TRUE(content.contains("SOUND1=")) << "the other settings stay";
    EXPECT_EQ(content.count("Language="), 1) << "the key is updated in place";

    EXPECT_FALSE(Language::setLanguage("fr", ini));
    EXPECT_EQ(Language::stored(ini), "de") << "a refused code changes nothing";
    // The next start: the stored choice is loaded.
    Language::installLanguage(*QCoreApplication::instance(), ini);
    EXPECT_EQ(Language::current(), "de");
    EXPECT_EQ(QCoreApplication::translate("AveragesPage", "Outliers"), QString::fromUtf8("Ausreißer"));
    ASSERT_TRUE(Language::setLanguage("en", ini));
    EXPECT_EQ(Language::stored(ini), "en");
    Language::installLanguage(*QCoreApplication::instance(), ini);
    EXPECT_EQ(Language::current(), "en");
    EXPECT_EQ(QCoreApplication::translate("AveragesPage", "Outliers"), "Outliers") << "English installs no translator";
}

TEST(Language, EveryEntryOfTheGermanFileIsCompiledIn)
{
    const std::vector<Entry> entries = TsEntries();
    ASSERT_GT(entries.size(), 150u) << ZRT_TS_FILE;
    ASSERT_TRUE(Language::load("de"));
    QStringList missing;
    for (const Entry &e : entries) {
        const QByteArray context = e.context.toUtf8();
        const QByteArray source = e.source.toUtf8();
        if (e.translation.trimmed().isEmpty()) {
            missing << e.context + ": " + e.source + " (no German text)";
        } else if (!e.forms.isEmpty()) {
            // German has one form for one and another for more.
            for (int n : {1, 2}) {
                QString expected = e.forms.value(n - 1);
                expected.replace(QStringLiteral("%n"), QString::number(n));
                if (QCoreApplication::translate(context.constData(), source.constData(), nullptr, n) != expected)
                    missing << e.context + ": " + e.source + QStringLiteral(" (n = %1)").arg(n);
            }
        } else if (QCoreApplication::translate(context.constData(), source.constData()) != e.translation) {
            missing << e.context + ": " + e.source;
        }
    }
    Language::load("en");
    EXPECT_TRUE(missing.isEmpty()) << missing.join('\n').toStdString();
}

namespace {

// The phrase replacement as first written, a look at every phrase at every position: the quick
// one must give the same text.
QString ReferenceCoreTr(const QString &source)
{
    const QString whole = QCoreApplication::translate("CoreTexts", source.toUtf8().constData());
    if (source.isEmpty() || whole != source)
        return whole;
    std::vector<QString> phrases;
    for (int k = 0; k < CoreTexts::phraseCount(); ++k)
        phrases.push_back(QString::fromUtf8(CoreTexts::phrase(k)));
    std::stable_sort(phrases.begin(), phrases.end(), [](const QString &a, const QString &b) { return a.size() > b.size(); });
    QString out;
    qsizetype i = 0;
    while (i < source.size()) {
        bool found = false;
        for (const QString &phrase : phrases) {
            if (!QStringView(source).mid(i).startsWith(phrase))
                continue;
            const qsizetype end = i + phrase.size();
            if ((phrase.front().isLetter() && i > 0 && source[i - 1].isLetter()) ||
                (phrase.back().isLetter() && end < source.size() && source[end].isLetter()))
                continue;
            out += QCoreApplication::translate("CoreTexts", phrase.toUtf8().constData());
            i = end;
            found = true;
            break;
        }
        if (!found)
            out += source[i++];
    }
    return out;
}

} // namespace

TEST(Language, CoreTextsReplaceAsTheyAlwaysDidInAnyMixOfPhrasesAndFigures)
{
    ASSERT_TRUE(Language::load("de"));
    std::mt19937 rng(23);
    const QStringList fillers = {" ", ", ", "0.31", "\n", "x", "Mean", "s", "-", "(", "= "};
    for (int round = 0; round < 3000; ++round) {
        QString text;
        const int pieces = std::uniform_int_distribution<int>(1, 12)(rng);
        for (int k = 0; k < pieces; ++k) {
            if (rng() % 2)
                text += QString::fromUtf8(CoreTexts::phrase(int(rng() % unsigned(CoreTexts::phraseCount()))));
            else
                text += fillers[int(rng() % unsigned(fillers.size()))];
        }
        ASSERT_EQ(CoreTexts::tr(text.toStdString()), ReferenceCoreTr(text)) << text.toStdString();
    }
    Language::load("en");
}

TEST(Language, CoreTextsAreShownInGermanAndStayEnglishWithout)
{
    const std::string composed = "Estimated Mean = 31.5 to 2 d.p.";
    EXPECT_EQ(CoreTexts::tr(composed), QString::fromStdString(composed));
    EXPECT_EQ(CoreTexts::tr("Run-time error '6': Overflow"), "Run-time error '6': Overflow");

    ASSERT_TRUE(Language::load("de"));
    EXPECT_EQ(CoreTexts::tr(composed), "Geschätzter Mittelwert = 31.5 (auf 2 Dezimalstellen)");
    EXPECT_EQ(CoreTexts::tr("Sample Size (n) = 6\n"), "Stichprobenumfang (n) = 6\n");
    EXPECT_EQ(CoreTexts::tr("Run-time error '6': Overflow\n\nOne of the collected times is empty or is not a number."),
              "Laufzeitfehler '6': Überlauf\n\nEine der gesammelten Zeiten ist leer oder keine Zahl.");
    // The longest phrase first, whole words only, numbers untouched.
    EXPECT_EQ(CoreTexts::tr("Interquartile Range"), "Interquartilsabstand");
    EXPECT_EQ(CoreTexts::tr("Meaning: Mean 23, 27"), "Meaning: Mittelwert 23, 27");
    EXPECT_EQ(CoreTexts::tr("23, 27, 31,"), "23, 27, 31,");
    EXPECT_EQ(CoreTexts::tr("it is larger than 4 MB"), QString::fromUtf8("sie ist größer als 4 MB"));

    // Every text the core hands to the window has its German.
    std::vector<const char *> core = {zrt::kNoTimesMessage, zrt::kNeedThreeMessage, zrt::kRtdFilter,
                                      zrt::kRtdSaveTitle,   zrt::kRtdOpenTitle,     zrt::ScaleCaption,
                                      zrt::AllEqualSentence, zrt::StemKeyText,       zrt::DetailsTitle};
    core.insert(core.end(), zrt::kCmd1Captions.begin(), zrt::kCmd1Captions.end());
    core.insert(core.end(), zrt::kCmd2Captions.begin(), zrt::kCmd2Captions.end());
    core.insert(core.end(), zrt::kPrecisionItems.begin(), zrt::kPrecisionItems.end());
    core.insert(core.end(), zrt::kRankColumnCaptions.begin(), zrt::kRankColumnCaptions.end());
    for (int n : {int(zrt::ErrInvalidCall), int(zrt::ErrOverflow), int(zrt::ErrSubscript), int(zrt::ErrDivisionByZero),
                  int(zrt::ErrTypeMismatch), int(zrt::ErrInvalidPropertyIndex), 1}) {
        const std::string message = zrt::RunTimeError(n).message();
        EXPECT_NE(CoreTexts::tr(message), QString::fromStdString(message)) << message;
    }
    // And so does every phrase of the table, but for those that read the same in German.
    const std::vector<std::string> same = {"Median", "Median = ", "d (Rx-Ry)", "d^2"};
    for (const char *text : core) {
        if (std::find(same.begin(), same.end(), text) == same.end()) {
            EXPECT_NE(CoreTexts::tr(text), QString::fromUtf8(text)) << text;
        }
    }
    for (int i = 0; i < CoreTexts::phraseCount(); ++i) {
        const char *phrase = CoreTexts::phrase(i);
        if (std::find(same.begin(), same.end(), phrase) == same.end()) {
            EXPECT_NE(CoreTexts::tr(phrase), QString::fromUtf8(phrase)) << phrase;
        }
    }
    Language::load("en");
}

TEST_F(LanguageTest, NoEnglishTextIsLeftOnAnyPage)
{
    QStringList shown = VisibleTexts(window.get());
    // The Record page after a run, with its verdict and result buttons.
    UncheckPairs();
    VisualRun({300, 320, 310, 330});
    ASSERT_TRUE(window->P3->Label3->isVisible());
    shown << VisibleTexts(window.get());
    QTest::mouseClick(window->P3->GlossButton1[1], Qt::LeftButton);

    window->P3->Check4->setValue(1);
    window->P2->Check4_Click();
    Six();
    window->ClickToolbarButton("Averages");
    auto &a = *window->averages;
    QTest::mouseClick(a.cmdshowall, Qt::LeftButton);
    QTest::mouseClick(a.cmdSA, Qt::LeftButton);
    for (int tab = 0; tab < 4; ++tab) {
        a.Tab1_Click(tab);
        shown << VisibleTexts(window.get());
    }
    QTest::mouseClick(a.cmdBP, Qt::LeftButton);
    a.Tab1_Click(3);
    QTest::mouseClick(a.cmdSL, Qt::LeftButton);
    shown << VisibleTexts(window.get());

    window->ClickToolbarButton("Groups");
    auto &g = *window->groups;
    for (int tab = 0; tab < 4; ++tab) {
        g.Tab2_Click(tab);
        shown << VisibleTexts(window.get());
    }
    QTest::mouseClick(g.cmdPlot, Qt::LeftButton);
    shown << VisibleTexts(window.get());

    window->ClickToolbarButton("Compare");
    auto &c = *window->compare;
    for (int tab = 0; tab < 3; ++tab) {
        c.ShapedTabs1_Click(tab);
        shown << VisibleTexts(window.get());
    }
    c.ShapedTabs1_Click(1);
    QTest::mouseClick(c.cmdSR, Qt::LeftButton);
    c.ShapedTabs1_Click(2);
    QTest::mouseClick(c.cmdBPc, Qt::LeftButton);
    shown << VisibleTexts(window.get());

    for (int i = 1; i <= window->ThemedToolbar1->ButtonCount(); ++i)
        shown << window->ThemedToolbar1->BtnToolTipText(i);
    shown << window->ThemedToolbar1->cMenuItemTitle() << window->ThemedToolbar1->cMenuItem(1);

    // The walk saw the pages at all: German texts of each are among the texts.
    for (const char *german : {"Reaktionszeiten:", "Gemittelte Zeiten", "Alle zeigen", "Interquartilsabstand",
                               "Klassierte Daten", "Streudiagramm", "Rangkorrelation",
                               "Verbirg Boxplots", "Datendatei öffnen."})
        EXPECT_TRUE(shown.contains(QString::fromUtf8(german))) << german;
    const QStringList left = EnglishLeft(shown);
    EXPECT_TRUE(left.isEmpty()) << left.join('\n').toStdString();
}

TEST_F(LanguageTest, ATooSlowAudioRunReplacesTheWholeGermanSecondsWord)
{
    // The verdict drops the heading's unit for the audio mean: " Sekunden" is longer than
    // " seconds", and no letter of it may be left behind.
    VisualRun({300, 300, 300, 300});
    ASSERT_TRUE(window->P5->isVisible());
    QTest::mouseClick(window->P5->cmdStartAudio, Qt::LeftButton);
    for (int i = 0; i < 4; ++i) {
        window->timers().fire(TimerAudioCue);
        ASSERT_TRUE(window->P5->cueSounding());
        g_counter += 1500;
        QTest::mousePress(window->P5->ucgif, Qt::LeftButton, Qt::NoModifier, QPoint(50, 200));
    }
    EXPECT_EQ(window->P5->l9->text(),
              QString::fromUtf8("Durchschnittliche Reaktionszeit \nVisuell: 0.3 Auditiv: 1.5\n"
                                "Viel zu langsam! Bitte versuche es noch einmal."));
    EXPECT_FALSE(window->P5->cmdadd[0]->isEnabled());
}

TEST_F(LanguageTest, TheInvitationsArePicturesWithGermanWords)
{
    // The invitations are pictures with words in them: German ones in a German window.
    const QImage english(QStringLiteral(":/images/start_invitation.png"));
    const QImage german(QStringLiteral(":/images/start_invitation_de.png"));
    ASSERT_FALSE(german.isNull());
    EXPECT_NE(german, english);
    EXPECT_EQ(window->P3->IMmsg->pixmap().toImage().convertToFormat(german.format()), german);
    EXPECT_EQ(PictureInLanguage(":/images/audio_invitation.png"), ":/images/audio_invitation_de.png");
    EXPECT_EQ(PictureInLanguage(":/images/record_stage.png"), ":/images/record_stage.png") << "no words, no German";
}

TEST_F(LanguageTest, BalloonsSpeakGerman)
{
    // The balloon's own buttons, and a page's explanation in it.
    QStringList buttons;
    QString title, text;
    zrt::msgFrm::setShownHook([&](zrt::msgFrm &box) {
        for (int i = 0; i < 3; ++i)
            if (box.cmd1(i) && box.cmd1(i)->isVisibleTo(&box))
                buttons << box.cmd1(i)->text();
        title = box.LblTitle()->text();
        text = box.lblmsg()->text();
        box.done(1);
    });
    zrt::msg_Box(QStringLiteral("?"), 3 | vbQuestion, QString(), window.get()); // 3: Yes, No and Cancel
    EXPECT_EQ(buttons, (QStringList{"Ja", "Nein", "Abbrechen"}));

    Six();
    window->ClickToolbarButton("Averages");
    window->averages->Tab1_Click(1);
    QTest::mouseClick(window->averages->cmdinfo, Qt::LeftButton);
    zrt::msgFrm::setShownHook({});
    EXPECT_EQ(title, QString::fromUtf8("Ausreißer"));
    EXPECT_TRUE(text.startsWith(QString::fromUtf8("Ein Ausreißer ist"))) << text.toStdString();

    // The system message box as well: its buttons are the program's texts, not Qt's English.
    SetMsgBoxHook({});
    QStringList boxButtons;
    QTimer::singleShot(0, [&] {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        if (!box)
            return;
        for (QAbstractButton *button : box->buttons())
            boxButtons << button->text();
        box->button(QMessageBox::No)->click();
    });
    EXPECT_EQ(MsgBox(window.get(), QStringLiteral("?"), vbYesNo | vbQuestion, QString()), vbNo);
    boxButtons.sort();
    EXPECT_EQ(boxButtons, (QStringList{"&Ja", "&Nein"}));
}

TEST_F(LanguageTest, TheToolbarMenuSpeaksGerman)
{
    QStringList texts;
    for (QAction *action : window->ThemedToolbar1->Menu()->actions())
        if (!action->text().isEmpty())
            texts << action->text().section(QLatin1Char('\t'), 0, 0);
    EXPECT_TRUE(texts.contains("Sprache")) << texts.join(" | ").toStdString();
    EXPECT_TRUE(texts.contains("Farbschema")) << "the menu's own scheme texts follow the window";
    EXPECT_TRUE(texts.contains("English") && texts.contains("Deutsch")) << "each language by its own name";
    const QStringList left = EnglishLeft(texts);
    EXPECT_TRUE(left.isEmpty()) << left.join('\n').toStdString();
}

TEST_F(LanguageTest, GermanTextsFitTheirLabelsAndButtons)
{
    Six();
    const QStringList clipped = Clipped(*window);
    EXPECT_TRUE(clipped.isEmpty()) << clipped.join('\n').toStdString();
}

TEST_F(MainWindowTest, WithoutATranslationTheWindowStaysEnglish)
{
    ASSERT_EQ(Language::current(), "en");
    EXPECT_EQ(window->P3->command1->Caption(), "Start");
    EXPECT_EQ(window->P3->Check4->Caption(), "Compare visual && audio");
    EXPECT_EQ(window->P2->Label4->text(), "Averaged Reation times");
    EXPECT_EQ(window->averages->cmd1[0]->Caption(), "lowest Value");
    EXPECT_EQ(window->averages->DD3->Title(), "1/100 th");
    EXPECT_EQ(window->groups->cmdTally->Caption(), "Show Tally/Frequency");
    EXPECT_EQ(window->compare->lbc[0]->text(), "Perfect Negative Correlation");
    EXPECT_EQ(window->ThemedToolbar1->cMenuItem(1), "About");
    const QStringList shown = VisibleTexts(window.get());
    EXPECT_TRUE(shown.contains("Reaction Times:"));
    EXPECT_TRUE(shown.contains("Number of attempts:"));
    EXPECT_EQ(window->P3->IMmsg->pixmap().toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied),
              QImage(":/images/start_invitation.png").convertToFormat(QImage::Format_ARGB32_Premultiplied));

    // The measure of the German texts holds for the English ones.
    for (auto [visual, audio] : {std::pair{"0.23", "0.31"}, {"0.27", "0.35"}, {"0.31", "0.3"}, {"0.25", "0.29"},
                                 {"0.29", "0.4"}, {"0.33", "0.37"}}) {
        window->P2->cl2->AddItem(visual);
        window->P2->CL4->AddItem(audio);
    }
    window->P2->SetDataCount();
    const QStringList clipped = Clipped(*window);
    EXPECT_TRUE(clipped.isEmpty()) << clipped.join('\n').toStdString();
}

TEST_F(MainWindowTest, TheToolbarMenuChoosesTheLanguageOfTheNextStart)
{
    struct KeepSettings {
        QString kept = MainMod1::SettingsFile;
        ~KeepSettings() { MainMod1::SettingsFile = kept; }
    } keepSettings;
    QTemporaryDir folder;
    MainMod1::SettingsFile = folder.filePath("Zorvanes.ini");
    QFile(MainMod1::SettingsFile).open(QIODevice::WriteOnly);
    auto languageActions = [this] {
        // The group after the menu's own items: its heading, then each language by its own name.
        QMap<QString, QAction *> byName;
        bool inGroup = false;
        for (QAction *action : window->ThemedToolbar1->Menu()->actions()) {
            if (action->isSeparator()) {
                inGroup = action->text() == "Language";
                continue;
            }
            if (inGroup)
                byName.insert(action->text(), action);
        }
        return byName;
    };
    window = std::make_unique<MainFrm>(nullptr, true);
    QMap<QString, QAction *> languages = languageActions();
    ASSERT_EQ(languages.keys(), QStringList({"Deutsch", "English"}));
    EXPECT_TRUE(languages["English"]->isChecked()) << "nothing stored: the language spoken now";
    EXPECT_FALSE(languages["Deutsch"]->isChecked());

    languages["Deutsch"]->trigger();
    EXPECT_EQ(Language::stored(MainMod1::SettingsFile), "de");
    ASSERT_EQ(said.size(), 1u);
    EXPECT_EQ(said[0].text, "The program speaks Deutsch from its next start.");
    EXPECT_EQ(window->P2->Label4->text(), "Averaged Reation times") << "the window built keeps its language";
    EXPECT_TRUE(languages["Deutsch"]->isChecked());
    EXPECT_FALSE(languages["English"]->isChecked());

    // A new window ticks the stored choice; going back to the language spoken needs no word.
    window = std::make_unique<MainFrm>(nullptr, true);
    languages = languageActions();
    EXPECT_TRUE(languages["Deutsch"]->isChecked());
    said.clear();
    languages["English"]->trigger();
    EXPECT_EQ(Language::stored(MainMod1::SettingsFile), "en");
    EXPECT_TRUE(said.empty());

    // A settings file that cannot be written is told, and the choice is not taken.
    MainMod1::SettingsFile = folder.filePath("no such folder/Zorvanes.ini");
    languages["Deutsch"]->trigger();
    ASSERT_EQ(said.size(), 1u);
    EXPECT_TRUE(said[0].text.startsWith("The choice could not be kept in ")) << said[0].text.toStdString();
    EXPECT_TRUE(languages["English"]->isChecked()) << "the tick goes back to the choice that stands";
}
