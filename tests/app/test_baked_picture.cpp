// The pictures the build bakes for the first paint: the same pixels as the artwork, shown from
// the program's own memory, and damaged bytes refused rather than read.

#include "app/MainMod1.h"
#include "gfx/BakedPicture.h"

#include <QResource>

#include <gtest/gtest.h>

using zrt::BakedPictureOver;

namespace {

QImage Over(const QByteArray &bytes)
{
    return BakedPictureOver(reinterpret_cast<const uchar *>(bytes.constData()), bytes.size());
}

} // namespace

TEST(BakedPicture, EveryPictureOfTheFirstPaintIsItsArtworkShownWithoutACopy)
{
    InitResources();
    QStringList names = {"record_stage", "toolbar", "start_invitation", "start_invitation_de"};
    for (int size : {16, 24, 32, 48, 64, 128})
        names << QStringLiteral("icon-%1").arg(size);
    for (const QString &name : names) {
        const QString path = ":/baked/" + name + ".pix";
        const QImage baked = zrt::BakedPicture(path);
        ASSERT_FALSE(baked.isNull()) << name.toStdString();
        const QImage artwork(":/images/" + name + ".png");
        ASSERT_FALSE(artwork.isNull()) << name.toStdString();
        EXPECT_EQ(baked, artwork.convertToFormat(baked.format())) << name.toStdString();
        EXPECT_EQ(baked.format(), artwork.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
        const QResource resource(path);
        EXPECT_EQ(resource.compressionAlgorithm(), QResource::NoCompression);
        EXPECT_EQ(baked.constBits(), resource.data() + zrt::kBakedHeaderBytes) << "shown in place, not copied";
        EXPECT_EQ(zrt::StartupPicture(":/images/" + name + ".png").constBits(), baked.constBits());
    }
    // A picture the build did not bake is read from its file.
    const QImage unbaked = zrt::StartupPicture(":/images/audio_stage.png");
    EXPECT_EQ(unbaked, QImage(":/images/audio_stage.png"));
    EXPECT_TRUE(zrt::StartupPicture(":/images/no_such_picture.png").isNull());
}

TEST(BakedPicture, BakingAndReadingBackKeepEveryPixelWhereverTheBytesLie)
{
    QImage opaque(5, 3, QImage::Format_RGB32);
    QImage seeThrough(4, 2, QImage::Format_ARGB32);
    for (int y = 0; y < 3; ++y)
        for (int x = 0; x < 5; ++x)
            opaque.setPixel(x, y, qRgb(x * 50, y * 80, 7 * x + y));
    for (int y = 0; y < 2; ++y)
        for (int x = 0; x < 4; ++x)
            seeThrough.setPixel(x, y, qRgba(200, x * 60, y * 100, x * 80));
    for (const QImage &picture : {opaque, seeThrough}) {
        const QByteArray baked = zrt::BakePicture(picture);
        ASSERT_EQ(baked.size(), zrt::kBakedHeaderBytes + picture.width() * picture.height() * 4);
        const QImage::Format format =
            picture.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32;
        const QImage expected = picture.convertToFormat(format);
        // Bytes at an odd address are copied into a picture of their own.
        QByteArray shifted(1, '\0');
        shifted += baked;
        for (const uchar *start : {reinterpret_cast<const uchar *>(baked.constData()),
                                   reinterpret_cast<const uchar *>(shifted.constData()) + 1}) {
            const QImage back = BakedPictureOver(start, baked.size());
            ASSERT_FALSE(back.isNull());
            EXPECT_EQ(back.format(), format);
            EXPECT_EQ(back, expected);
        }
    }
}

TEST(BakedPicture, DamagedBytesGiveNoPicture)
{
    const QByteArray good = zrt::BakePicture(QImage(4, 2, QImage::Format_RGB32));
    ASSERT_FALSE(Over(good).isNull());
    EXPECT_TRUE(BakedPictureOver(nullptr, 100).isNull());
    EXPECT_TRUE(Over(good.left(10)).isNull()) << "shorter than the header";
    EXPECT_TRUE(Over(good.left(good.size() - 1)).isNull()) << "a row cut short";
    EXPECT_TRUE(Over(good + "x").isNull()) << "bytes beyond the rows";
    QByteArray wrongMagic = good;
    wrongMagic[0] = 'X';
    EXPECT_TRUE(Over(wrongMagic).isNull());
    QByteArray huge = good;
    huge[11] = char(0x7f); // a width of about two thousand million
    EXPECT_TRUE(Over(huge).isNull());
    QByteArray empty = good;
    empty[12] = empty[13] = 0; // no rows at all
    EXPECT_TRUE(Over(empty).isNull());
    QByteArray otherFormat = good;
    otherFormat[16] = char(QImage::Format_Indexed8); // a format of one byte a pixel
    EXPECT_TRUE(Over(otherFormat).isNull());
    EXPECT_TRUE(zrt::BakedPicture(QStringLiteral(":/baked/no_such_picture.pix")).isNull());
    EXPECT_TRUE(zrt::BakedPicture(QStringLiteral(":/images/record_stage.png")).isNull()) << "not baked";
}
