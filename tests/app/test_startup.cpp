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
