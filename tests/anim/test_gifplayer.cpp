// The ucGifPlayer control, offscreen: timers fired by hand, paints counted as they happen.

#include "GifTestSupport.h"

#include "anim/ucGifPlayer.h"
#include "common/NumberText.h"

#include <QPainter>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <gtest/gtest.h>

#if defined(__unix__)
#include <sys/stat.h>
#endif

using namespace zrt;
using namespace giftest;

namespace {

// Records the frame each paint of the watched control showed.
class PaintLog : public QObject {
public:
    explicit PaintLog(ucGifPlayer *player) : m_player(player) { player->installEventFilter(this); }
    std::vector<int> frames;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (watched == m_player && event->type() == QEvent::Paint)
            frames.push_back(m_player->CurrentFrame());
        return false;
    }

private:
    ucGifPlayer *m_player;
};

class GifPlayerTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        host.resize(600, 500);
        host.show();
        player = new ucGifPlayer(&host);
        player->setGeometry(10, 10, 200, 200);
        player->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&host));
    }

    // Loads and finishes the delayed build, as the main form's stored "DelayLoad" 2 does.
    void LoadStill(const QByteArray &bytes)
    {
        player->setDelayAnimation(2);
        ASSERT_TRUE(player->LoadAnimatedGIF_Array(bytes));
        player->FireBuildTimer();
    }

    QWidget host;
    ucGifPlayer *player = nullptr;
};

} // namespace

TEST_F(GifPlayerTest, DelayedBuildShowsFrameOneThenBuildsTheRestAndPlays)
{
    ASSERT_TRUE(player->LoadAnimatedGIF_Array(SolidFrames(3, 20, 10, 10)));
    EXPECT_EQ(player->CurrentFrame(), 1);
    EXPECT_TRUE(player->BuildTimerPending());
    EXPECT_EQ(player->Action(), 1);
    EXPECT_EQ(player->Strip().Image().pixelIndex(25, 0), 0); // frame 2 not built yet
    player->FireBuildTimer();
    EXPECT_EQ(player->Strip().Image().pixelIndex(25, 0), 2);
    EXPECT_TRUE(player->FrameTimerPending());
    EXPECT_EQ(player->FrameTimerInterval(), 100);
    player->FireFrameTimer();
    EXPECT_EQ(player->CurrentFrame(), 2);
}

TEST_F(GifPlayerTest, DelayAnimationZeroBuildsAtOnceAndTwoNeverStartsByItself)
{
    player->setDelayAnimation(0);
    ASSERT_TRUE(player->LoadAnimatedGIF_Array(SolidFrames(3, 20, 10)));
    EXPECT_FALSE(player->BuildTimerPending());
    EXPECT_TRUE(player->FrameTimerPending());

    LoadStill(SolidFrames(3, 20, 10));
    EXPECT_EQ(player->Action(), 0);
    EXPECT_FALSE(player->FrameTimerPending());
}

TEST_F(GifPlayerTest, ActionStepsRepaintBeforeTheWriteReturns)
{
    LoadStill(SolidFrames(3, 20, 10));
    PaintLog log(player);
    player->setAction(3);
    player->setAction(3);
    EXPECT_EQ(log.frames, (std::vector<int>{2, 3}));
    player->setAction(3); // past the last frame: back to frame 1, paused
    EXPECT_EQ(player->CurrentFrame(), 1);
    EXPECT_EQ(player->Action(), 2);
    player->setAction(0); // already at frame 1, still painted
    EXPECT_EQ(log.frames, (std::vector<int>{2, 3, 1, 1}));
    EXPECT_EQ(player->Action(), 0);
    player->setAction(4);
    EXPECT_EQ(log.frames.back(), 1);
    EXPECT_EQ(player->Action(), 1);
    player->setAction(2);
    EXPECT_EQ(player->Action(), 2);
    EXPECT_FALSE(player->FrameTimerPending());
    player->setAction(7);
    EXPECT_EQ(player->Action(), 2);
}

