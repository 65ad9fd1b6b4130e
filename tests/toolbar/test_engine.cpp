// The message engine's contract and the shared drawing helpers.
#include "gfx/GraphicsBas1.h"
#include "gfx/MessageEngine.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QWidget>
#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include <vector>

using namespace zrt;

namespace {

class CountingWidget : public QWidget {
public:
    int presses = 0;

protected:
    void mousePressEvent(QMouseEvent *event) override
    {
        ++presses;
        event->accept();
    }
};

struct Reported {
    std::vector<QString> titles, texts;
};

Reported *CaptureReports()
{
    static Reported reported;
    reported = {};
    MessageEngine::setErrorReporter([](const QString &title, const QString &text) {
        reported.titles.push_back(title);
        reported.texts.push_back(text);
    });
    return &reported;
}

void Press(QWidget &w, Qt::MouseButton button = Qt::LeftButton)
{
    QMouseEvent press(QEvent::MouseButtonPress, QPointF(2, 2), QPointF(2, 2), button, button, Qt::NoModifier);
    QApplication::sendEvent(&w, &press);
}

} // namespace

TEST(MessageEngine, BeforeAndAfterOrderWithHandledAndReturnValue)
{
    CountingWidget w;
    std::vector<std::string> calls;
    bool handleBefore = false;
    MessageEngine engine("GlossButton", MessageEngine::Form::Checked, [&](Message &m) {
        calls.push_back(m.before ? "before" : "after");
        if (m.before) {
            EXPECT_EQ(w.presses, 0);
            m.handled = handleBefore;
        } else {
            EXPECT_EQ(w.presses, 1) << "after runs once the widget has handled the press";
            EXPECT_EQ(m.result, 1);
        }
    });
    ASSERT_TRUE(engine.subclass(&w));
    engine.watch(&w, msg::WM_LBUTTONDOWN, MsgWhen::Both);
    Press(w);
    EXPECT_EQ(calls, (std::vector<std::string>{"before", "after"}));

    // A handled before-message reaches neither the widget nor the after callback.
    calls.clear();
    w.presses = 0;
    handleBefore = true;
    Press(w);
    EXPECT_EQ(calls, (std::vector<std::string>{"before"}));
    EXPECT_EQ(w.presses, 0);

    // Messages nobody asked for go straight to the widget.
    calls.clear();
    Press(w, Qt::RightButton);
    EXPECT_TRUE(calls.empty());
    EXPECT_EQ(w.presses, 1);
}

TEST(MessageEngine, DeliveryIsPerInstanceAndStopsFromInsideTheCallback)
{
    CountingWidget a, b;
    int seenA = 0, seenB = 0;
    MessageEngine *self = nullptr;
    MessageEngine engineA("RowList", MessageEngine::Form::Growing, [&](Message &m) {
        ++seenA;
        self->unsubclass(m.window); // ends from inside its own callback
    });
    self = &engineA;
    MessageEngine engineB("RowList", MessageEngine::Form::Growing, [&](Message &) { ++seenB; });
    engineA.subclass(&a);
    engineB.subclass(&b);
    engineA.watch(&a, msg::ALL_MESSAGES, MsgWhen::Both);
    engineB.watch(&b, msg::WM_LBUTTONDOWN, MsgWhen::After);
    Press(a);
    Press(a);
    EXPECT_EQ(seenA, 1);
    EXPECT_EQ(a.presses, 2) << "the widget keeps working after the client has gone";
    EXPECT_FALSE(engineA.isSubclassed(&a));
    EXPECT_EQ(seenB, 0);
    Press(b);
    EXPECT_EQ(seenB, 1);
}

