#include "dialogs/msgFrm.h"

#include "common/RunTimeError.h"

#include <QFrame>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QScreen>
#include <QTimer>

#include <climits>

namespace zrt {

namespace {

constexpr int kCancelAnswer = 2;

msgFrm::ShownHook &ShownHookSlot()
{
    static msgFrm::ShownHook hook;
    return hook;
}

} // namespace

void msgFrm::setShownHook(ShownHook hook)
{
    ShownHookSlot() = std::move(hook);
}

msgFrm::msgFrm(QWidget *parent)
    : QDialog(parent, Qt::Dialog | Qt::FramelessWindowHint)
{
    setAttribute(Qt::WA_TranslucentBackground);
    setModal(true);
    const QScreen *screen = QGuiApplication::primaryScreen();
    const double dpiX = screen ? screen->logicalDotsPerInchX() : 96.0;
    const double dpiY = screen ? screen->logicalDotsPerInchY() : 96.0;
    m_TwipsPerPixelX = qMax(1, qRound(1440.0 / dpiX));
    m_TwipsPerPixelY = qMax(1, qRound(1440.0 / dpiY));

    for (auto &panel : m_F1) {
        panel = new QFrame(this);
        panel->hide();
    }
    BuildMessagePanel();
    BuildTimedPanel();
    BuildInputPanel();
    BuildLinkPanel();

    m_Timer1 = new QTimer(this);
    m_Timer1->setSingleShot(false); // it is switched off by hand when it fires
    connect(m_Timer1, &QTimer::timeout, this, &msgFrm::Timer1_Timer);

    resize(ToPixelsX(kDefaultWidthTwips), 200);
}

msgFrm::~msgFrm() = default;

// ---- twips and screens -------------------------------------------------------------------

int msgFrm::ToPixelsX(int twips) const
{
    return qRound(static_cast<double>(twips) / m_TwipsPerPixelX);
}

int msgFrm::ToPixelsY(int twips) const
{
    return qRound(static_cast<double>(twips) / m_TwipsPerPixelY);
}

QRect msgFrm::TwipsRect(int left, int top, int width, int height) const
{
    return QRect(ToPixelsX(left), ToPixelsY(top), ToPixelsX(width), ToPixelsY(height));
}

QRect msgFrm::ScreenAt(QPoint point) const
{
    const QScreen *screen = QGuiApplication::screenAt(point);
    if (!screen)
        screen = QGuiApplication::primaryScreen();
    return screen ? screen->geometry() : QRect(0, 0, 1024, 768);
}

// ---- showing and closing -----------------------------------------------------------------

void msgFrm::showEvent(QShowEvent *event)
{
    QDialog::showEvent(event);
    FocusDefault();
    if (ShownHookSlot()) {
        QTimer::singleShot(0, this, [this] {
            if (ShownHookSlot())
                ShownHookSlot()(*this);
        });
    }
}

void msgFrm::FocusDefault()
{
    DialogButton *button = nullptr;
    QWidget *focus = nullptr;
    switch (m_ShownPanel) {
    case MessagePanel:
        button = m_cmd1[m_DefaultButton - 1];
        if (!button->isVisibleTo(this))
            button = m_cmd1[0];
        focus = button;
        break;
    case TimedPanel:
        focus = button = m_command1;
        break;
    case InputPanel:
        button = m_iCmd[1];
        focus = m_iTxt;
        break;
    case LinkPanel:
        button = m_nCmd[0];
        focus = m_Text1[0];
        break;
    }
    button->setDefault(true);
    focus->setFocus(Qt::ActiveWindowFocusReason);
}

DialogButton *msgFrm::CancellingButton() const
{
    switch (m_ShownPanel) {
    case MessagePanel: {
        DialogButton *only = nullptr;
        int shown = 0;
        for (int i = 0; i < 3; ++i) {
            if (!m_cmd1[i]->isVisibleTo(this))
                continue;
            if (m_Tags[i] == kCancelAnswer)
                return m_cmd1[i];
            only = m_cmd1[i];
            ++shown;
        }
        return shown == 1 ? only : nullptr;
    }
    case TimedPanel:
        return m_command1;
    case InputPanel:
        return m_iCmd[0];
    case LinkPanel:
        return m_nCmd[1];
    }
    return nullptr;
}

void msgFrm::reject()
{
    if (DialogButton *button = CancellingButton())
        button->click();
}

// ---- controls by index -------------------------------------------------------------------

QFrame *msgFrm::F1(int index) const
{
    if (index < 0 || index > 3)
        zrt::raise(ErrInvalidPropertyIndex);
    return m_F1[index];
}

DialogButton *msgFrm::cmd1(int index) const
{
    if (index < 0 || index > 2)
        zrt::raise(ErrInvalidPropertyIndex);
    return m_cmd1[index];
}

DialogButton *msgFrm::iCmd(int index) const
{
    if (index < 0 || index > 1)
        zrt::raise(ErrInvalidPropertyIndex);
    return m_iCmd[index];
}

QLabel *msgFrm::Label2(int index) const
{
    if (index < 0 || index > 1)
        zrt::raise(ErrInvalidPropertyIndex);
    return m_Label2[index];
}

QLineEdit *msgFrm::Text1(int index) const
{
    if (index < 0 || index > 1)
        zrt::raise(ErrInvalidPropertyIndex);
    return m_Text1[index];
}

DialogButton *msgFrm::nCmd(int index) const
{
    if (index < 0 || index > 1)
        zrt::raise(ErrInvalidPropertyIndex);
    return m_nCmd[index];
}

} // namespace zrt
