// Settings files that a pupil's machine may hold can never keep the window from the screen: it,
// or the message that names the problem, is there within three seconds every time.

#include "JourneyHarness.h"

#include <QFile>
#include <gtest/gtest.h>

using namespace journey;

namespace {

void ExpectPromptStart(Program &p, int boxes, const char *what)
{
    ASSERT_TRUE(p.started()) << what;
    EXPECT_GE(p.firstWindowMs(), 0) << what;
    EXPECT_LT(p.firstWindowMs(), 3000) << what;
    EXPECT_EQ(p.startupBoxes(), boxes) << what;
    EXPECT_TRUE(p.control(QStringLiteral("command1")).enabled) << what;
}

} // namespace

TEST(StartJourney, HostileSettingsNeverHoldTheWindowBack)
{
    {
        Options o;
        QByteArray junk(64 * 1024, '\0');
        for (int i = 0; i < junk.size(); ++i)
            junk[i] = char((i * 7919) ^ (i >> 3));
        o.settingsBytes = junk;
        Program p(o);
        ExpectPromptStart(p, 0, "binary settings");
    }
    {
        Options o;
        o.settingsBytes = "[Settings]\r\n" + QByteArray(10 << 20, '\n');
        Program p(o);
        ExpectPromptStart(p, 1, "10 MB settings");
    }
    {
        Options o;
        const QString text = QStringLiteral("[Settings]\r\nDisableSound=1\r\n");
        QByteArray utf16("\xFF\xFE", 2);
        utf16.append(reinterpret_cast<const char *>(text.utf16()), text.size() * 2);
        o.settingsBytes = utf16;
        Program p(o);
        ExpectPromptStart(p, 0, "UTF-16 settings");
    }
    {
        Options o;
        o.soundFiles = {QStringLiteral("/dev/zero")};
        Program p(o);
        ExpectPromptStart(p, 1, "/dev/zero as a sound");
    }
}

TEST(StartJourney, APipeAsTheSettingsFileNeverHoldsTheWindowBack)
{
    Options o;
    o.settingsIsPipe = true;
    Program p(o);
    ExpectPromptStart(p, 1, "a pipe as the settings file");
}