TEST(MessageEngine, CheckedTablesAndTheirFailureTexts)
{
    Reported *reported = CaptureReports();
    QWidget w, other;
    MessageEngine engine("GlossButton", MessageEngine::Form::Checked, [](Message &) {});

    engine.watch(&w, msg::WM_PAINT, MsgWhen::Before);
    ASSERT_EQ(reported->texts.size(), 1u);
    EXPECT_EQ(reported->titles[0], "Error in GlossButton.zMap_hWnd");
    EXPECT_EQ(reported->texts[0], "Subclassing hasn't been started.");

    engine.subclass(&w);
    for (int m = 1; m <= 32; ++m)
        engine.watch(&w, 1000 + m, MsgWhen::Before);
    EXPECT_EQ(engine.tableCount(&w, MsgWhen::Before), 32);
    engine.watch(&w, 2000, MsgWhen::Before);
    EXPECT_EQ(reported->titles.back(), "Error in GlossButton.zAddMsg");
    EXPECT_TRUE(reported->texts.back().startsWith("Message table overflow. Either increase"));
    EXPECT_EQ(engine.tableCount(&w, MsgWhen::Before), 32);
    EXPECT_FALSE(engine.isWatched(&w, 2000, MsgWhen::Before));

    // A full table stays full: freeing a place keeps the count, and the limit is on the count.
    engine.unwatch(&w, 1005, MsgWhen::Before);
    engine.watch(&w, 2000, MsgWhen::Before);
    EXPECT_FALSE(engine.isWatched(&w, 2000, MsgWhen::Before));
    // Below the limit a freed place is taken before the table grows.
    engine.unwatch(&w, msg::ALL_MESSAGES, MsgWhen::Before);
    engine.watch(&w, 1, MsgWhen::Before);
    engine.watch(&w, 2, MsgWhen::Before);
    engine.unwatch(&w, 1, MsgWhen::Before);
    engine.watch(&w, 3, MsgWhen::Before);
    EXPECT_EQ(engine.tableCount(&w, MsgWhen::Before), 2);
    EXPECT_TRUE(engine.isWatched(&w, 3, MsgWhen::Before));
    EXPECT_FALSE(engine.isWatched(&w, 1, MsgWhen::Before));

    engine.unwatch(&w, 0x2A3, MsgWhen::After);
    EXPECT_EQ(reported->texts.back(), "Message &H2A3 not found in table.");

    // All messages, then one message narrows the table to that one.
    engine.watch(&w, msg::ALL_MESSAGES, MsgWhen::After);
    EXPECT_EQ(engine.tableCount(&w, MsgWhen::After), -1);
    engine.watch(&w, msg::WM_PAINT, MsgWhen::After);
    EXPECT_EQ(engine.tableCount(&w, MsgWhen::After), 1);
    EXPECT_FALSE(engine.isWatched(&w, msg::WM_MOUSEMOVE, MsgWhen::After));

    engine.watch(&other, msg::WM_PAINT, MsgWhen::Before);
    EXPECT_EQ(reported->texts.back(), "Window handle isn't subclassed.");
    engine.unsubclass(&other);
    EXPECT_EQ(reported->titles.back(), "Error in GlossButton.sc_UnSubclass");
    engine.subclass(nullptr);
    EXPECT_EQ(reported->texts.back(), "Invalid window handle.");
    MessageEngine::setErrorReporter({});
}

TEST(MessageEngine, GrowingTablesHaveNoLimitAndStaySilent)
{
    Reported *reported = CaptureReports();
    QWidget w;
    MessageEngine engine("ThemedToolbar", MessageEngine::Form::Growing, [](Message &) {});
    engine.subclass(&w);
    for (int m = 1; m <= 40; ++m)
        engine.watch(&w, 1000 + m, MsgWhen::Before);
    EXPECT_EQ(engine.tableCount(&w, MsgWhen::Before), 40);
    engine.unwatch(&w, 5, MsgWhen::Before);
    EXPECT_TRUE(reported->texts.empty());
    EXPECT_FALSE(engine.lastError().isEmpty());
    MessageEngine::setErrorReporter({});
}

TEST(MessageEngine, MessageNumbersOfQtEvents)
{
    QMouseEvent right(QEvent::MouseButtonRelease, QPointF(), QPointF(), Qt::RightButton, Qt::NoButton,
                      Qt::NoModifier);
    EXPECT_EQ(msg::MessageOf(&right), msg::WM_RBUTTONUP);
    QEvent leave(QEvent::Leave), enter(QEvent::Enter), paint(QEvent::Paint);
    EXPECT_EQ(msg::MessageOf(&leave), 675);
    EXPECT_EQ(msg::MessageOf(&enter), msg::WM_MOUSEHOVER);
    EXPECT_EQ(msg::MessageOf(&paint), 15);
}

namespace {

// The gradient as it was first built, pixel by pixel, kept to hold the faster one to it.
QImage ReferenceGradient(const QSize &size, const QColor &from, const QColor &to, GradientDirection direction)
{
    auto mix = [](int a, int b, int step, int steps) {
        return steps <= 0 ? a : a + static_cast<int>(std::lround(static_cast<double>(b - a) * step / steps));
    };
    QImage image(size.expandedTo(QSize(0, 0)), QImage::Format_RGB32);
    if (image.isNull())
        return image;
    const bool rows = direction == GradientDirection::TopToBottom;
    const int steps = (rows ? size.height() : size.width()) - 1;
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x) {
            const int i = rows ? y : x;
            image.setPixel(x, y, qRgb(mix(from.red(), to.red(), i, steps), mix(from.green(), to.green(), i, steps),
                                      mix(from.blue(), to.blue(), i, steps)));
        }
    return image;
}

} // namespace

