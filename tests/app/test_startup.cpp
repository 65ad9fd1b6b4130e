#include "app/MainMod1.h"
#include "app/PagePanel.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QLabel>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <gtest/gtest.h>

#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <thread>

#if defined(__unix__)
#include <sys/stat.h>
#endif

TEST(Startup, CreatesTheSettingsFileEmptyOnce)
{
    QTemporaryDir dir;
    int reports = 0;
    auto report = [&](const QString &, const QString &) { ++reports; };
    ASSERT_TRUE(MainMod1::Startup(dir.path(), report));
    EXPECT_EQ(reports, 0);
    EXPECT_EQ(MainMod1::SettingsFile, dir.path() + "/Zorvanes.ini");
    QFile ini(MainMod1::SettingsFile);
    ASSERT_TRUE(ini.exists());
    EXPECT_EQ(ini.size(), 0);
    EXPECT_TRUE(MainMod1::ProgramFolder.endsWith('/'));
    EXPECT_EQ(MainMod1::PanelColour, QColor(210, 210, 192));
    EXPECT_EQ(MainMod1::HeaderColour, QColor(145, 145, 115));

    // A settings file that is there is left alone.
    ASSERT_TRUE(ini.open(QIODevice::WriteOnly));
    ini.write("[Settings]\r\nDisableSound=2\r\n");
    ini.close();
    ASSERT_TRUE(MainMod1::Startup(dir.path(), report));
    EXPECT_EQ(QFileInfo(MainMod1::SettingsFile).size(), 28);
    EXPECT_TRUE(MainMod1::Sounds.SoundDisabled);
}

TEST(Startup, FolderThatCannotHoldTheFileEndsTheProgram)
{
    QTemporaryDir dir;
    const QString missing = dir.filePath("no/such/folder");
    QString caption, text;
    EXPECT_FALSE(MainMod1::Startup(missing, [&](const QString &c, const QString &t) {
        caption = c;
        text = t;
    }));
    EXPECT_EQ(caption, "Can't find ini file");
    const QStringList lines = text.split('\n');
    ASSERT_EQ(lines.size(), 3);
    EXPECT_EQ(lines[0], "This software failed to create the file " + missing + "/Zorvanes.ini");
    EXPECT_EQ(lines[1], "This file is required by the program for saving settings");
    EXPECT_EQ(lines[2], "Please create an empty text file and save it as Zorvanes.ini in the My Documents "
                        "folder then restart the program.");
}

TEST(Startup, UnreadableSoundFileIsReportedAndTheProgramGoesOn)
{
    QTemporaryDir dir;
    QFile ini(dir.filePath("Zorvanes.ini"));
    ASSERT_TRUE(ini.open(QIODevice::WriteOnly));
    ini.write(("[Settings]\r\nSOUND1=" + dir.path() + "\r\n").toUtf8()); // a folder, not a file
    ini.close();
    QString text;
    EXPECT_TRUE(MainMod1::Startup(dir.path(), [&](const QString &, const QString &t) { text = t; }));
    EXPECT_TRUE(text.startsWith("Run-time error '75': Path/File access error")) << text.toStdString();
}

TEST(Startup, AMissingDocumentsFolderIsMade)
{
    QStandardPaths::setTestModeEnabled(true);
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    QDir(folder).removeRecursively();
    ASSERT_FALSE(QDir(folder).exists());
    EXPECT_EQ(MainMod1::GetSpecialFolderPath(), folder);
    EXPECT_TRUE(QDir(folder).exists()) << "or the settings file could never be created";
    QDir(folder).removeRecursively();
    QStandardPaths::setTestModeEnabled(false);
}

namespace {

// Runs the start-up with a watchdog: a start that blocks or takes all memory must fail the
// test, not hang it. The watchdog ends the process after a generous while, naming the case.
bool WatchedStartup(const QString &folder, const char *what, QStringList &reports)
{
    std::mutex m;
    std::condition_variable cv;
    bool done = false;
    std::thread watchdog([&] {
        std::unique_lock<std::mutex> lock(m);
        if (!cv.wait_for(lock, std::chrono::seconds(30), [&] { return done; })) {
            std::fprintf(stderr, "start-up did not return: %s\n", what);
            std::_Exit(3);
        }
    });
    const bool ready = MainMod1::Startup(folder, [&](const QString &caption, const QString &text) {
        reports << caption + ": " + text;
    });
    {
        std::lock_guard<std::mutex> lock(m);
        done = true;
    }
    cv.notify_one();
    watchdog.join();
    return ready;
}

void WriteSettings(const QString &path, const QByteArray &bytes)
{
    QFile f(path);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
    f.write(bytes);
}

} // namespace

