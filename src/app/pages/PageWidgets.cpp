#include "app/pages/PageWidgets.h"

#include "app/Language.h"
#include "app/MainMod1.h"
#include "app/pages/PageContext.h"
#include "charts/PictureBox.h"
#include "common/NumberText.h"
#include "controls/GlossButton.h"
#include "controls/ShapedTabs.h"
#include "dialogs/MsgBoxes.h"

#include <QCoreApplication>
#include <QFile>
#include <QLabel>
#include <QTextEdit>

void PageContext::pump() { QCoreApplication::processEvents(); }

namespace pages {

QLabel *NewLabel(QWidget *parent, const QString &text, const QRect &geometry, bool wrap)
{
    auto *label = new QLabel(text, parent);
    label->setGeometry(geometry);
    label->setWordWrap(wrap);
    return label;
}

QLabel *AnswerLabel(QWidget *parent, const QRect &geometry)
{
    QLabel *label = NewLabel(parent, QString(), geometry);
    label->setStyleSheet(QStringLiteral("QLabel { background: white; border: 1px solid #9a9a80; padding-left: 4px; }"));
    return label;
}

QTextEdit *NumbersBox(QWidget *parent, const QRect &geometry)
{
    auto *box = new QTextEdit(parent);
    box->setReadOnly(true);
    // Tab reaches the numbers to read, select and copy them by keys: a caret and a frame in the
    // highlight colour show that the box has the focus, which a read-only box shows no other way.
    box->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    box->setStyleSheet(QStringLiteral("QTextEdit:focus { border: 2px solid palette(highlight); }"));
    box->setGeometry(geometry);
    return box;
}

zrt::PictureBox *Surface(QWidget *parent)
{
    auto *surface = new zrt::PictureBox(parent);
    surface->SetBackColor(zrt::RGB(255, 255, 255));
    return surface;
}

zrt::GlossButton *NewButton(const PageContext &context, QWidget *parent, const QString &caption,
                            const QRect &geometry, std::function<void()> onClick)
{
    auto *button = new zrt::GlossButton(parent);
    button->setCaption(caption);
    button->setGeometry(geometry);
    QObject::connect(button, &zrt::GlossButton::Click, parent,
                     [&context, onClick] { context.guard(onClick); });
    return button;
}

QString AttemptLine(int count, float seconds)
{
    return QString::number(count) + QStringLiteral(")    ") + QString::fromStdString(zrt::GeneralText(seconds));
}

QRect TabFrameRect(const QWidget *page)
{
    return QRect(0, kTabTop + kTabHeight, page->width(), page->height() - kTabTop - kTabHeight);
}

zrt::ShapedTabs *NewTabs(const PageContext &context, QWidget *page, const QStringList &captions, bool darkDisabled,
                         std::function<void(int)> onClick)
{
    auto *tabs = new zrt::ShapedTabs(page);
    QStringList fields = captions;
    while (fields.size() < 10)
        fields << QStringLiteral("Tab%1").arg(fields.size() + 1);
    tabs->setCaption(fields.join(QLatin1Char('|')) + QLatin1Char('|'));
    tabs->setNumberOfTabs(static_cast<int>(captions.size()));
    tabs->setGeometry(0, kTabTop, page->width(), kTabHeight);
    tabs->setDisabledTabColor(darkDisabled ? zrt::RGB(192, 192, 192) : zrt::RGB(224, 224, 224));
    tabs->setBorderDarkColor(zrt::RGB(64, 64, 0));
    tabs->setBorderLightColor(zrt::RGB(128, 128, 0));
    tabs->setInactiveTabTextColor(zrt::RGB(128, 128, 128));
    // Round corners leave a few pixels of the strip's own back colour outside their outline:
    // they take the colour of the page around it, or they show as white specks.
    tabs->setControlBackcolor(zrt::ToOleColor(MainMod1::PanelColour));
    QObject::connect(tabs, &zrt::ShapedTabs::Click, page, [&context, onClick](int &index) {
        const int tab = index;
        context.guard([=] { onClick(tab); });
    });
    return tabs;
}

void TabOrder(std::initializer_list<QWidget *> order)
{
    // A list takes the focus in its inner surface, its focus proxy, and that surface is what
    // moves in the chain; Tab also stops at the list itself wherever the list stands, so the list
    // is set in front of its surface again once the surface has moved (setting its proxy anew
    // does that).
    QWidget *previous = nullptr;
    for (QWidget *next : order) {
        while (next->focusProxy())
            next = next->focusProxy();
        if (previous)
            QWidget::setTabOrder(previous, next);
        previous = next;
    }
    for (QWidget *control : order)
        if (QWidget *proxy = control->focusProxy()) {
            control->setFocusProxy(nullptr);
            control->setFocusProxy(proxy);
        }
}

} // namespace pages

QByteArray ResourceBytes(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString PictureInLanguage(const QString &path)
{
    if (Language::current() == QLatin1String("en") || !path.endsWith(QLatin1String(".png")))
        return path;
    const QString local = path.left(path.size() - 4) + QLatin1Char('_') + Language::current() + QStringLiteral(".png");
    return QFile::exists(local) ? local : path;
}

QVariantMap CharacterProperties(const QByteArray &gif)
{
    return {{QStringLiteral("GIF"), gif}, {QStringLiteral("Stretch"), 3}, {QStringLiteral("DelayLoad"), 2}};
}

namespace pages {

void Explain(const QString &text, const QString &title, QWidget *owner, int formWidth, short shadow)
{
    zrt::MsgBoxArgs args;
    args.Text = text;
    args.Flags = 64;
    args.Title = title;
    args.BackColour = zrt::RGB(227, 207, 207);
    args.FormWidth = formWidth;
    args.Shadow = shadow;
    zrt::msg_Box(args, owner);
}

} // namespace pages
