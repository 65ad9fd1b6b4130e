#include "app/TestProbe.h"

#include "app/MainFrm.h"
#include "anim/ucGifPlayer.h"
#include "controls/Check.h"
#include "controls/DropPanel.h"
#include "controls/GlossButton.h"
#include "controls/RowList.h"
#include "controls/ShapedTabs.h"
#include "gfx/DeviceImage.h"
#include "toolbar/ThemedToolbar.h"

#include <QApplication>
#include <QFontMetricsF>
#include <QImage>
#include <QLabel>
#include <QPainter>
#include <QSocketNotifier>
#include <QTextDocument>
#include <QWidget>

#include <algorithm>
#include <cmath>
#include <cstdio>
#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

namespace {

// The probe answers in the X server's own pixels, which the test's input and captures use: at a
// scale factor above 1 a logical pixel of the window covers several of them. The window stands
// on one screen whose origin is the server's, so a global logical point only scales.
QPoint Native(const QWidget *w, QPoint global)
{
    const qreal ratio = w->devicePixelRatioF();
    return QPoint(qRound(global.x() * ratio), qRound(global.y() * ratio));
}

QString Rect(const QWidget *w, const QRect &local)
{
    const QPoint topLeft = Native(w, w->mapToGlobal(local.topLeft()));
    const QPoint end = Native(w, w->mapToGlobal(local.topLeft() + QPoint(local.width(), local.height())));
    return QStringLiteral("%1 %2 %3 %4").arg(topLeft.x()).arg(topLeft.y()).arg(end.x() - topLeft.x()).arg(end.y() - topLeft.y());
}

QString Rect(const QWidget *w) { return Rect(w, w->rect()); }

// What a control shows as text: a caption, a title, a label or the items of a list.
QString TextOf(const QWidget *w)
{
    if (auto *b = qobject_cast<const zrt::GlossButton *>(w))
        return b->Caption();
    if (auto *c = qobject_cast<const zrt::Check *>(w))
        return c->Caption() + QStringLiteral("=") + QString::number(c->Value());
    if (auto *d = qobject_cast<const zrt::DropPanel *>(w))
        return d->Title();
    if (auto *l = qobject_cast<const QLabel *>(w))
        return l->text();
    if (auto *r = qobject_cast<const zrt::RowList *>(w)) {
        QStringList items;
        for (int i = 0; i < r->ListCount(); ++i)
            items << r->ItemText(i);
        return items.join(QLatin1Char('|'));
    }
    return {};
}

// How far a line of text reaches when drawn at the ratio, in device pixels from its origin to its
// last inked column (or its advance, where that is further): the room a caption needs.
int InkReach(const QFont &font, const QString &text, qreal ratio)
{
    const QFontMetricsF metrics(font);
    const QSize logical(static_cast<int>(std::ceil(metrics.horizontalAdvance(text))) + 2 * static_cast<int>(metrics.height()),
                        static_cast<int>(std::ceil(metrics.height())) + 4);
    QImage image = zrt::DeviceImage(logical, ratio, QImage::Format_RGB32);
    image.fill(Qt::white);
    {
        QPainter painter(&image);
        painter.setFont(font);
        painter.setPen(Qt::black);
        painter.drawText(QRect(QPoint(0, 0), logical), Qt::AlignLeft | Qt::AlignTop | Qt::TextShowMnemonic, text);
    }
    int reach = static_cast<int>(std::ceil(QFontMetricsF(font, &image).horizontalAdvance(QString(text).remove(QLatin1Char('&'))) * ratio));
    for (int x = image.width() - 1; x >= reach; --x) {
        bool inked = false;
        for (int y = 0; y < image.height() && !inked; ++y)
            inked = image.pixel(x, y) != qRgb(255, 255, 255);
        if (inked) {
            reach = x + 1;
            break;
        }
    }
    return reach;
}

// Each shown, named caption of a button, check box or one-line label: what it needs and the room
// its control leaves it, both in device pixels.
QString Captions(const QWidget *window)
{
    QStringList out;
    for (const QWidget *w : window->findChildren<QWidget *>()) {
        if (!w->isVisible() || w->objectName().isEmpty())
            continue;
        const qreal ratio = w->devicePixelRatioF();
        QString text;
        int room = 0;
        if (auto *b = qobject_cast<const zrt::GlossButton *>(w)) {
            text = b->Caption();
            room = w->width() - 4; // the face's border on both sides
        } else if (auto *c = qobject_cast<const zrt::Check *>(w)) {
            text = c->Caption();
            room = w->width() - zrt::Check::BoxSize - 4;
        } else if (auto *l = qobject_cast<const QLabel *>(w)) {
            const bool rich = l->textFormat() == Qt::RichText ||
                              (l->textFormat() == Qt::AutoText && Qt::mightBeRichText(l->text()));
            if (l->wordWrap() || rich || !l->pixmap().isNull())
                continue;
            text = l->text();
            room = l->contentsRect().width() - 2 * std::max(0, l->indent()) - 2 * l->margin();
        } else {
            continue;
        }
        if (text.isEmpty() || text.contains(QLatin1Char('\n')))
            continue;
        out << QStringLiteral("%1:%2:%3").arg(w->objectName()).arg(InkReach(w->font(), text, ratio)).arg(qRound(room * ratio));
    }
    return out.join(QLatin1Char(';'));
}

QString Line(QString s) { return s.replace(QLatin1Char('\n'), QLatin1String("\\n")); }

} // namespace