TEST(Startup, HostileSettingsFilesNeitherStopNorHoldTheStart)
{
    QTemporaryDir dir;
    const QString ini = dir.filePath("Zorvanes.ini");
    QStringList reports;

    // Binary junk: no keys in it, nothing to say.
    QByteArray junk(64 * 1024, '\0');
    for (int i = 0; i < junk.size(); ++i)
        junk[i] = char((i * 7919) ^ (i >> 3));
    WriteSettings(ini, junk);
    ASSERT_TRUE(WatchedStartup(dir.path(), "binary", reports));
    EXPECT_TRUE(reports.isEmpty()) << reports.join('|').toStdString();
    EXPECT_EQ(MainMod1::Sounds.buffers[0], MainMod1::BuiltInSound(1));

    // 10 MB of blank lines: refused at once, reported, left as it is.
    WriteSettings(ini, "[Settings]\r\nDisableSound=1\r\n" + QByteArray(10 << 20, '\n'));
    ASSERT_TRUE(WatchedStartup(dir.path(), "10 MB", reports));
    ASSERT_EQ(reports.size(), 1);
    EXPECT_EQ(reports[0], "Zorvane Reaction Times: The settings file " + ini +
                              " can't be read: it is larger than 4 MB.\nThe program starts with its own settings "
                              "and sounds and does not change that file.");
    EXPECT_FALSE(MainMod1::Sounds.SoundDisabled);
    EXPECT_GT(QFileInfo(ini).size(), 10 << 20);

    // UTF-16 with its mark is read.
    reports.clear();
    const QString text = QStringLiteral("[Settings]\r\nDisableSound=1\r\n");
    QByteArray utf16("\xFF\xFE", 2);
    utf16.append(reinterpret_cast<const char *>(text.utf16()), text.size() * 2);
    WriteSettings(ini, utf16);
    ASSERT_TRUE(WatchedStartup(dir.path(), "UTF-16", reports));
    EXPECT_TRUE(reports.isEmpty());
    EXPECT_TRUE(MainMod1::Sounds.SoundDisabled);

#if defined(__unix__)
    // A pipe in the settings file's place.
    QFile::remove(ini);
    ASSERT_EQ(::mkfifo(QFile::encodeName(ini).constData(), 0600), 0);
    ASSERT_TRUE(WatchedStartup(dir.path(), "pipe as settings", reports));
    ASSERT_EQ(reports.size(), 1);
    EXPECT_TRUE(reports[0].contains(ini + " can't be read: it is not an ordinary file.")) << reports[0].toStdString();
    QFile::remove(ini);

    // Sounds that are no sound files: a device, a pipe, an oversized file, a text.
    reports.clear();
    const QString pipe = dir.filePath("cue.wav");
    ASSERT_EQ(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    const QString huge = dir.filePath("huge.wav");
    {
        QFile f(huge);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        ASSERT_TRUE(f.resize(300LL << 20)); // sparse: no disk space taken
    }
    const QString note = dir.filePath("note.wav");
    WriteSettings(note, "not a wave");
    WriteSettings(ini, ("[Settings]\r\nSOUND1=/dev/zero\r\nSOUND2=" + pipe + "\r\nSOUND3=" + huge +
                        "\r\nSOUND4=" + note + "\r\n")
                           .toUtf8());
    ASSERT_TRUE(WatchedStartup(dir.path(), "hostile sounds", reports));
    ASSERT_EQ(reports.size(), 1);
    const QStringList problems = reports[0].split(QStringLiteral("\n\n"));
    ASSERT_EQ(problems.size(), 4) << reports[0].toStdString();
    const char *why[4] = {"it is not an ordinary file", "it is not an ordinary file", "it is larger than 16 MB",
                          "it holds no wave sound the program can play"};
    const QString named[4] = {"/dev/zero", pipe, huge, note};
    for (int i = 0; i < 4; ++i) {
        EXPECT_TRUE(problems[i].contains("Run-time error '75': Path/File access error\nThe sound file " + named[i] +
                                         " named by SOUND" + QString::number(i + 1) + " can't be used: " + why[i] +
                                         ". The program's own sound is played instead."))
            << problems[i].toStdString();
        EXPECT_EQ(MainMod1::Sounds.buffers[size_t(i)], MainMod1::BuiltInSound(i + 1)) << i;
    }
#endif
}

TEST(Startup, PicturesOfHiddenPagesAreReadWhenTheyFirstShow)
{
    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());
    QImage picture(40, 30, QImage::Format_RGB32);
    picture.fill(qRgb(10, 200, 30));
    picture.setPixel(5, 7, qRgb(250, 0, 0));
    const QString path = dir.filePath(QStringLiteral("stage.png"));
    ASSERT_TRUE(picture.save(path));

    QWidget host;
    host.resize(200, 100);
    auto *eager = new PagePanel(&host);
    auto *lazy = new PagePanel(&host);
    for (PagePanel *panel : {eager, lazy}) {
        panel->setGeometry(0, 0, 60, 50);
        panel->setBackColor(QColor(236, 240, 226));
        panel->hide();
    }
    eager->setPicture(picture);
    lazy->setPictureFile(path);
    auto *label = new QLabel(lazy);
    SetPixmapWhenShown(label, path);
    EXPECT_TRUE(label->pixmap().isNull()) << "nothing is read while the page is hidden";
    host.show();
    lazy->show();
    eager->show();
    EXPECT_FALSE(label->pixmap().isNull());
    EXPECT_EQ(label->pixmap().toImage().convertToFormat(QImage::Format_RGB32), picture);
    label->hide();
    EXPECT_EQ(lazy->grab().toImage().convertToFormat(QImage::Format_RGB32),
              eager->grab().toImage().convertToFormat(QImage::Format_RGB32));
}

TEST(Startup, TheFourSoundsAreConvertedSoonAfterStartUp)
{
    QTemporaryDir dir;
    ASSERT_TRUE(MainMod1::Startup(dir.path(), [](const QString &, const QString &) {}));
    auto &player = SoundBas::SoundPlayer::instance();
    QTest::qWait(600);
    // Each buffer is kept converted now: preparing one again adds nothing.
    const int kept = player.preparedCount();
    EXPECT_GE(kept, 4);
    for (const QByteArray &sound : MainMod1::Sounds.buffers)
        EXPECT_TRUE(player.Prepare(sound));
    EXPECT_EQ(player.preparedCount(), kept);
}
