#include "ucGifPlayer.h"

#include "anim/GifEncoder.h"
#include "common/NumberText.h"
#include "gfx/EventCodes.h"

#include <QFile>
#include <QFileInfo>
#include <QMouseEvent>

#include <algorithm>

namespace zrt {

namespace {

constexpr int kBuildDelayMs = 20;

constexpr int kMirrorDoneMark = 0x20; // frame 1 already mirrored during a delayed build

} // namespace

ucGifPlayer::ucGifPlayer(QWidget *parent) : QWidget(parent)
{
    m_frameTimer.setSingleShot(true);
    m_buildTimer.setSingleShot(true);
    connect(&m_frameTimer, &QTimer::timeout, this, &ucGifPlayer::OnFrameTimer);
    connect(&m_buildTimer, &QTimer::timeout, this, &ucGifPlayer::OnBuildTimer);
}

ucGifPlayer::~ucGifPlayer()
{
    ResetGif();
}

void ucGifPlayer::InitProperties()
{
    m_MinFrameDelay = 50;
}

// ---- loading ------------------------------------------------------------------------------

bool ucGifPlayer::LoadAnimatedGIF_Array(const QByteArray &bytes)
{
    const bool loaded = LoadGif(bytes);
    if (loaded)
        ResizeAfterLoad();
    return loaded;
}

bool ucGifPlayer::LoadAnimatedGIF_File(const QString &path)
{
    // Only an ordinary file is opened: a pipe would wait for a writer, a device never end.
    const QFileInfo info(path);
    QByteArray bytes;
    QFile file(path);
    if (info.isFile() && info.size() <= GifFrameStrip::kMaxBytes && file.open(QIODevice::ReadOnly))
        bytes = file.read(info.size());
    const bool loaded = LoadAnimatedGIF_Array(bytes);
    if (!loaded && bytes.isEmpty())
        m_LoadError = QStringLiteral("The file %1 can't be read as a picture.").arg(path);
    return loaded;
}

void ucGifPlayer::setAnimatedGIF(const QByteArray &bytes)
{
    LoadGif(bytes);
    repaint();
    ReportChange("AnimatedGIF");
}

QImage ucGifPlayer::AnimatedGIF() const
{
    if (m_CurrentFrame < 1 || m_strip.IsNull())
        return {};
    const QByteArray picture = FrameToGif(m_gif, m_strip.Image(), m_CurrentFrame);
    GifImage single;
    if (ParseGif(picture, single) != 1)
        return {};
    GifFrameStrip strip;
    if (!strip.Create(single, PlanGifBuild(single)))
        return {};
    strip.RenderFrame(picture, single, 1);
    return strip.FramePicture(single, 1).convertToFormat(QImage::Format_ARGB32);
}

bool ucGifPlayer::LoadGif(const QByteArray &bytes)
{
    ResetGif();
    m_gif = GifImage{};
    m_ScaleRatioX = m_ScaleRatioY = 0.0f;
    m_LoopsDone = 0;
    m_GifBytes = bytes;
    m_LoadError.clear();
    int frames = 0;
    if (!m_GifBytes.isEmpty()) {
        frames = ParseGif(m_GifBytes, m_gif);
        if (frames > 0) {
            bool firstPass = true;
            if (!BuildFrames(firstPass)) {
                frames = 0;
                m_LoadError = m_strip.RefusalReason();
            } else if (frames == 1) {
                repaint();
            }
        } else {
            m_LoadError = QStringLiteral("The data are no GIF picture with frames the program can read.");
        }
    }
    if (frames == 0) {
        m_GifBytes.clear();
        ResetGif();
        m_gif = GifImage{};
    }
    return frames > 0;
}

void ucGifPlayer::ResetGif()
{
    m_frameTimer.stop();
    m_buildTimer.stop();
    m_strip.Release();
    m_composer.Release();
    m_plan = GifBuildPlan{};
    m_gif.Frames.clear();
    m_gif.Blocks.clear();
    m_gif.GifPalettes.clear();
    m_ActionState = 0;
    m_CurrentFrame = 0;
    m_loadedRow = -1;
    m_loadedBlack = -1;
    m_Mirrored &= 3;
    ForgetKeptPictures();
    m_composedFrame = 0;
}

void ucGifPlayer::ForgetKeptPictures()
{
    m_keptFrames.clear();
    m_keptCanvas = QImage();
}

bool ucGifPlayer::BuildFrames(bool &firstPass)
{
    if (!firstPass) {
        RunSecondPass();
        return true;
    }
    m_plan = PlanGifBuild(m_gif);
    if (!m_strip.Create(m_gif, m_plan))
        return false;
    if (m_plan.UseCanvas)
        m_composer.Create(m_gif.ActualWidth, m_gif.ActualHeight);
    m_loadedRow = -1;
    m_strip.RenderFrame(m_GifBytes, m_gif, 1);
    m_CurrentFrame = 1;

    int w = width();
    int h = height();
    ComputeScale(m_Stretch, w, h);
    if (m_DelayAnimation == 0) {
        firstPass = false;
        RunSecondPass();
    } else {
        MirrorFrames(0, true, false);
        m_Mirrored |= kMirrorDoneMark;
        SetAnimationTimer(2);
    }
    return true;
}

void ucGifPlayer::RunSecondPass()
{
    for (int n = 2; n <= m_gif.FrameCount(); ++n)
        m_strip.RenderFrame(m_GifBytes, m_gif, n);
    m_loadedRow = -1;
    ForgetKeptPictures();
    m_gif.Blocks.clear();
    MirrorFrames(0, false, false);
    m_GifBytes.clear();
    if (!(m_DelayAnimation & 2))
        SetAnimationTimer(1);
}

// ---- timers -------------------------------------------------------------------------------

bool ucGifPlayer::SetAnimationTimer(int mode)
{
    if (mode == 0) {
        m_frameTimer.stop();
        m_buildTimer.stop();
        m_ActionState = 0;
        return false;
    }
    if (m_ActionState == 1)
        return m_frameTimer.isActive() || m_buildTimer.isActive();
    m_ActionState = 0;
    if (m_CurrentFrame < 1)
        return false;
    if (mode == 1 && m_gif.FrameCount() < 2)
        return false;
    if (mode == 2) {
        m_buildTimer.start(kBuildDelayMs);
    } else {
        const int delay = m_gif.Frame(m_CurrentFrame).DelayMs;
        m_frameTimer.start(delay >= m_MinFrameDelay ? delay : m_MinFrameDelay);
    }
    m_ActionState = 1;
    return true;
}

void ucGifPlayer::FireFrameTimer()
{
    if (m_frameTimer.isActive())
        OnFrameTimer();
}

void ucGifPlayer::FireBuildTimer()
{
    if (m_buildTimer.isActive())
        OnBuildTimer();
}

void ucGifPlayer::OnBuildTimer()
{
    SetAnimationTimer(0);
    bool firstPass = false;
    BuildFrames(firstPass);
}

void ucGifPlayer::OnFrameTimer()
{
    m_frameTimer.stop();
    if (m_CurrentFrame < 1)
        return;
    bool wrapped = false;
    if (++m_CurrentFrame > m_gif.FrameCount()) {
        m_CurrentFrame = 1;
        wrapped = true;
    }
    bool ended = false;
    if (wrapped && m_gif.Loops != 0) {
        ++m_LoopsDone;
        if (m_LoopsDone == m_gif.Loops) {
            m_LoopsDone = 0;
            m_ActionState = 0;
            ended = true;
        }
    }
    repaint();
    if (ended) {
        Q_EMIT LoopsEnded();
        return;
    }
    const int delay = m_gif.Frame(m_CurrentFrame).DelayMs;
    m_frameTimer.start(delay >= m_MinFrameDelay ? delay : m_MinFrameDelay);
}

// ---- mirroring and scale ------------------------------------------------------------------

void ucGifPlayer::MirrorFrames(int newValue, bool firstFrameOnly, bool includeCanvas)
{
    int first = 1;
    if (m_Mirrored & kMirrorDoneMark) {
        m_Mirrored &= ~kMirrorDoneMark;
        first = 2;
    }
    const int difference = (newValue ^ m_Mirrored) & 3;
    if (difference == 0)
        return;
    const int last = firstFrameOnly ? 1 : m_gif.FrameCount();
    // A pending disposal is done on the canvas as it stands, before it turns.
    if (includeCanvas)
        ComposeUpTo(0);
    m_strip.MirrorFrames(m_gif, difference, first, last);
    if (includeCanvas)
        m_composer.Mirror(difference & 1, difference & 2);
    ForgetKeptPictures();
}

void ucGifPlayer::ComputeScale(int mode, int &width, int &height)
{
    const int aw = ActualWidth();
    const int ah = ActualHeight();
    if (aw <= 0 || ah <= 0)
        return;
    const float rx = float(width) / float(aw);
    const float ry = float(height) / float(ah);
    auto proportional = [&](float ratio) {
        m_ScaleRatioX = m_ScaleRatioY = ratio;
        width = CLng(double(ratio) * aw);
        height = CLng(double(ratio) * ah);
    };
    switch (mode) {
    case 0:
        m_ScaleRatioX = m_ScaleRatioY = 1.0f;
        width = std::min(width, aw);
        height = std::min(height, ah);
        break;
    case 1:
        proportional(std::min(rx, ry));
        break;
    case 2:
        m_ScaleRatioX = rx;
        m_ScaleRatioY = ry;
        break;
    case 3:
        proportional(rx > 1.0f && ry > 1.0f ? 1.0f : std::min(rx, ry));
        break;
    default:
        m_ScaleRatioX = m_ScaleRatioY = 1.0f;
        width = aw;
        height = ah;
        break;
    }
}

void ucGifPlayer::ResizeToGif()
{
    if (m_CurrentFrame < 1 || m_gif.ActualHeight <= 0)
        return;
    int w = width();
    int h = height();
    ComputeScale(m_Stretch, w, h);
    // The height is held negated while the size is set: a resize that finds it so returns.
    m_gif.ActualHeight = -m_gif.ActualHeight;
    resize(w, h);
    m_gif.ActualHeight = -m_gif.ActualHeight;
}

void ucGifPlayer::ResizeAfterLoad()
{
    if (m_Stretch == 1 || m_Stretch == 3 || m_Stretch == 4)
        ResizeToGif();
}

// ---- events -------------------------------------------------------------------------------

void ucGifPlayer::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    if (m_gif.ActualHeight < 0)
        return;
    ResizeToGif();
}

void ucGifPlayer::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    SetAnimationTimer(1);
}

void ucGifPlayer::hideEvent(QHideEvent *event)
{
    QWidget::hideEvent(event);
    setAction(2);
}

void ucGifPlayer::EmitMouse(QMouseEvent *event, void (ucGifPlayer::*signal)(short, short, float, float),
                            short button)
{
    const QPointF at = event->position();
    (this->*signal)(button, ShiftCode(event->modifiers()), float(std::floor(at.x())),
                    float(std::floor(at.y())));
}

void ucGifPlayer::mousePressEvent(QMouseEvent *event)
{
    EmitMouse(event, &ucGifPlayer::MouseDown, ButtonCode(event->button()));
}

void ucGifPlayer::mouseReleaseEvent(QMouseEvent *event)
{
    EmitMouse(event, &ucGifPlayer::MouseUp, ButtonCode(event->button()));
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()))
        Q_EMIT Click();
}

void ucGifPlayer::mouseMoveEvent(QMouseEvent *event)
{
    EmitMouse(event, &ucGifPlayer::MouseMove, ButtonsCode(event->buttons()));
}

} // namespace zrt
