// Bakes a picture for the resources: bake_picture <in.png> <out.rgb32>. The window's first
// picture is then shown without decoding.

#include "gfx/BakedPicture.h"

#include <QFile>
#include <QImage>

#include <cstdio>

int main(int argc, char *argv[])
{
    if (argc != 3) {
        std::fprintf(stderr, "usage: bake_picture <picture> <baked output>\n");
        return 2;
    }
    const QImage picture(QString::fromLocal8Bit(argv[1]));
    if (picture.isNull()) {
        std::fprintf(stderr, "bake_picture: %s is no picture that can be read\n", argv[1]);
        return 1;
    }
    QFile out(QString::fromLocal8Bit(argv[2]));
    if (!out.open(QIODevice::WriteOnly) || out.write(zrt::BakePicture(picture)) < 0 || !out.flush()) {
        std::fprintf(stderr, "bake_picture: %s cannot be written\n", argv[2]);
        return 1;
    }
    return 0;
}
