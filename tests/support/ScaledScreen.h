#pragma once
// Tests of drawing on a screen scaled to 200 %. ctest runs every test named *HighDpi* a second
// time with QT_SCALE_FACTOR=2 (see tests/CMakeLists.txt); run by hand without it, they skip.

#include <QGuiApplication>
#include <QImage>
#include <QRect>
#include <QWidget>

#include <gtest/gtest.h>

#include <functional>

class ScaledScreenTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        if (qGuiApp->devicePixelRatio() == 2.0)
            return;
        // Asked for the scaled screen but not given it: the test could not test anything.
        if (qEnvironmentVariable("QT_SCALE_FACTOR") == QLatin1String("2"))
            FAIL() << "QT_SCALE_FACTOR=2 but the device pixel ratio is " << qGuiApp->devicePixelRatio();
        GTEST_SKIP() << "needs a screen scaled to 200 % (QT_SCALE_FACTOR=2)";
    }

    // What the widget shows, in device pixels: rendered into an image of pixel ratio 2, which
    // is what a scaled screen's back buffer is (grab() on the offscreen platform need not be).
    static QImage Rendered(QWidget &widget)
    {
        QImage image(widget.size() * 2, QImage::Format_ARGB32_Premultiplied);
        image.setDevicePixelRatio(2.0);
        image.fill(Qt::magenta);
        widget.render(&image);
        return image.convertToFormat(QImage::Format_RGB32);
    }

    // The box around every pixel for which the test holds, in the image's own pixels.
    static QRect InkBox(const QImage &image, const std::function<bool(QRgb)> &isInk)
    {
        QRect box;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (isInk(image.pixel(x, y)))
                    box |= QRect(x, y, 1, 1);
        return box;
    }

    // True when some 2x2 block aligned on even pixels inside box is not of one colour: a picture
    // drawn at the full ratio has such blocks along its letters, one drawn at half the pixels
    // and blown up has none.
    static bool HasFineDetail(const QImage &image, const QRect &box)
    {
        for (int y = box.top() & ~1; y + 1 <= box.bottom(); y += 2)
            for (int x = box.left() & ~1; x + 1 <= box.right(); x += 2) {
                const QRgb p = image.pixel(x, y);
                if (image.pixel(x + 1, y) != p || image.pixel(x, y + 1) != p || image.pixel(x + 1, y + 1) != p)
                    return true;
            }
        return false;
    }
};
