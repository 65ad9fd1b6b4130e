// zrt_assetmaker [project folder]        writes assets/ and docs/anim_contact_sheet.png
// zrt_assetmaker --fixtures <folder>     writes the GIF test fixtures

#include "Artwork.h"
#include "CharacterArt.h"
#include "GifFixtures.h"
#include "IndexedFrames.h"

#include "anim/GifComposer.h"
#include "anim/GifParser.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QPainter>
#include <cstdio>

namespace {

using assetmaker::AnimationTiming;

struct NamedGif {
    const char *name;
    QByteArray bytes;
};

bool Save(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    const bool ok = file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
    std::printf("%s %s (%lld bytes)\n", ok ? "wrote" : "FAILED", qPrintable(path), static_cast<long long>(bytes.size()));
    return ok;
}

bool SaveImage(const QString &path, const QImage &image)
{
    const bool ok = image.save(path, "PNG");
    std::printf("%s %s\n", ok ? "wrote" : "FAILED", qPrintable(path));
    return ok;
}

std::vector<NamedGif> MakeCharacterGifs()
{
    // One pass each: a player plays whenever it is shown, so a page that appears greets the pupil
    // once and its figures then rest until the game moves them. A figure that looped for ever
    // would stand up by itself and could be taken for the stimulus.
    const AnimationTiming pop{10, 2, 1};
    return {
        {"character1.gif", assetmaker::EncodeAnimation(assetmaker::CharacterFrames(1), pop)},
        {"character2.gif", assetmaker::EncodeAnimation(assetmaker::CharacterFrames(2), pop)},
        {"audio_target.gif", assetmaker::EncodeAnimation(assetmaker::AudioTargetFrames(), AnimationTiming{100, 2, 1})},
        {"walker.gif", assetmaker::EncodeAnimation(assetmaker::WalkerFrames(), AnimationTiming{0, 2, 1})},
    };
}

// Every frame of every GIF, decoded again by the project's own decoder, on a checker board
// so that see-through parts show.
QImage ContactSheet(const std::vector<NamedGif> &gifs)
{
    constexpr int kGap = 12;
    constexpr int kLabel = 22;
    std::vector<std::vector<QImage>> rows;
    int width = 0;
    int height = 0;
    for (const NamedGif &gif : gifs) {
        zrt::GifImage parsed;
        zrt::ParseGif(gif.bytes, parsed);
        zrt::GifFrameStrip strip;
        strip.Create(parsed, zrt::PlanGifBuild(parsed));
        for (int n = 1; n <= parsed.FrameCount(); ++n)
            strip.RenderFrame(gif.bytes, parsed, n);
        rows.push_back(zrt::GifComposer::ComposeAll(parsed, strip));
        int rowWidth = kGap;
        for (const QImage &frame : rows.back())
            rowWidth += frame.width() + kGap;
        width = std::max(width, rowWidth);
        height += kLabel + parsed.ActualHeight + kGap;
    }
    QImage sheet(width, height + kGap, QImage::Format_ARGB32);
    QPainter p(&sheet);
    for (int y = 0; y < sheet.height(); y += 8)
        for (int x = 0; x < sheet.width(); x += 8)
            p.fillRect(x, y, 8, 8, ((x + y) / 8) % 2 ? QColor(235, 235, 235) : QColor(205, 205, 205));
    int y = kGap;
    for (size_t r = 0; r < rows.size(); ++r) {
        p.setPen(Qt::black);
        p.drawText(kGap, y + 15, QString::fromLatin1(gifs[r].name));
        int x = kGap;
        for (const QImage &frame : rows[r]) {
            p.drawImage(x, y + kLabel, frame);
            x += frame.width() + kGap;
        }
        y += kLabel + (rows[r].empty() ? 0 : rows[r].front().height()) + kGap;
    }
    return sheet;
}

int WriteAssets(const QString &root)
{
    const QDir assets(QDir(root).filePath(QStringLiteral("assets")));
    const QDir docs(QDir(root).filePath(QStringLiteral("docs")));
    QDir().mkpath(assets.path());
    QDir().mkpath(docs.path());
    bool ok = true;
    const std::vector<NamedGif> gifs = MakeCharacterGifs();
    for (const NamedGif &gif : gifs)
        ok = Save(assets.filePath(QString::fromLatin1(gif.name)), gif.bytes) && ok;
    ok = SaveImage(docs.filePath(QStringLiteral("anim_contact_sheet.png")), ContactSheet(gifs)) && ok;

    ok = SaveImage(assets.filePath(QStringLiteral("record_stage.png")), Artwork::RecordStage()) && ok;
    ok = SaveImage(assets.filePath(QStringLiteral("audio_stage.png")), Artwork::AudioStage()) && ok;
    ok = SaveImage(assets.filePath(QStringLiteral("start_invitation.png")), Artwork::StartInvitation()) && ok;
    ok = SaveImage(assets.filePath(QStringLiteral("audio_invitation.png")), Artwork::AudioInvitation()) && ok;
    ok = SaveImage(assets.filePath(QStringLiteral("start_invitation_de.png")),
                   Artwork::StartInvitation(QString::fromUtf8("Bereit?"),
                                            QString::fromUtf8("Drücke auf Start und klicke auf einen Zorvane, "
                                                              "sobald er auftaucht!"))) &&
         ok;
    ok = SaveImage(assets.filePath(QStringLiteral("audio_invitation_de.png")),
                   Artwork::AudioInvitation(QString::fromUtf8("Hör zu!"),
                                            QString::fromUtf8("Drücke auf Start und klicke auf den Zorvane, "
                                                              "sobald du den Ton hörst."))) &&
         ok;
    ok = SaveImage(assets.filePath(QStringLiteral("toolbar.png")), Artwork::ToolbarStrip()) && ok;
    ok = SaveImage(assets.filePath(QStringLiteral("icon.png")), Artwork::ProgramIcon()) && ok;
    // The smaller icons a desktop's icon theme asks for, each drawn at its own size.
    QDir().mkpath(assets.filePath(QStringLiteral("icons")));
    for (int size : {16, 24, 32, 48, 64, 128})
        ok = SaveImage(assets.filePath(QStringLiteral("icons/icon-%1.png").arg(size)), Artwork::ProgramIcon(size)) && ok;
    for (int n = 1; n <= 4; ++n)
        ok = Save(assets.filePath(QStringLiteral("sound%1.wav").arg(n)), Artwork::Sound(n)) && ok;
    return ok ? 0 : 1;
}

} // namespace

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    const QStringList args = app.arguments();
    if (args.size() >= 3 && args[1] == QLatin1String("--fixtures")) {
        const int written = assetmaker::WriteGifFixtures(args[2]);
        std::printf("wrote %d fixtures into %s\n", written, qPrintable(args[2]));
        return written > 0 ? 0 : 1;
    }
    return WriteAssets(args.size() >= 2 ? args[1] : QDir::currentPath());
}
