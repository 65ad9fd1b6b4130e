#include "dialogs/AboutFrm.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QTimer>

#include <gtest/gtest.h>

using zrt::AboutFrm;

TEST(AboutFrm, ShowsNameVersionPurposeAndClosesOnOK)
{
    AboutFrm about(QStringLiteral("1.2.3"));
    EXPECT_EQ(about.lblName()->text(), "Zorvane Reaction Times");
    EXPECT_EQ(about.lblVersion()->text(), "Version 1.2.3");
    EXPECT_FALSE(about.lblPurpose()->text().isEmpty());
    about.show();
    about.cmdOK()->click();
    EXPECT_FALSE(about.isVisible());
    EXPECT_EQ(about.result(), QDialog::Accepted);
}

TEST(AboutFrm, ShowAboutReturnsOnceOKIsPressed)
{
    QString seenVersion;
    QTimer::singleShot(0, [&] {
        for (QWidget *w : QApplication::topLevelWidgets())
            if (auto *about = qobject_cast<AboutFrm *>(w); about && about->isVisible() && about->isModal()) {
                seenVersion = about->lblVersion()->text();
                about->cmdOK()->click();
            }
    });
    AboutFrm::ShowAbout(QStringLiteral("1.0.0"));
    EXPECT_EQ(seenVersion, "Version 1.0.0");
}
