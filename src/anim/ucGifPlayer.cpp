#include "ucGifPlayer.h"
#include "gfx/EventCodes.h"

#include "anim/GifEncoder.h"
#include "common/NumberText.h"

#include <QFile>
#include <QFileInfo>
#include <QMouseEvent>
#include <QPainter>

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

// ---- painting -----------------------------------------------------------------------------

void ucGifPlayer::paintEvent(QPaintEvent *)
{
    if (m_CurrentFrame < 1 || m_strip.IsNull())
        return;
    QPainter painter(this);
    DrawFrame(painter, m_CurrentFrame);
}

QRect ucGifPlayer::Scaled(int left, int top, int width, int height) const
{
    return QRect(CLng(double(m_ScaleRatioX) * left), CLng(double(m_ScaleRatioY) * top),
                 CLng(double(m_ScaleRatioX) * width), CLng(double(m_ScaleRatioY) * height));
}

void ucGifPlayer::DrawFrame(QPainter &painter, int frameNo)
{
    const bool stretched = m_ScaleRatioX != 1.0f || m_ScaleRatioY != 1.0f;
    if (!m_composer.IsNull()) {
        DrawComposedFrame(painter, frameNo, stretched);
        return;
    }
    const GifFrame &f = m_gif.Frame(frameNo);
    BlitFrame(painter, frameNo, Scaled(f.Left, f.Top, f.Width, f.Height), stretched);
}

namespace {

// The picture as a painter with the same hint would draw it at target, on a see-through
// ground at target's size; drawn at target's corner it gives the same pixels.
QImage ScaledPicture(const QImage &picture, const QSize &size, bool smooth)
{
    if (size == picture.size())
        return picture.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    QImage kept(size, QImage::Format_ARGB32_Premultiplied);
    kept.fill(Qt::transparent);
    QPainter painter(&kept);
    painter.setRenderHint(QPainter::SmoothPixmapTransform, smooth);
    painter.drawImage(QRect(QPoint(0, 0), size), picture);
    return kept;
}

} // namespace

// Brings the canvas to frame frameNo: each frame after the one composed last is laid over the
// canvas in turn, after the disposal of the frame before it; going back starts again from frame
// 1 on a blank canvas. 0 only does the pending disposal. A frame already composed stays as it is,
// so a repaint shows the same picture, and a frame that was stepped over unpainted still leaves
// what the file says it leaves.
void ucGifPlayer::ComposeUpTo(int frameNo)
{
    if (m_composer.IsNull() || frameNo == m_composedFrame)
        return;
    auto disposePending = [this] {
        if (m_composedFrame >= 1 && m_composedFrame <= m_gif.FrameCount()) {
            const int disposal = m_gif.Frame(m_composedFrame).Disposal;
            if (disposal == 2 || disposal == 3)
                m_composer.ComposeAfter(m_gif, m_composedFrame);
        }
    };
    m_keptCanvas = QImage();
    if (frameNo < 1) {
        disposePending();
        m_composedFrame = 0;
        return;
    }
    int next = m_composedFrame + 1;
    if (m_composedFrame < 1 || frameNo < m_composedFrame)
        next = 1; // frame 1 starts from a blank canvas
    for (int n = next; n <= frameNo; ++n) {
        if (n > 1)
            disposePending();
        m_composer.ComposeBefore(m_gif, n);
        m_composer.DrawFrame(m_gif, m_strip, n);
        m_composedFrame = n;
    }
}

void ucGifPlayer::DrawComposedFrame(QPainter &painter, int frameNo, bool stretched)
{
    ComposeUpTo(frameNo);
    const QRect target = Scaled(0, 0, ActualWidth(), ActualHeight());
    if (target.width() >= 1 && target.height() >= 1) {
        // Without disposals to the background there is no mask: the canvas shows opaque.
        if (!m_plan.NeedMask)
            painter.fillRect(target, Qt::black);
        if (m_keptCanvas.size() != target.size() || m_keptCanvasSmooth != stretched) {
            m_keptCanvas = ScaledPicture(m_composer.Canvas(), target.size(), stretched);
            m_keptCanvasSmooth = stretched;
        }
        painter.drawImage(target.topLeft(), m_keptCanvas);
    }
    m_loadedRow = -1;
}

// An opaque frame that shares its colour row with the frame drawn before keeps the table the
// strip already holds, including the black left at a transparent frame's index. Each frame is
// converted and scaled once for each such table and kept.
void ucGifPlayer::BlitFrame(QPainter &painter, int frameNo, const QRect &target, bool stretched)
{
    if (target.width() < 1 || target.height() < 1)
        return;
    const GifFrame &f = m_gif.Frame(frameNo);
    int variant;
    if (f.TransparentFlag == 1) {
        m_loadedRow = f.PaletteIndex;
        m_loadedBlack = f.TransparentIndex;
        variant = -2;
    } else {
        if (m_loadedRow != f.PaletteIndex) {
            m_loadedRow = f.PaletteIndex;
            m_loadedBlack = -1;
        }
        variant = m_loadedBlack;
    }
    if (m_keptFrames.size() < size_t(m_gif.FrameCount()) + 1)
        m_keptFrames.resize(size_t(m_gif.FrameCount()) + 1);
    std::vector<KeptPicture> &kept = m_keptFrames[size_t(frameNo)];
    auto it = std::find_if(kept.begin(), kept.end(), [&](const KeptPicture &k) { return k.variant == variant; });
    if (it == kept.end()) {
        kept.push_back(KeptPicture{variant, {}, false, {}});
        it = kept.end() - 1;
    }
    if (it->image.isNull() || it->size != target.size() || it->smooth != stretched) {
        const GifPaletteRow &row = m_gif.GifPalettes.at(f.PaletteIndex);
        QImage picture = m_strip.Image().copy(f.StripOffset, 0, f.Width, f.Height);
        QList<QRgb> table = GifColourTable(row, variant == -2 ? f.TransparentIndex : -1);
        if (variant >= 0)
            table[variant] = 0xFF000000u;
        picture.setColorTable(table);
        it->image = ScaledPicture(picture, target.size(), stretched);
        it->size = target.size();
        it->smooth = stretched;
    }
    painter.drawImage(target.topLeft(), it->image);
}

} // namespace zrt
