// The controls of the program on one page, for a look at each of them:
//   zrt_gallery [--screenshot FILE]
// With --screenshot the page is saved as a picture and the program ends.

#include "access/Accessibility.h"
#include "anim/ucGifPlayer.h"
#include "app/MainMod1.h"
#include "controls/Check.h"
#include "controls/DropPanel.h"
#include "controls/GlossButton.h"
#include "controls/RowList.h"
#include "controls/ShapedTabs.h"
#include "controls/ucTableView.h"
#include "toolbar/ThemedToolbar.h"

#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QTimer>

#include <Artwork.h>

using namespace zrt;

namespace {

QLabel *Heading(QWidget *parent, const QString &text, int x, int y)
{
    auto *label = new QLabel(text, parent);
    QFont bold = label->font();
    bold.setBold(true);
    label->setFont(bold);
    label->move(x, y);
    return label;
}

void AddButtons(QWidget *page)
{
    Heading(page, QStringLiteral("GlossButton: the eight styles"), 12, 50);
    for (int style = 0; style < 8; ++style) {
        auto *button = new GlossButton(page);
        button->setStyle(style);
        button->setCaption(QStringLiteral("Style &%1").arg(style));
        button->setGeometry(12 + (style % 4) * 118, 72 + (style / 4) * 40, 110, 32);
    }
    auto *disabled = new GlossButton(page);
    disabled->setStyle(3);
    disabled->setCaption(QStringLiteral("Disabled"));
    disabled->setGeometry(12, 152, 110, 32);
    disabled->setEnabled(false);
}

void AddToolbar(QWidget *page)
{
    auto *bar = new ThemedToolbar(page);
    const QImage strip = Artwork::ToolbarStrip();
    const char *keys[] = {"Open", "Clear", "Save", "", "Record", "", "Averages", "Groups", "Compare"};
    const int cells[] = {1, 2, 3, 0, 4, 0, 5, 6, 7};
    for (int i = 0; i < 9; ++i) {
        if (cells[i] == 0) {
            bar->AddButton(btn::TypeSeparator);
            continue;
        }
        bar->AddButton(btn::TypeButton, QString(), QString::fromLatin1(keys[i]),
                       ThemedToolbar::IconFromStrip(strip, cells[i]), 32, 0, QString::fromLatin1(keys[i]),
                       SystemColor(8), std::nullopt, i >= 4 ? btn::StyleCheck : btn::StylePush, 0, true,
                       RGB(0, 255, 0));
    }
    bar->setThemeColor(3);
    bar->setBtnValue(5, true);
    bar->setBtnEnabled(9, false);
    bar->SizeToButtons();
    bar->move(0, 0);
}

void AddLists(QWidget *page)
{
    Heading(page, QStringLiteral("RowList"), 500, 50);
    auto *list = new RowList(page);
    list->setGeometry(500, 72, 150, 150);
    for (const char *t : {"0.31", "0.28", "0.35", "0.42", "0.27", "0.33", "0.39", "0.3", "0.45", "0.36", "0.29"})
        list->AddItem(QString::fromLatin1(t));
    list->setListIndex(2);

    Heading(page, QStringLiteral("Check"), 670, 50);
    const char *captions[] = {"Unchecked", "Checked", "Grey"};
    for (int v = 0; v < 3; ++v) {
        auto *check = new Check(page);
        check->setCaption(QString::fromLatin1(captions[v]));
        check->setValue(v);
        check->setGeometry(670, 72 + v * 24, 130, 20);
    }
    auto *off = new Check(page);
    off->setCaption(QStringLiteral("Disabled"));
    off->setValue(1);
    off->setEnabled(false);
    off->setGeometry(670, 144, 130, 20);

    Heading(page, QStringLiteral("DropPanel"), 12, 200);
    auto *panel = new DropPanel(page);
    panel->setGeometry(12, 222, 140, 22);
    auto *choices = new RowList(panel);
    for (const char *t : {"1/100 th", "1/1000 th", "1/10000 th"})
        choices->AddItem(QString::fromLatin1(t));
    choices->resize(140, 56);
    panel->PlaceInBody(choices);
    panel->setTitle(QStringLiteral("1/100 th"));
    // Panels start folded when shown; open this one once the page is up.
    QTimer::singleShot(0, panel, &DropPanel::Expand);
}

void AddTabsAndTable(QWidget *page)
{
    Heading(page, QStringLiteral("ShapedTabs"), 180, 200);
    auto *tabs = new ShapedTabs(page);
    tabs->setCaption(QStringLiteral("Scatter Graph|Spearman's Rank|Boxplots|Tab4|Tab5|Tab6|Tab7|Tab8|Tab9|Tab10|"));
    tabs->setNumberOfTabs(3);
    tabs->setGeometry(180, 222, 420, 26);
    tabs->setActiveTab(1);

    Heading(page, QStringLiteral("ucTableView"), 180, 262);
    auto *table = new ucTableView(page);
    table->setGeometry(180, 284, 500, 150);
    table->Initialize();
    const char *captions[] = {"Visual(x)", "Rank (Rx)", "Audio(y)", "Rank (Ry)", "d (Rx-Ry)", "d^2"};
    for (int c = 0; c < 6; ++c)
        table->ColumnAdd(c, QString::fromLatin1(captions[c]), 80, 0);
    table->setFullRowSelect(true);
    table->setBackColor(RGB(241, 241, 217));
    const char *rows[][6] = {{"23", "1", "31", "3", "-2", "4"}, {"27", "2", "29", "1", "1", "1"},
                             {"31", "3", "30", "2", "1", "1"}};
    for (int r = 0; r < 3; ++r) {
        table->ItemAdd(r, QString::fromLatin1(rows[r][0]));
        for (int c = 1; c < 6; ++c)
            table->SubItemSet(r, c, QString::fromLatin1(rows[r][c]));
    }
}

void AddCharacter(QWidget *page)
{
    Heading(page, QStringLiteral("ucGifPlayer"), 720, 200);
    InitResources();
    QFile gif(QStringLiteral(":/gif/character2.gif"));
    gif.open(QIODevice::ReadOnly);
    auto *player = new ucGifPlayer(page);
    player->setDelayAnimation(0);
    player->LoadAnimatedGIF_Array(gif.readAll());
    player->setGeometry(720, 222, 110, 394);
    player->setAction(4);
    player->setAction(3);
    player->setAction(3);
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    // So that a screen reader can be tried on every control at once.
    zrt::installAccessibility();
    MainMod1::InitColours();
    QWidget page;
    page.setWindowTitle(QStringLiteral("Zorvane Reaction Times: controls"));
    page.resize(850, 630);
    QPalette palette = page.palette();
    palette.setColor(QPalette::Window, MainMod1::PanelColour);
    page.setPalette(palette);
    page.setAutoFillBackground(true);
    AddToolbar(&page);
    AddButtons(&page);
    AddLists(&page);
    AddTabsAndTable(&page);
    AddCharacter(&page);
    page.show();

    const QStringList args = app.arguments();
    const qsizetype at = args.indexOf(QStringLiteral("--screenshot"));
    if (at >= 0 && at + 1 < args.size()) {
        QTimer::singleShot(300, [&] {
            page.grab().save(args[at + 1]);
            app.quit();
        });
    }
    return app.exec();
}