TEST_F(GifPlayerTest, ASingleFrameNeverGetsAFrameTimer)
{
    LoadStill(Fixture("one_frame.gif"));
    QSignalSpy ended(player, &ucGifPlayer::LoopsEnded);
    player->setAction(1);
    EXPECT_EQ(player->Action(), 0);
    player->setAction(4);
    EXPECT_EQ(player->Action(), 0);
    EXPECT_FALSE(player->FrameTimerPending());
    EXPECT_EQ(ended.count(), 0);
    EXPECT_EQ(player->Strip().Image().width(), 50);
    EXPECT_FALSE(player->HasCanvas());
}

TEST_F(GifPlayerTest, LoopsEndOnFrameOneAfterItIsPainted)
{
    LoadStill(SolidFrames(3, 20, 10, 10, 2));
    EXPECT_EQ(player->Loops(), 2);
    PaintLog log(player);
    int paintedBeforeEnd = -1;
    QObject::connect(player, &ucGifPlayer::LoopsEnded, [&] { paintedBeforeEnd = log.frames.back(); });
    player->setAction(4);
    int fired = 0;
    while (player->FrameTimerPending() && fired < 20) {
        player->FireFrameTimer();
        ++fired;
    }
    EXPECT_EQ(fired, 6);
    EXPECT_EQ(paintedBeforeEnd, 1);
    EXPECT_EQ(player->CurrentFrame(), 1);
    EXPECT_EQ(player->Action(), 0);
    EXPECT_EQ(player->LoopsDone(), 0);
    EXPECT_EQ(player->LoopsRemaining(), 2);
}

TEST_F(GifPlayerTest, LoopsWrittenBeforeALoadAreLostAndAfterItHold)
{
    player->setLoops(-5);
    EXPECT_EQ(player->Loops(), 5);
    LoadStill(SolidFrames(2, 4, 4));
    EXPECT_EQ(player->Loops(), 0);
    EXPECT_EQ(player->LoopsRemaining(), 0);
    player->setLoops(1);
    EXPECT_EQ(player->LoopsRemaining(), 1);
    player->setAction(4);
    player->FireFrameTimer();
    player->FireFrameTimer();
    EXPECT_EQ(player->Action(), 0);
    player->LoadAnimatedGIF_Array(QByteArray("not a gif"));
    EXPECT_EQ(player->LoopsRemaining(), -1);
    EXPECT_EQ(player->FrameCount(), 0);
    EXPECT_FALSE(player->LoadError().isEmpty());
}

