// ucGifPlayer: its properties, the pointer and their persistence.
#include "ucGifPlayer.h"

#include <algorithm>

namespace zrt {

// ---- properties ---------------------------------------------------------------------------

void ucGifPlayer::setAction(int value)
{
    if (m_CurrentFrame < 1 || value < 0 || value > 4)
        return;
    switch (value) {
    case 0:
        SetAnimationTimer(0);
        m_LoopsDone = 0;
        m_CurrentFrame = 1;
        repaint();
        break;
    case 1:
        SetAnimationTimer(1);
        break;
    case 2:
        if (m_ActionState != 0) {
            SetAnimationTimer(0);
            m_ActionState = 2;
        }
        break;
    case 3:
        SetAnimationTimer(0);
        if (++m_CurrentFrame > m_gif.FrameCount())
            m_CurrentFrame = 1;
        m_ActionState = 2;
        repaint();
        break;
    case 4:
        SetAnimationTimer(0);
        m_LoopsDone = 0;
        m_CurrentFrame = 1;
        repaint();
        SetAnimationTimer(1);
        break;
    }
}

void ucGifPlayer::setStretch(int value)
{
    if (value < 0 || value > 4)
        return;
    const bool changed = value != m_Stretch;
    m_Stretch = value;
    if (m_CurrentFrame >= 1) {
        const int remembered = m_ActionState;
        setAction(2);
        ResizeToGif();
        setAction(remembered);
        if (remembered != 1)
            repaint();
    }
    if (changed)
        ReportChange("Stretch");
}

void ucGifPlayer::setMinFrameDelay(int value)
{
    const short clamped = static_cast<short>(std::clamp(value, 10, 32700));
    if (clamped != m_MinFrameDelay) {
        m_MinFrameDelay = clamped;
        ReportChange("MinFrameDelay");
    }
}

void ucGifPlayer::setLoops(int value)
{
    const int loops = value < 0 ? -value : value;
    if (loops != m_gif.Loops) {
        m_gif.Loops = loops;
        ReportChange("Loops");
    }
}

int ucGifPlayer::LoopsRemaining() const
{
    if (m_CurrentFrame < 1)
        return -1;
    if (m_gif.Loops == 0)
        return 0;
    return m_gif.Loops - m_LoopsDone;
}

void ucGifPlayer::setMirrored(int value)
{
    if (value < 0 || value > 3)
        return;
    if (m_CurrentFrame < 1) {
        if (value != m_Mirrored) {
            m_Mirrored = value;
            ReportChange("Mirrored");
        }
        return;
    }
    if (value == (m_Mirrored & 3))
        return;
    const int remembered = m_ActionState;
    setAction(2);
    MirrorFrames(value, false, true);
    m_Mirrored = value;
    ReportChange("Mirrored");
    if (remembered == 1)
        setAction(1);
    else
        repaint();
}

void ucGifPlayer::setDelayAnimation(int value)
{
    if (value < 0 || value > 3 || value == m_DelayAnimation)
        return;
    m_DelayAnimation = value;
    ReportChange("DelayAnimation");
}

void ucGifPlayer::setEnabledState(bool value)
{
    if (value == isEnabled())
        return;
    setEnabled(value);
    ReportChange("Enabled");
}

void ucGifPlayer::setMouseIcon(const QPixmap &icon)
{
    m_MouseIcon = icon;
    if (icon.isNull())
        m_MousePointer = 0;
    ApplyPointer();
    ReportChange("MouseIcon");
}

void ucGifPlayer::setMousePointer(int value)
{
    m_MousePointer = static_cast<short>(value);
    ApplyPointer();
    ReportChange("MousePointer");
}

void ucGifPlayer::ApplyPointer()
{
    switch (m_MousePointer) {
    case 1: setCursor(Qt::ArrowCursor); break;
    case 2: setCursor(Qt::CrossCursor); break;
    case 3: setCursor(Qt::IBeamCursor); break;
    case 11: setCursor(Qt::WaitCursor); break;
    case 99:
        if (!m_MouseIcon.isNull())
            setCursor(QCursor(m_MouseIcon));
        else
            unsetCursor();
        break;
    default: unsetCursor(); break;
    }
}

void ucGifPlayer::WriteProperties(QVariantMap &store) const
{
    if (!m_GifBytes.isEmpty())
        store.insert(QStringLiteral("GIF"), m_GifBytes);
    if (m_MinFrameDelay != 50)
        store.insert(QStringLiteral("Delay"), int(m_MinFrameDelay));
    if (m_Stretch != 1)
        store.insert(QStringLiteral("Stretch"), m_Stretch);
    if (m_gif.Loops != 0)
        store.insert(QStringLiteral("Loops"), m_gif.Loops);
    if (m_DelayAnimation != 1)
        store.insert(QStringLiteral("DelayLoad"), m_DelayAnimation);
    if ((m_Mirrored & 3) != 0)
        store.insert(QStringLiteral("Mirror"), m_Mirrored & 3);
    if (!isEnabled())
        store.insert(QStringLiteral("Enabled"), false);
    if (!m_MouseIcon.isNull())
        store.insert(QStringLiteral("MouseIcon"), m_MouseIcon);
    if (m_MousePointer != 0)
        store.insert(QStringLiteral("MousePointer"), int(m_MousePointer));
}

void ucGifPlayer::ReadProperties(const QVariantMap &store)
{
    const QByteArray bytes = store.value(QStringLiteral("GIF")).toByteArray();
    m_MinFrameDelay = static_cast<short>(store.value(QStringLiteral("Delay"), int(m_MinFrameDelay)).toInt());
    const int stretch = store.value(QStringLiteral("Stretch"), 1).toInt();
    m_Stretch = stretch >= 0 && stretch <= 4 ? stretch : 1;
    const int delayLoad = store.value(QStringLiteral("DelayLoad"), 1).toInt();
    m_DelayAnimation = delayLoad >= 0 && delayLoad <= 3 ? delayLoad : 1;
    const int mirror = store.value(QStringLiteral("Mirror"), 0).toInt();
    m_Mirrored = mirror >= 0 && mirror <= 3 ? mirror : 0;
    setEnabled(store.value(QStringLiteral("Enabled"), true).toBool());
    m_MouseIcon = store.value(QStringLiteral("MouseIcon")).value<QPixmap>();
    m_MousePointer = static_cast<short>(store.value(QStringLiteral("MousePointer"), 0).toInt());
    ApplyPointer();
    if (LoadGif(bytes) && store.contains(QStringLiteral("Loops")))
        m_gif.Loops = std::abs(store.value(QStringLiteral("Loops")).toInt());
}

} // namespace zrt