TestProbe::TestProbe(MainFrm *window) : QObject(window), m_window(window)
{
#ifdef Q_OS_UNIX
    m_notifier = new QSocketNotifier(STDIN_FILENO, QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, &TestProbe::readInput);
#endif
}

bool TestProbe::requested() { return qEnvironmentVariable("ZRT_PROBE") == QLatin1String("1"); }

void TestProbe::readInput()
{
#ifdef Q_OS_UNIX
    char buffer[4096];
    const ssize_t n = ::read(STDIN_FILENO, buffer, sizeof buffer);
    if (n <= 0) {
        m_notifier->setEnabled(false);
        return;
    }
    m_pending.append(buffer, static_cast<int>(n));
    qsizetype end;
    while ((end = m_pending.indexOf('\n')) >= 0) {
        const QString line = QString::fromUtf8(m_pending.left(end)).trimmed();
        m_pending.remove(0, end + 1);
        const QByteArray reply = ("probe: " + answer(line) + "\n").toUtf8();
        std::fwrite(reply.constData(), 1, static_cast<size_t>(reply.size()), stdout);
        std::fflush(stdout);
    }
#endif
}

QString TestProbe::answer(const QString &line)
{
    const QStringList words = line.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    if (words.isEmpty())
        return QStringLiteral("error empty");
    const QString &verb = words[0];
    if (verb == QLatin1String("ping"))
        return QStringLiteral("ok");
    if (verb == QLatin1String("fire") && words.size() == 2)
        return m_window->timers().fire(words[1].toInt()) ? QStringLiteral("ok") : QStringLiteral("error not armed");
    if (verb == QLatin1String("armed") && words.size() == 2)
        return m_window->timers().isArmed(words[1].toInt()) ? QStringLiteral("ok 1") : QStringLiteral("ok 0");
    if (verb == QLatin1String("rnd")) {
        for (qsizetype i = 1; i < words.size(); ++i)
            m_window->chance().script({words[i].toFloat()});
        return QStringLiteral("ok");
    }
    if (verb == QLatin1String("button") && words.size() == 2) {
        // A toolbar button by its key, in screen coordinates.
        zrt::ThemedToolbar *bar = m_window->ThemedToolbar1;
        for (int i = 1; i <= bar->ButtonCount(); ++i) {
            if (bar->BtnKey(i) != words[1])
                continue;
            return QStringLiteral("ok %1 %2 %3")
                .arg(Rect(bar, bar->BtnDisplayRect(i)))
                .arg(bar->BtnEnabled(i) ? 1 : 0).arg(bar->BtnValue(i) ? 1 : 0);
        }
        return QStringLiteral("error no button");
    }
    if (verb == QLatin1String("tab") && words.size() == 3) {
        // The middle of a tab of a tab strip, in screen coordinates.
        auto *tabs = m_window->findChild<zrt::ShapedTabs *>(words[1]);
        if (!tabs)
            return QStringLiteral("error no tabs");
        const int i = words[2].toInt();
        const QPoint at = Native(tabs, tabs->mapToGlobal(QPoint(tabs->TabLeft(i) + tabs->TabWidth(i) / 2, 10)));
        return QStringLiteral("ok %1 %2").arg(at.x()).arg(at.y());
    }
    if (verb == QLatin1String("winid"))
        return QStringLiteral("ok ") + QString::number(m_window->winId());
    if (verb == QLatin1String("modal")) {
        QWidget *modal = QApplication::activeModalWidget();
        if (!modal)
            modal = QApplication::activePopupWidget();
        return modal ? QStringLiteral("ok ") + Rect(modal) + QStringLiteral(" ") + Line(modal->windowTitle())
                     : QStringLiteral("ok none");
    }
    if (verb == QLatin1String("focus")) {
        // The named control that has the keyboard focus (or holds the focused part, as a list
        // holds its inner surface, which is named too).
        QWidget *focused = QApplication::focusWidget();
        while (focused && focused->parentWidget() && focused->parentWidget()->focusProxy() == focused)
            focused = focused->parentWidget();
        for (QWidget *w = focused; w; w = w->parentWidget())
            if (!w->objectName().isEmpty())
                return QStringLiteral("ok ") + w->objectName();
        return QStringLiteral("ok none");
    }
    if (verb == QLatin1String("captions"))
        return QStringLiteral("ok ") + Captions(m_window);
    if (verb == QLatin1String("state")) {
        return QStringLiteral("ok attempts=%1 saved=%2 walker=%3")
            .arg(m_window->P3->run.attemptCount())
            .arg(m_window->P2->DataSaved ? 1 : 0)
            .arg(m_window->P5->WalkerBusy ? 1 : 0);
    }
    if (words.size() != 2)
        return QStringLiteral("error usage");
    QWidget *w = m_window->findChild<QWidget *>(words[1]);
    if (!w && m_window->objectName() == words[1])
        w = m_window;
    if (!w)
        return QStringLiteral("error no control ") + words[1];
    if (verb == QLatin1String("geom"))
        return QStringLiteral("ok ") + Rect(w) + QStringLiteral(" %1 %2").arg(w->isVisible() ? 1 : 0).arg(w->isEnabled() ? 1 : 0);
    if (verb == QLatin1String("text"))
        return QStringLiteral("ok ") + Line(TextOf(w));
    if (verb == QLatin1String("kids")) {
        // The shown, named controls directly on a container, with their places.
        QStringList kids;
        for (QObject *child : w->children()) {
            auto *widget = qobject_cast<QWidget *>(child);
            if (widget && widget->isVisible() && !widget->objectName().isEmpty())
                kids << widget->objectName() + QStringLiteral(":") + Rect(widget).replace(QLatin1Char(' '), QLatin1Char(','));
        }
        return QStringLiteral("ok ") + kids.join(QLatin1Char(';'));
    }
    if (verb == QLatin1String("risen")) {
        // Whether a character has risen for a press, or the audio target's cue sounds.
        if (w == m_window->P5->ucgif)
            return QStringLiteral("ok %1").arg(m_window->P5->cueSounding() ? 1 : 0);
        const auto &row = m_window->P3->ucGifPlayer1;
        const auto found = std::find(row.begin(), row.end(), w);
        if (found == row.end())
            return QStringLiteral("error not a character");
        const int index = static_cast<int>(found - row.begin());
        return QStringLiteral("ok %1").arg(m_window->P3->characterState(index) == RecordPage::CharacterState::Risen ? 1 : 0);
    }
    if (verb == QLatin1String("top")) {
        auto *list = qobject_cast<zrt::RowList *>(w);
        return list ? QStringLiteral("ok %1").arg(list->TopIndex()) : QStringLiteral("error not a list");
    }
    if (verb == QLatin1String("frame")) {
        auto *player = qobject_cast<zrt::ucGifPlayer *>(w);
        return player ? QStringLiteral("ok %1 %2").arg(player->CurrentFrame()).arg(player->Action())
                      : QStringLiteral("error not a player");
    }
    return QStringLiteral("error unknown ") + verb;
}