TEST_F(GifPlayerTest, APictureBeyondTheMemoryBoundIsRefusedAndSaysWhy)
{
    // Two frames of 65535 x 65535 pixels, each only a few bytes in the file.
    QByteArray bytes("GIF89a\xFF\xFF\xFF\xFF\x80\0\0\0\0\0\xFF\xFF\xFF", 19);
    for (int i = 0; i < 2; ++i)
        bytes.append("\x21\xF9\x04\x04\x04\0\0\0,\0\0\0\0\xFF\xFF\xFF\xFF\0\x02\x02\x84\x51\0", 23);
    bytes.append(';');
    EXPECT_FALSE(player->LoadAnimatedGIF_Array(bytes));
    EXPECT_EQ(player->FrameCount(), 0);
    EXPECT_TRUE(player->LoadError().contains("MB")) << player->LoadError().toStdString();
    ASSERT_TRUE(player->LoadAnimatedGIF_Array(SolidFrames(2, 8, 8)));
    EXPECT_TRUE(player->LoadError().isEmpty());

#if defined(__unix__)
    // A pipe or a device given as the file is not opened at all.
    QTemporaryDir dir;
    const QString pipe = dir.filePath("pipe.gif");
    ASSERT_EQ(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    for (const QString &path : {pipe, QStringLiteral("/dev/zero")}) {
        EXPECT_FALSE(player->LoadAnimatedGIF_File(path));
        EXPECT_EQ(player->LoadError(), "The file " + path + " can't be read as a picture.");
    }
#endif
}

TEST_F(GifPlayerTest, MinFrameDelayIsClampedAndWinsOverShorterDelays)
{
    player->setMinFrameDelay(3);
    EXPECT_EQ(player->MinFrameDelay(), 10);
    player->setMinFrameDelay(40000);
    EXPECT_EQ(player->MinFrameDelay(), 32700);
    player->setMinFrameDelay(100);
    LoadStill(Asset("walker.gif")); // delay 0
    player->setAction(4);
    EXPECT_EQ(player->FrameTimerInterval(), 100);
    player->setMinFrameDelay(10);
    player->setAction(4);
    EXPECT_EQ(player->FrameTimerInterval(), 10);
}

TEST_F(GifPlayerTest, EachInstanceHasItsOwnTimer)
{
    auto *other = new ucGifPlayer(&host);
    other->show();
    LoadStill(SolidFrames(3, 8, 8));
    other->setDelayAnimation(2);
    other->LoadAnimatedGIF_Array(SolidFrames(3, 8, 8));
    other->FireBuildTimer();
    player->setAction(4);
    other->setAction(4);
    player->FireFrameTimer();
    player->FireFrameTimer();
    EXPECT_EQ(player->CurrentFrame(), 3);
    EXPECT_EQ(other->CurrentFrame(), 1);
    other->setAction(2);
    EXPECT_TRUE(player->FrameTimerPending());
}

TEST_F(GifPlayerTest, PlaysThroughARealEventLoop)
{
    player->setDelayAnimation(0);
    player->setMinFrameDelay(10);
    ASSERT_TRUE(player->LoadAnimatedGIF_Array(SolidFrames(3, 8, 8, 1)));
    EXPECT_TRUE(QTest::qWaitFor([&] { return player->CurrentFrame() == 3; }, 2000));
}

TEST_F(GifPlayerTest, StretchModesSizeTheControlWithTiesToEven)
{
    const QByteArray gif = SolidFrames(2, 10, 5);
    player->resize(5, 100);
    player->setStretch(1);
    LoadStill(gif);
    EXPECT_EQ(player->size(), QSize(5, 2)); // 2.5 rounds to 2
    EXPECT_FLOAT_EQ(player->ScaleRatioX(), 0.5f);

    player->resize(40, 40);
    player->setStretch(3); // down only
    EXPECT_EQ(player->size(), QSize(10, 5));
    player->setStretch(2);
    player->resize(30, 7);
    EXPECT_EQ(player->size(), QSize(30, 7));
    EXPECT_FLOAT_EQ(player->ScaleRatioX(), 3.0f);
    player->setStretch(0);
    player->resize(30, 3);
    EXPECT_EQ(player->size(), QSize(10, 3));
    player->setStretch(4);
    EXPECT_EQ(player->size(), QSize(10, 5));
    player->setStretch(5);
    EXPECT_EQ(player->Stretch(), 4);
}

TEST_F(GifPlayerTest, AChangeOfStretchKeepsPausedAndPlayingStatesAndFrameCountIgnoresWrites)
{
    LoadStill(SolidFrames(3, 10, 5));
    player->setAction(3); // paused on frame 2
    PaintLog log(player);
    player->setStretch(2);
    EXPECT_EQ(player->CurrentFrame(), 2);
    EXPECT_EQ(player->Action(), 2);
    EXPECT_FALSE(log.frames.empty());
    player->setAction(1);
    player->setStretch(0);
    EXPECT_EQ(player->Action(), 1);
    EXPECT_TRUE(player->FrameTimerPending());
    player->setFrameCount(9);
    EXPECT_EQ(player->FrameCount(), 3);
}

TEST_F(GifPlayerTest, MirroringTwiceGivesTheFramesBack)
{
    LoadStill(Fixture("disposal_mix.gif"));
    const QImage before = player->Strip().Image().copy();
    const int left2 = player->Gif().Frame(2).Left;
    player->setMirrored(3);
    EXPECT_EQ(player->Mirrored(), 3);
    EXPECT_NE(player->Strip().Image(), before);
    player->setMirrored(0);
    EXPECT_EQ(player->Strip().Image(), before);
    EXPECT_EQ(player->Gif().Frame(2).Left, left2);
    player->setMirrored(4);
    EXPECT_EQ(player->Mirrored(), 0);
}

TEST_F(GifPlayerTest, MirroringStoredBeforeALoadIsAppliedOnceThroughTheDelayedBuild)
{
    const QByteArray bytes = SolidFrames(3, 10, 5);
    player->setMirrored(1);
    player->setDelayAnimation(2);
    player->LoadAnimatedGIF_Array(bytes);
    player->FireBuildTimer();
    const Decoded plain = Decode(bytes);
    const QImage turned = plain.strip.Image().copy(0, 0, 10, 5).mirrored(true, false);
    EXPECT_EQ(player->Strip().Image().copy(0, 0, 10, 5).convertToFormat(QImage::Format_Grayscale8),
              turned.convertToFormat(QImage::Format_Grayscale8));
    EXPECT_EQ(player->Mirrored(), 1);
}

TEST_F(GifPlayerTest, SeeThroughPixelsShowTheContainerAndStillTakeTheMouse)
{
    host.setAutoFillBackground(true);
    QPalette palette = host.palette();
    palette.setColor(QPalette::Window, Qt::red);
    host.setPalette(palette);
    player->setStretch(4);
    // Every frame disposed to the background: drawn straight on the container, no canvas.
    LoadStill(Asset("character1.gif"));
    ASSERT_FALSE(player->HasCanvas());
    const Decoded d = Decode(Asset("character1.gif"));
    QPoint clear(-1, -1);
    for (int y = 20; y < d.gif.Frame(1).Height && clear.x() < 0; ++y)
        for (int x = 20; x < d.gif.Frame(1).Width; ++x)
            if (d.strip.Image().pixelIndex(x, y) == d.gif.Frame(1).TransparentIndex) {
                clear = QPoint(x, y);
                break;
            }
    ASSERT_GE(clear.x(), 0);
    const QImage shot = host.grab().toImage();
    EXPECT_EQ(shot.pixelColor(player->pos() + clear), QColor(Qt::red));

    QSignalSpy down(player, &ucGifPlayer::MouseDown);
    QTest::mousePress(player, Qt::RightButton, Qt::ShiftModifier, clear);
    ASSERT_EQ(down.count(), 1);
    EXPECT_EQ(down[0][0].toInt(), 2);
    EXPECT_EQ(down[0][1].toInt(), 1);
    EXPECT_FLOAT_EQ(down[0][2].toFloat(), float(clear.x()));
    EXPECT_FLOAT_EQ(down[0][3].toFloat(), float(clear.y()));
}

TEST_F(GifPlayerTest, PropertiesAreStoredWithoutDefaultsAndDelayReadsBackAsZero)
{
    QVariantMap store;
    player->InitProperties();
    EXPECT_EQ(player->MinFrameDelay(), 50);
    player->WriteProperties(store);
    EXPECT_TRUE(store.isEmpty());

    ucGifPlayer fresh;
    QVariantMap stored{{"GIF", SolidFrames(3, 10, 5)}, {"Stretch", 3}, {"DelayLoad", 2}, {"Loops", 4}};
    fresh.ReadProperties(stored);
    EXPECT_EQ(fresh.MinFrameDelay(), 0);
    EXPECT_EQ(fresh.Stretch(), 3);
    EXPECT_EQ(fresh.DelayAnimation(), 2);
    EXPECT_EQ(fresh.FrameCount(), 3);
    EXPECT_EQ(fresh.Loops(), 4);
    fresh.setMinFrameDelay(100);
    QVariantMap saved;
    fresh.WriteProperties(saved);
    EXPECT_EQ(saved.value("Delay").toInt(), 100);
    EXPECT_EQ(saved.value("Stretch").toInt(), 3);
}

TEST_F(GifPlayerTest, TheCurrentFrameComesBackAsAPicture)
{
    LoadStill(Fixture("transparent.gif"));
    const QImage picture = player->AnimatedGIF();
    const std::vector<QImage> frames = ComposeAll(Fixture("transparent.gif"));
    ASSERT_FALSE(picture.isNull());
    EXPECT_EQ(picture, frames[0].convertToFormat(QImage::Format_ARGB32));
    player->setAnimatedGIF(QByteArray());
    EXPECT_TRUE(player->AnimatedGIF().isNull());
}

namespace {

// The control's picture on a known ground, as it paints itself (no background of its own).
QImage Painted(ucGifPlayer *player, QRgb ground)
{
    QImage image(player->size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(ground);
    player->render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
    return image;
}

// Frame 1 fills the picture with index 3; frame 2 is a chequer of index 5 and see-through
// index 0 disposed to the background; frame 3 fills with index 7.
QByteArray SeeThroughOverFull()
{
    GifWriterInput in;
    in.Screen = QSize(40, 30);
    in.GlobalTable = Greys(16);
    in.Frames.push_back(WriterFrame(Pattern(40, 30, [](int, int) { return 3; }), 0, 0, 1));
    in.Frames.push_back(WriterFrame(Pattern(20, 10, [](int x, int y) { return (x + y) % 2 ? 5 : 0; }), 5, 5, 2, 0));
    in.Frames.push_back(WriterFrame(Pattern(40, 30, [](int, int) { return 7; }), 0, 0, 1));
    return WriteAnimatedGif(in);
}

} // namespace

TEST_F(GifPlayerTest, ARepaintShowsTheSamePictureOnACanvas)
{
    player->setStretch(4);
    LoadStill(SeeThroughOverFull());
    ASSERT_TRUE(player->HasCanvas());
    player->setAction(3); // frame 2, painted once by the step
    ASSERT_EQ(player->CurrentFrame(), 2);
    const QImage first = Painted(player, qRgb(255, 0, 0));
    player->repaint();
    const QImage second = Painted(player, qRgb(255, 0, 0));
    EXPECT_EQ(first, second);
    // The see-through pixels of frame 2 show frame 1 under them, on every paint.
    const QRgb under = Greys(16)[3];
    EXPECT_EQ(second.pixel(5, 5), under);
    EXPECT_EQ(second.pixel(6, 5), Greys(16)[5]);
    EXPECT_EQ(second.pixel(0, 0), under);
    // The disposal takes effect with the next step: frame 3 covers everything anyway, and frame 1
    // after the wrap starts from a blank canvas.
    player->setAction(3);
    EXPECT_EQ(Painted(player, qRgb(255, 0, 0)).pixel(5, 5), Greys(16)[7]);
    player->setAction(3);
    EXPECT_EQ(Painted(player, qRgb(255, 0, 0)).pixel(5, 5), under);
}

TEST_F(GifPlayerTest, KeptFramesPaintAsTheFramesDrawnAnew)
{
    // Stretched pictures, with and without a canvas, against the frame drawn straight from the
    // strip with its colour row, smoothly scaled, as each paint used to draw it.
    for (const char *name : {"character1.gif", "walker.gif"}) {
        SCOPED_TRACE(name);
        const QByteArray bytes = Asset(name);
        player->setStretch(2);
        player->resize(173, 131);
        LoadStill(bytes);
        const Decoded d = Decode(bytes);
        ASSERT_GE(d.frames, 2);
        const float rx = player->ScaleRatioX(), ry = player->ScaleRatioY();
        ASSERT_NE(rx, 1.0f);
        auto scaled = [&](int l, int t, int w, int h) {
            return QRect(CLng(double(rx) * l), CLng(double(ry) * t), CLng(double(rx) * w), CLng(double(ry) * h));
        };
        const std::vector<QImage> composed = GifComposer::ComposeAll(d.gif, d.strip);
        for (int n = 1; n <= d.frames; ++n) {
            if (n > 1)
                player->setAction(3);
            ASSERT_EQ(player->CurrentFrame(), n);
            QImage expected(player->size(), QImage::Format_ARGB32_Premultiplied);
            expected.fill(qRgb(0, 128, 255));
            QPainter painter(&expected);
            painter.setRenderHint(QPainter::SmoothPixmapTransform, true);
            if (player->HasCanvas()) {
                const QRect target = scaled(0, 0, d.gif.ActualWidth, d.gif.ActualHeight);
                if (!PlanGifBuild(d.gif).NeedMask)
                    painter.fillRect(target, Qt::black);
                painter.drawImage(target, composed[size_t(n - 1)]);
            } else {
                const GifFrame &f = d.gif.Frame(n);
                painter.drawImage(scaled(f.Left, f.Top, f.Width, f.Height), d.strip.FramePicture(d.gif, n));
            }
            painter.end();
            const QImage shown = Painted(player, qRgb(0, 128, 255));
            EXPECT_EQ(shown, expected) << "frame " << n;
            EXPECT_EQ(Painted(player, qRgb(0, 128, 255)), shown) << "a second paint of frame " << n;
        }
    }
}