TEST(GraphicsBas1, GradientsArePixelForPixelAsBuiltBefore)
{
    std::mt19937 rng(7);
    auto any = [&](int n) { return std::uniform_int_distribution<int>(0, n)(rng); };
    for (int round = 0; round < 300; ++round) {
        const QSize size(any(120), any(120));
        const QColor from(any(255), any(255), any(255)), to(any(255), any(255), any(255));
        const auto direction = any(1) ? GradientDirection::TopToBottom : GradientDirection::LeftToRight;
        const QImage expected = ReferenceGradient(size, from, to, direction);
        ASSERT_EQ(GradientImage(size, from, to, direction), expected) << round;
        // Drawn on a surface, twice (the second time from the kept picture), at an offset.
        QImage surface(size + QSize(6, 4), QImage::Format_RGB32);
        surface.fill(Qt::magenta);
        QImage want = surface.copy();
        {
            QPainter p(&want);
            p.drawImage(QPoint(3, 2), expected);
        }
        for (int twice = 0; twice < 2; ++twice) {
            QPainter p(&surface);
            DrawGradient(p, QRect(QPoint(3, 2), size), from, to, direction);
        }
        ASSERT_EQ(surface, want) << round;
        // A painter that scales takes the kept picture; one with antialiasing on still fills
        // whole pixels.
        QImage scaled(surface.size() * 2, QImage::Format_RGB32), wantScaled = scaled;
        scaled.fill(Qt::magenta);
        wantScaled.fill(Qt::magenta);
        for (auto [image, reference] : {std::pair{&scaled, false}, std::pair{&wantScaled, true}}) {
            QPainter p(image);
            p.scale(2, 2);
            if (reference)
                p.drawImage(QPoint(3, 2), expected);
            else
                DrawGradient(p, QRect(QPoint(3, 2), size), from, to, direction);
        }
        ASSERT_EQ(scaled, wantScaled) << round;
        QImage smooth = want.copy();
        smooth.fill(Qt::magenta);
        {
            QPainter p(&smooth);
            p.setRenderHint(QPainter::Antialiasing);
            DrawGradient(p, QRect(QPoint(3, 2), size), from, to, direction);
        }
        ASSERT_EQ(smooth, want) << round;
    }
}

TEST(GraphicsBas1, GradientEndsAndTransparentCopy)
{
    const QImage g = GradientImage(QSize(3, 11), QColor(0, 0, 0), QColor(200, 100, 50),
                                   GradientDirection::TopToBottom);
    EXPECT_EQ(g.pixel(1, 0), qRgb(0, 0, 0));
    EXPECT_EQ(g.pixel(1, 10), qRgb(200, 100, 50));
    EXPECT_EQ(g.pixel(0, 5), qRgb(100, 50, 25));
    const QImage h = GradientImage(QSize(5, 2), Qt::white, Qt::black, GradientDirection::LeftToRight);
    EXPECT_EQ(h.pixel(0, 1), qRgb(255, 255, 255));
    EXPECT_EQ(h.pixel(4, 0), qRgb(0, 0, 0));

    QImage sprite(4, 4, QImage::Format_RGB32);
    sprite.fill(QColor(0, 255, 0));
    sprite.setPixel(1, 1, qRgb(255, 0, 0));
    QImage target(4, 4, QImage::Format_RGB32);
    target.fill(Qt::blue);
    {
        QPainter p(&target);
        TransparentCopy(p, QPoint(0, 0), QSize(4, 4), sprite, QPoint(0, 0), QColor(0, 255, 0));
    }
    EXPECT_EQ(target.pixel(1, 1), qRgb(255, 0, 0));
    EXPECT_EQ(target.pixel(3, 3), qRgb(0, 0, 255));

    EXPECT_EQ(TranslateColor(RGB(1, 2, 3)), QColor(1, 2, 3));
    EXPECT_EQ(TranslateColor(SystemColor(15)), QGuiApplication::palette().color(QPalette::Button));
    EXPECT_EQ(BlendColor(QColor(100, 100, 100), 50), QColor(177, 177, 177));
    EXPECT_EQ(BlendColor(QColor(100, 100, 100), -50), QColor(50, 50, 50));
}
