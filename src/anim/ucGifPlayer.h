#pragma once
// A control that plays an animated GIF in its container: frames are built into one 8-bit
// strip (the first at once, the rest on a short build timer), played with a one-shot frame
// timer of its own, composed on a canvas where the file's disposals need one, and can be
// mirrored or driven frame by frame through Action. Its whole rectangle takes the mouse,
// see-through parts included.

#include "anim/GifComposer.h"
#include "anim/GifFrameStrip.h"
#include "anim/GifParser.h"

#include <QByteArray>
#include <QPixmap>
#include <QString>
#include <QTimer>
#include <QVariantMap>
#include <QWidget>

#include <vector>

namespace zrt {

class ucGifPlayer : public QWidget {
    Q_OBJECT

public:
    explicit ucGifPlayer(QWidget *parent = nullptr);
    ~ucGifPlayer() override;

    // Defaults of a control newly placed on a form (as opposed to one read from storage).
    void InitProperties();

    // Loading. True when frames were loaded; a failed load leaves the control empty.
    bool LoadAnimatedGIF_Array(const QByteArray &bytes);
    bool LoadAnimatedGIF_File(const QString &path);
    // Why the last load of data gave no frames (too large, not a GIF); empty after a success.
    const QString &LoadError() const { return m_LoadError; }

    // The current frame as a stand-alone picture, made by re-encoding it; null when empty.
    QImage AnimatedGIF() const;
    // Loads the bytes of a GIF file; empty bytes unload.
    void setAnimatedGIF(const QByteArray &bytes);

    int FrameCount() const { return m_gif.FrameCount(); }
    void setFrameCount(int) {} // accepted and ignored: clients write it
    int ActualWidth() const { return std::abs(m_gif.ActualWidth); }
    int ActualHeight() const { return std::abs(m_gif.ActualHeight); }

    int Stretch() const { return m_Stretch; }
    void setStretch(int value);
    short MinFrameDelay() const { return m_MinFrameDelay; }
    void setMinFrameDelay(int value);
    int Loops() const { return m_gif.Loops; }
    void setLoops(int value);
    short LoopsDone() const { return m_LoopsDone; }
    int LoopsRemaining() const;
    int Mirrored() const { return m_Mirrored & 3; }
    void setMirrored(int value);
    int Action() const { return m_ActionState; }
    void setAction(int value);
    int DelayAnimation() const { return m_DelayAnimation; }
    void setDelayAnimation(int value);
    bool Enabled() const { return isEnabled(); }
    void setEnabledState(bool value);
    QPixmap MouseIcon() const { return m_MouseIcon; }
    void setMouseIcon(const QPixmap &icon);
    short MousePointer() const { return m_MousePointer; }
    void setMousePointer(int value);
    QString Tag() const { return m_Tag; }
    void setTag(const QString &tag) { m_Tag = tag; }

    int CurrentFrame() const { return m_CurrentFrame; }
    float ScaleRatioX() const { return m_ScaleRatioX; }
    float ScaleRatioY() const { return m_ScaleRatioY; }
    const GifImage &Gif() const { return m_gif; }
    const GifFrameStrip &Strip() const { return m_strip; }
    bool HasCanvas() const { return !m_composer.IsNull(); }

    void Refresh() { repaint(); }

    // The property store: keys "GIF", "Delay", "Stretch", "Loops", "DelayLoad", "Mirror",
    // "Enabled", "MouseIcon", "MousePointer"; defaults are left out when writing.
    void WriteProperties(QVariantMap &store) const;
    void ReadProperties(const QVariantMap &store);

    // The timers, open to tests and to hosts that drive time themselves.
    bool FrameTimerPending() const { return m_frameTimer.isActive(); }
    int FrameTimerInterval() const { return m_frameTimer.interval(); }
    bool BuildTimerPending() const { return m_buildTimer.isActive(); }
    void FireFrameTimer();
    void FireBuildTimer();

Q_SIGNALS:
    void Click();
    void MouseDown(short Button, short Shift, float X, float Y);
    void MouseUp(short Button, short Shift, float X, float Y);
    void MouseMove(short Button, short Shift, float X, float Y);
    void LoopsEnded();
    void PropertyChanged(const QString &name);

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;

private:
    bool LoadGif(const QByteArray &bytes);
    void ResetGif();
    bool BuildFrames(bool &firstPass);
    void RunSecondPass();
    bool SetAnimationTimer(int mode);
    void OnFrameTimer();
    void OnBuildTimer();
    void MirrorFrames(int newValue, bool firstFrameOnly, bool includeCanvas);
    void ComputeScale(int mode, int &width, int &height);
    void ResizeToGif();
    void ResizeAfterLoad();

    void DrawFrame(QPainter &painter, int frameNo);
    void DrawComposedFrame(QPainter &painter, int frameNo, bool stretched);
    void BlitFrame(QPainter &painter, int frameNo, const QRect &target, bool stretched);
    void ComposeUpTo(int frameNo);
    void ForgetKeptPictures();
    QRect Scaled(int left, int top, int width, int height) const;

    void EmitMouse(QMouseEvent *event, void (ucGifPlayer::*signal)(short, short, float, float),
                   short button);
    void ApplyPointer();
    void ReportChange(const char *name) { Q_EMIT PropertyChanged(QString::fromLatin1(name)); }

    QByteArray m_GifBytes;
    QString m_LoadError;
    GifImage m_gif;
    GifBuildPlan m_plan;
    GifFrameStrip m_strip;
    GifComposer m_composer;
    QTimer m_frameTimer;
    QTimer m_buildTimer;

    short m_MinFrameDelay = 0;
    short m_LoopsDone = 0;
    int m_ActionState = 0;
    int m_Stretch = 1;
    int m_CurrentFrame = 0;
    int m_DelayAnimation = 1;
    int m_Mirrored = 0;
    float m_ScaleRatioX = 1.0f;
    float m_ScaleRatioY = 1.0f;
    short m_MousePointer = 0;
    QPixmap m_MouseIcon;
    QString m_Tag;

    // The colour row the strip holds for frames drawn without a canvas, as it was left: a
    // see-through frame leaves black at its see-through index (m_loadedBlack, -1 for none).
    int m_loadedRow = -1;
    int m_loadedBlack = -1;

    // Pictures kept ready to paint, converted to 32 bits and scaled to where they are drawn:
    // frames drawn without a canvas, one per frame and colour row state; and the canvas as
    // composed for m_composedFrame (0: none composed yet, or its disposal already done).
    struct KeptPicture {
        int variant = 0; // -2 for a see-through frame, else the black index of the row (-1: none)
        QSize size;
        bool smooth = false;
        QImage image;
    };
    std::vector<std::vector<KeptPicture>> m_keptFrames;
    int m_composedFrame = 0;
    QImage m_keptCanvas;
    bool m_keptCanvasSmooth = false;
};

} // namespace zrt
