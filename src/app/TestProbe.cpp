#include "app/TestProbe.h"

#include "app/MainFrm.h"
#include "anim/ucGifPlayer.h"
#include "controls/Check.h"
#include "controls/DropPanel.h"
#include "controls/GlossButton.h"
#include "controls/RowList.h"
#include "controls/ShapedTabs.h"
#include "toolbar/ThemedToolbar.h"

#include <QApplication>
#include <QLabel>
#include <QSocketNotifier>
#include <QWidget>

#include <algorithm>
#include <cstdio>
#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

namespace {

QString Rect(const QWidget *w)
{
    const QPoint at = w->mapToGlobal(QPoint(0, 0));
    return QStringLiteral("%1 %2 %3 %4").arg(at.x()).arg(at.y()).arg(w->width()).arg(w->height());
}

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
            const QRect r = bar->BtnDisplayRect(i);
            const QPoint at = bar->mapToGlobal(r.topLeft());
            return QStringLiteral("ok %1 %2 %3 %4 %5 %6")
                .arg(at.x()).arg(at.y()).arg(r.width()).arg(r.height())
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
        const QPoint at = tabs->mapToGlobal(QPoint(tabs->TabLeft(i) + tabs->TabWidth(i) / 2, 10));
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
        // The named control that has the keyboard focus (or holds the focused part).
        for (QWidget *w = QApplication::focusWidget(); w; w = w->parentWidget())
            if (!w->objectName().isEmpty())
                return QStringLiteral("ok ") + w->objectName();
        return QStringLiteral("ok none");
    }
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
