// The stage picture the build bakes: the same pixels as the artwork, shown from the program's own
// memory, and damaged bytes refused rather than read.

#include "app/MainMod1.h"
#include "gfx/BakedPicture.h"

#include <QResource>

#include <gtest/gtest.h>

using zrt::BakedPictureOver;

TEST(BakedPicture, TheBakedStageIsTheArtworkShownWithoutACopy)
{
    InitResources();
    const QString path = QStringLiteral(":/baked/record_stage.rgb32");
    const QImage baked = zrt::BakedPicture(path);
    ASSERT_FALSE(baked.isNull());
    const QImage artwork = QImage(QStringLiteral(":/images/record_stage.png")).convertToFormat(QImage::Format_RGB32);
    EXPECT_EQ(baked, artwork);
    const QResource resource(path);
    EXPECT_EQ(resource.compressionAlgorithm(), QResource::NoCompression);
    EXPECT_EQ(baked.constBits(), resource.data() + zrt::kBakedHeaderBytes) << "shown in place, not copied";
}

TEST(BakedPicture, BakingAndReadingBackKeepEveryPixelWhereverTheBytesLie)
{
    QImage picture(5, 3, QImage::Format_ARGB32);
    for (int y = 0; y < 3; ++y)
        for (int x = 0; x < 5; ++x)
            picture.setPixel(x, y, qRgb(x * 50, y * 80, 7 * x + y));
    const QByteArray baked = zrt::BakePicture(picture);
    ASSERT_EQ(baked.size(), zrt::kBakedHeaderBytes + 5 * 3 * 4);
    const QImage expected = picture.convertToFormat(QImage::Format_RGB32);
    // Bytes at an odd address are copied into a picture of their own.
    QByteArray shifted(1, '\0');
    shifted += baked;
    for (const uchar *start : {reinterpret_cast<const uchar *>(baked.constData()),
                               reinterpret_cast<const uchar *>(shifted.constData()) + 1}) {
        const QImage back = BakedPictureOver(start, baked.size());
        ASSERT_FALSE(back.isNull());
        EXPECT_EQ(back, expected);
    }
}

TEST(BakedPicture, DamagedBytesGiveNoPicture)
{
    const QByteArray good = zrt::BakePicture(QImage(4, 2, QImage::Format_RGB32));
    auto over = [](const QByteArray &bytes) {
        return BakedPictureOver(reinterpret_cast<const uchar *>(bytes.constData()), bytes.size());
    };
    ASSERT_FALSE(over(good).isNull());
    EXPECT_TRUE(BakedPictureOver(nullptr, 100).isNull());
    EXPECT_TRUE(over(good.left(10)).isNull()) << "shorter than the header";
    EXPECT_TRUE(over(good.left(good.size() - 1)).isNull()) << "a row cut short";
    EXPECT_TRUE(over(good + "x").isNull()) << "bytes beyond the rows";
    QByteArray wrongMagic = good;
    wrongMagic[0] = 'X';
    EXPECT_TRUE(over(wrongMagic).isNull());
    QByteArray huge = good;
    huge[11] = char(0x7f); // a width of about two thousand million
    EXPECT_TRUE(over(huge).isNull());
    QByteArray empty = good;
    empty[12] = empty[13] = 0; // no rows at all
    EXPECT_TRUE(over(empty).isNull());
    EXPECT_TRUE(zrt::BakedPicture(QStringLiteral(":/baked/no_such_picture.rgb32")).isNull());
    EXPECT_TRUE(zrt::BakedPicture(QStringLiteral(":/images/record_stage.png")).isNull()) << "not baked";
}
