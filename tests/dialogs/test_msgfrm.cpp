#include "dialogs/FormulaView.h"
#include "dialogs/IconStrip.h"
#include "dialogs/MsgBoxes.h"
#include "dialogs/msgFrm.h"

#include "ScaledScreen.h"

#include "common/RunTimeError.h"

#include <QApplication>
#include <QCheckBox>
#include <QFrame>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QTimer>

#include <QTest>
#include <gtest/gtest.h>

using namespace zrt;

namespace {

QRect Screen()
{
    return QGuiApplication::primaryScreen()->geometry();
}

MsgBoxArgs Centred(const QString &text, qint32 flags)
{
    MsgBoxArgs args;
    args.Text = text;
    args.Flags = flags;
    args.NoPointer = true;
    return args;
}

// The offscreen platform cannot cut windows to shape and says so for every balloon; the shape
// is checked through BalloonRegion() instead.
const QtMessageHandler kDefaultHandler = qInstallMessageHandler([](QtMsgType type, const QMessageLogContext &context, const QString &text) {
    if (!text.contains(QStringLiteral("does not support setting window masks")))
        kDefaultHandler(type, context, text);
});

// Resets the shared hooks when a test ends, whatever happened in it.
class MsgFrmTest : public ::testing::Test {
protected:
    void TearDown() override
    {
        msgFrm::setShownHook({});
        msgFrm::setNoticeHandler({});
        msgFrm::setBrowseHandler({});
    }
};

void SendMouse(QWidget *target, QEvent::Type type, QPoint global, Qt::MouseButton button, Qt::MouseButtons buttons)
{
    QMouseEvent event(type, QPointF(target->mapFromGlobal(global)), QPointF(global), button, buttons, Qt::NoModifier);
    QApplication::sendEvent(target, &event);
}

} // namespace

TEST_F(MsgFrmTest, EachButtonSetShowsItsCaptionsAndAnswersWithItsNumber)
{
    struct Expected {
        qint32 flags;
        QStringList captions;
        QList<int> answers;
    };
    const QList<Expected> sets{
        {0, {"OK"}, {1}},
        {1, {"OK", "Cancel"}, {1, 2}},
        {2, {"Abort", "Retry", "Ignore"}, {3, 4, 5}},
        {3, {"Yes", "No", "Cancel"}, {6, 7, 2}},
        {4, {"Yes", "No"}, {6, 7}},
        {5, {"Retry", "Cancel"}, {4, 2}},
    };
    for (const Expected &set : sets) {
        for (int pressed = 0; pressed < set.captions.size(); ++pressed) {
            msgFrm frm;
            frm.PrepareMsgBox(Centred(QStringLiteral("Question"), set.flags | 64));
            frm.show();
            for (int i = 0; i < 3; ++i) {
                const bool inSet = i < set.captions.size();
                EXPECT_EQ(frm.cmd1(i)->isVisible(), inSet) << set.flags << " button " << i;
                if (inSet) {
                    EXPECT_EQ(frm.cmd1(i)->text(), set.captions[i]);
                }
            }
            // The row of buttons shown stands in the middle of the panel.
            const QRect row = QRect(frm.cmd1(0)->mapTo(frm.F1(0), QPoint(0, 0)), QSize(1, 1))
                                  .united(QRect(frm.cmd1(set.captions.size() - 1)->mapTo(frm.F1(0), QPoint(0, 0)),
                                                frm.cmd1(0)->size()));
            EXPECT_LE(qAbs(row.center().x() - frm.F1(0)->width() / 2), 1) << set.flags;
            frm.cmd1(pressed)->click();
            EXPECT_FALSE(frm.isVisible());
            EXPECT_EQ(frm.FinishMsgBox(), set.answers[pressed]) << set.flags << " button " << pressed;
        }
    }
}

TEST_F(MsgFrmTest, SetsSixAndSevenLeaveOneBlankButtonAndCallerCaptionsReplaceTheSetsOwn)
{
    for (qint32 flags : {6, 7}) {
        msgFrm frm;
        frm.PrepareMsgBox(Centred(QStringLiteral("x"), flags));
        frm.show();
        EXPECT_TRUE(frm.cmd1(0)->isVisible());
        EXPECT_TRUE(frm.cmd1(0)->text().isEmpty());
        EXPECT_FALSE(frm.cmd1(1)->isVisible());
        frm.cmd1(0)->click();
        EXPECT_EQ(frm.FinishMsgBox(), 0);
    }
    msgFrm frm;
    MsgBoxArgs args = Centred(QStringLiteral("Keep it?"), 4);
    args.Caption2 = QStringLiteral("Discard");
    args.Caption3 = QStringLiteral("Unused");
    frm.PrepareMsgBox(args);
    EXPECT_EQ(frm.cmd1(0)->text(), "Yes");
    EXPECT_EQ(frm.cmd1(1)->text(), "Discard");
    EXPECT_EQ(frm.cmd1(2)->text(), "Unused");
    EXPECT_FALSE(frm.cmd1(2)->isVisibleTo(&frm)) << "a caption does not show a button outside the set";
    EXPECT_EQ(frm.ButtonTag(1), 7);
}

TEST_F(MsgFrmTest, DefaultButtonTakesTheFocus)
{
    const QList<QPair<qint32, int>> cases{{3, 0}, {3 | 256, 1}, {3 | 512, 2}, {0 | 256, 0}};
    for (const auto &[flags, focused] : cases) {
        msgFrm frm;
        frm.PrepareMsgBox(Centred(QStringLiteral("x"), flags));
        frm.show();
        EXPECT_EQ(frm.focusWidget(), frm.cmd1(focused)) << flags;
        EXPECT_TRUE(frm.cmd1(focused)->isDefault()) << flags;
    }
    msgFrm frm;
    frm.SetDefaultButton(512);
    EXPECT_EQ(frm.DefaultButton(), 3);
    frm.SetDefaultButton(0);
    EXPECT_EQ(frm.DefaultButton(), 1);
}

TEST_F(MsgFrmTest, TickedCheckBoxAddsOneHundred)
{
    msgFrm frm;
    MsgBoxArgs args = Centred(QStringLiteral("Save now?"), 4);
    args.CheckText = QStringLiteral("Don't ask again");
    frm.PrepareMsgBox(args);
    frm.show();
    ASSERT_TRUE(frm.Check1()->isVisible());
    EXPECT_EQ(frm.Check1()->text(), args.CheckText);
    EXPECT_GT(frm.Check1()->y(), frm.lblmsg()->geometry().bottom());
    EXPECT_LT(frm.Check1()->geometry().bottom(), frm.cmd1(0)->mapTo(frm.F1(0), QPoint(0, 0)).y());
    // The box sits on the balloon's own colour, without a patch of another ground.
    const QImage face = frm.grab().toImage();
    const QRect box = QRect(frm.Check1()->mapTo(&frm, QPoint(0, 0)), frm.Check1()->size());
    int foreign = 0;
    for (int y = box.top(); y <= box.bottom(); ++y)
        for (int x = box.left(); x <= box.right(); ++x) {
            const QColor c(face.pixel(x, y));
            // Text and the indicator are dark or white; a ground of another tone is a patch.
            if (c != QColor(255, 255, 204) && c.saturation() < 30 && c.value() > 150 && c.value() < 250)
                ++foreign;
        }
    EXPECT_LT(foreign, box.width() * box.height() / 10) << "grey ground behind the check box";
    frm.Check1()->setChecked(true);
    frm.cmd1(1)->click();
    EXPECT_EQ(frm.FinishMsgBox(), 107);

    msgFrm plain;
    plain.PrepareMsgBox(Centred(QStringLiteral("x"), 0));
    EXPECT_FALSE(plain.Check1()->isVisibleTo(&plain));
}

TEST_F(MsgFrmTest, BackColourDefaultsToPaleYellowAndPaintsTheFace)
{
    msgFrm frm;
    frm.PrepareMsgBox(Centred(QStringLiteral("x"), 0));
    EXPECT_EQ(frm.BackColour(), RGB(255, 255, 204));
    EXPECT_EQ(frm.F1(0)->palette().color(QPalette::Window), QColor(255, 255, 204));

    msgFrm pink;
    MsgBoxArgs args = Centred(QStringLiteral("x"), 64);
    args.BackColour = RGB(227, 207, 207);
    pink.PrepareMsgBox(args);
    EXPECT_EQ(pink.BackColour(), RGB(227, 207, 207));
    const QImage image = pink.grab().toImage();
    // Left of the panel, inside the face.
    EXPECT_EQ(QColor(image.pixel(4, pink.height() / 2)), QColor(227, 207, 207));
}

TEST_F(MsgFrmTest, FormWidthShadowTagAndHeightFollowTheText)
{
    msgFrm frm;
    MsgBoxArgs args = Centred(QStringLiteral("Short."), 64);
    args.FormWidth = 8055;
    args.Shadow = 60;
    frm.PrepareMsgBox(args);
    EXPECT_EQ(frm.width(), qRound(8055.0 / frm.TwipsPerPixelX()));
    EXPECT_EQ(frm.Tag(), "60");
    EXPECT_FALSE(frm.lblmsg()->property("LabelValue").isValid()) << "0 writes nothing";
    EXPECT_EQ(frm.F1(0)->geometry(), QRect(8, 30, frm.width() - 30, frm.F1(0)->height()));
    EXPECT_EQ(frm.height(), frm.F1(0)->height() + 65);
    const int shortHeight = frm.height();

    msgFrm longer;
    args.Text = QString(QStringLiteral("An outlier is far removed in value from the others. ")).repeated(12);
    longer.PrepareMsgBox(args);
    EXPECT_GT(longer.height(), shortHeight);
    EXPECT_GE(longer.F1(0)->height(), longer.lblmsg()->geometry().bottom() + 1);

    msgFrm odd; // a nonsense width leaves a usable window
    args.FormWidth = -500;
    odd.PrepareMsgBox(args);
    EXPECT_GT(odd.F1(0)->width(), 0);
}

TEST_F(MsgFrmTest, ShadowIsATranslucentBandBesideTheFaceAndGoesWhileDragging)
{
    msgFrm frm;
    frm.PrepareMsgBox(Centred(QStringLiteral("x"), 0));
    frm.show();
    // Drawn over white as the screen would show it: the band darkens what lies behind.
    auto composed = [&frm] {
        QImage image(frm.size(), QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        painter.setClipRegion(frm.BalloonRegion());
        frm.render(&painter, frm.BalloonRegion().boundingRect().topLeft());
        return image;
    };
    const QPoint band(frm.width() - 10, frm.height() / 2);
    const QColor shaded = composed().pixel(band);
    EXPECT_LT(shaded.lightness(), 250);
    EXPECT_GT(shaded.lightness(), 60) << "translucent, not solid";

    const QPoint start = frm.mapToGlobal(QPoint(30, 40));
    SendMouse(&frm, QEvent::MouseButtonPress, start, Qt::LeftButton, Qt::LeftButton);
    EXPECT_EQ(QColor(composed().pixel(band)), QColor(Qt::white));
    SendMouse(&frm, QEvent::MouseButtonRelease, start, Qt::LeftButton, Qt::NoButton);
    EXPECT_EQ(QColor(composed().pixel(band)), shaded);
}

TEST_F(MsgFrmTest, TextWithMarksIsDrawnInsteadOfTheLabel)
{
    msgFrm frm;
    frm.PrepareMsgBox(Centred(QStringLiteral("Variance = s^2"), 64));
    frm.show();
    EXPECT_FALSE(frm.lblmsg()->isVisible());
    EXPECT_TRUE(frm.Picmsg()->isVisible());
    EXPECT_EQ(frm.Picmsg()->geometry(), frm.lblmsg()->geometry());

    msgFrm plain;
    plain.PrepareMsgBox(Centred(QStringLiteral("Lowest value = 0.21"), 64));
    plain.show();
    EXPECT_TRUE(plain.lblmsg()->isVisible());
    EXPECT_FALSE(plain.Picmsg()->isVisible());
}

TEST_F(MsgFrmTest, IconCellFollowsTheIconBits)
{
    msgFrm frm;
    frm.SetDisplayIcon(64, frm.P1());
    ASSERT_FALSE(frm.P1()->isHidden());
    const QImage information = frm.P1()->pixmap().toImage();
    EXPECT_EQ(information.size(), QSize(32, 32));
    frm.SetDisplayIcon(16, frm.P1());
    EXPECT_NE(frm.P1()->pixmap().toImage(), information);
    frm.SetDisplayIcon(0, frm.P1());
    EXPECT_TRUE(frm.P1()->isHidden());
    frm.SetDisplayIcon(112, frm.P1());
    EXPECT_TRUE(frm.P1()->isHidden());

    EXPECT_EQ(IconStrip::CellForFlags(96 | 4 | 256), 5);
    // Every cell is drawn, and no two alike.
    QList<QImage> cells;
    for (int i = 0; i < IconStrip::kCells; ++i) {
        const QImage cell = IconStrip::Cell(IconStrip::Strip(), i).toImage();
        EXPECT_FALSE(cell.isNull());
        EXPECT_FALSE(cells.contains(cell)) << i;
        cells.append(cell);
    }
    EXPECT_TRUE(IconStrip::Cell(IconStrip::Strip(), IconStrip::kCells).isNull());
}

TEST_F(MsgFrmTest, PointerTouchesTheGivenPointFromEachQuarter)
{
    const QRect screen = Screen();
    const QList<QPair<QPoint, BalloonShape::PointerStyle>> cases{
        {screen.topLeft() + QPoint(100, 80), BalloonShape::UpperLeft},
        {screen.topLeft() + QPoint(screen.width() - 100, 80), BalloonShape::UpperRight},
        {screen.topLeft() + QPoint(100, screen.height() - 80), BalloonShape::LowerLeft},
        {screen.topLeft() + QPoint(screen.width() - 100, screen.height() - 80), BalloonShape::LowerRight},
    };
    for (const auto &[point, style] : cases) {
        msgFrm frm;
        MsgBoxArgs args = Centred(QStringLiteral("Mean Data Point : (0.3,0.4)"), 64);
        args.NoPointer = false;
        args.PointX = static_cast<float>(point.x());
        args.PointY = static_cast<float>(point.y());
        frm.PrepareMsgBox(args);
        EXPECT_EQ(frm.PointerStyle(), style);
        EXPECT_EQ(frm.pos() + BalloonShape::TipInWindow(style, frm.size()), point);
        EXPECT_FALSE((frm.BalloonRegion() & BalloonShape::PointerRegion(style, frm.size())).isEmpty());
    }
}

TEST_F(MsgFrmTest, NoPointerCentresTheBalloonOnTheScreen)
{
    msgFrm frm;
    frm.PrepareMsgBox(Centred(QStringLiteral("x"), 0));
    const QRect screen = Screen();
    EXPECT_EQ(frm.PointerStyle(), BalloonShape::NoPointer);
    EXPECT_EQ(frm.pos(), QPoint(screen.left() + (screen.width() - frm.width()) / 2,
                                screen.top() + (screen.height() - frm.height()) / 2));
    EXPECT_TRUE(frm.ShadowShown());
    EXPECT_EQ(frm.BalloonRegion(), BalloonShape::MainRegion(frm.size()) + BalloonShape::ShadowRegion(frm.size()));
}

TEST_F(MsgFrmTest, ZeroCoordinateMeansTheMousePointer)
{
    const QRect screen = Screen();
    const QPoint mouse = screen.topLeft() + QPoint(screen.width() - 150, 120);
    QCursor::setPos(mouse);
    if (QCursor::pos() != mouse)
        GTEST_SKIP() << "this platform does not move the pointer";
    msgFrm frm;
    MsgBoxArgs args = Centred(QStringLiteral("x"), 0);
    args.NoPointer = false;
    args.PointX = 300; // one coordinate 0 is enough
    frm.PrepareMsgBox(args);
    EXPECT_EQ(frm.PointerStyle(), BalloonShape::UpperRight);
    EXPECT_EQ(frm.pos() + BalloonShape::TipInWindow(BalloonShape::UpperRight, frm.size()), mouse);
}

TEST_F(MsgFrmTest, DraggingMovesTheFaceAloneAndThenDropsThePointer)
{
    const QRect screen = Screen();
    msgFrm frm;
    MsgBoxArgs args = Centred(QStringLiteral("Drag me"), 0);
    args.NoPointer = false;
    args.PointX = static_cast<float>(screen.left() + 150);
    args.PointY = static_cast<float>(screen.top() + 100);
    args.Shadow = 60;
    frm.PrepareMsgBox(args);
    frm.show();
    ASSERT_EQ(frm.PointerStyle(), BalloonShape::UpperLeft);

    const QPoint start = frm.mapToGlobal(QPoint(30, 40));
    const QPoint before = frm.pos();
    SendMouse(&frm, QEvent::MouseButtonPress, start, Qt::LeftButton, Qt::LeftButton);
    EXPECT_TRUE(frm.Dragging());
    EXPECT_EQ(frm.BalloonRegion(), BalloonShape::MainRegion(frm.size()));
    SendMouse(&frm, QEvent::MouseMove, start + QPoint(25, 40), Qt::NoButton, Qt::LeftButton);
    EXPECT_EQ(frm.pos(), before + QPoint(25, 40));
    SendMouse(&frm, QEvent::MouseButtonRelease, start + QPoint(25, 40), Qt::LeftButton, Qt::NoButton);
    EXPECT_FALSE(frm.Dragging());
    EXPECT_EQ(frm.PointerStyle(), BalloonShape::NoPointer);
    EXPECT_EQ(frm.BalloonRegion(), BalloonShape::MainRegion(frm.size()) + BalloonShape::ShadowRegion(frm.size()));

    // Off the screen's edge the shadow is left out.
    frm.move(screen.left() - 50, frm.y());
    frm.n_RefreshShadow(60);
    EXPECT_FALSE(frm.ShadowShown());
    EXPECT_EQ(frm.BalloonRegion(), BalloonShape::MainRegion(frm.size()));
}

TEST_F(MsgFrmTest, InputPanelCannotBeDragged)
{
    msgFrm frm;
    InputBoxArgs args;
    args.Prompt = QStringLiteral("Name?");
    args.NoPointer = true;
    frm.PrepareInputBox(args);
    frm.show();
    const QPoint before = frm.pos();
    const QPoint start = frm.mapToGlobal(QPoint(30, 40));
    SendMouse(&frm, QEvent::MouseButtonPress, start, Qt::LeftButton, Qt::LeftButton);
    SendMouse(&frm, QEvent::MouseMove, start + QPoint(20, 20), Qt::NoButton, Qt::LeftButton);
    EXPECT_FALSE(frm.Dragging());
    EXPECT_EQ(frm.pos(), before);
}

TEST_F(MsgFrmTest, EscapeActsAsCancelOrAsTheOnlyButton)
{
    msgFrm yesNoCancel;
    yesNoCancel.PrepareMsgBox(Centred(QStringLiteral("x"), 3));
    yesNoCancel.show();
    yesNoCancel.reject();
    EXPECT_FALSE(yesNoCancel.isVisible());
    EXPECT_EQ(yesNoCancel.FinishMsgBox(), 2);

    msgFrm yesNo;
    yesNo.PrepareMsgBox(Centred(QStringLiteral("x"), 4));
    yesNo.show();
    yesNo.reject();
    EXPECT_TRUE(yesNo.isVisible()) << "Yes/No must be answered";

    msgFrm ok;
    ok.PrepareMsgBox(Centred(QStringLiteral("x"), 0));
    ok.show();
    ok.reject();
    EXPECT_FALSE(ok.isVisible());
    EXPECT_EQ(ok.FinishMsgBox(), 1);
}

TEST_F(MsgFrmTest, BadControlIndexIsRunTimeError381)
{
    msgFrm frm;
    for (auto call : {+[](msgFrm &f) { f.cmd1(3); }, +[](msgFrm &f) { f.F1(-1); }, +[](msgFrm &f) { f.Text1(2); },
                      +[](msgFrm &f) { f.ButtonTag(3); }}) {
        try {
            call(frm);
            ADD_FAILURE() << "no error";
        } catch (const RunTimeError &error) {
            EXPECT_EQ(error.number(), 381);
        }
    }
}

// ---- the modal entries, driven through the shown hook -------------------------------------

TEST_F(MsgFrmTest, MsgBoxEntryRunsModallyAndReturnsThePressedButton)
{
    int shown = 0;
    msgFrm::setShownHook([&](msgFrm &frm) {
        ++shown;
        EXPECT_TRUE(frm.isVisible());
        EXPECT_TRUE(frm.isModal());
        EXPECT_EQ(frm.LblTitle()->text(), "File Exist");
        frm.cmd1(1)->click();
    });
    EXPECT_EQ(msg_Box(QStringLiteral("Replace it?"), 4 | 32, QStringLiteral("File Exist")), 7);
    EXPECT_EQ(shown, 1);
}

TEST_F(MsgFrmTest, AutoBoxClosesItselfWhenItsTimerFires)
{
    int interval = -1;
    msgFrm::setShownHook([&](msgFrm &frm) {
        interval = frm.Timer1()->interval();
        EXPECT_TRUE(frm.Timer1()->isActive());
        EXPECT_TRUE(frm.windowFlags() & Qt::WindowStaysOnTopHint);
        EXPECT_EQ(frm.aTitle()->text(), "Auto Timed Msgbox");
        EXPECT_TRUE(frm.aMsg()->text().contains("This message will automatically close in 3 seconds."));
        frm.Timer1_Timer(); // as if three seconds had gone by
    });
    AutoBoxArgs args;
    args.Text = QStringLiteral("Saved.");
    args.Seconds = 3;
    args.NoPointer = true;
    EXPECT_EQ(MsgAuto_box(args), 0);
    EXPECT_EQ(interval, 3000);

    msgFrm::setShownHook([](msgFrm &frm) { frm.command1()->click(); });
    EXPECT_EQ(MsgAuto_box(args), 1);
}

TEST_F(MsgFrmTest, InputBoxWantsTextAndGivesItBack)
{
    bool stayedWhenEmpty = false;
    msgFrm::setShownHook([&](msgFrm &frm) {
        EXPECT_EQ(frm.iTxt()->text(), "default");
        EXPECT_EQ(frm.iMsg()->text(), "Your name:");
        frm.iTxt()->clear();
        frm.iCmd(1)->click();
        stayedWhenEmpty = frm.isVisible();
        frm.iTxt()->setText(QStringLiteral("Ada"));
        frm.iCmd(1)->click();
    });
    InputBoxArgs args;
    args.Prompt = QStringLiteral("Your name:");
    args.Title = QStringLiteral("Name");
    args.Default = QStringLiteral("default");
    args.NoPointer = true;
    EXPECT_EQ(input_box(args), "Ada");
    EXPECT_TRUE(stayedWhenEmpty);

    msgFrm::setShownHook([](msgFrm &frm) { frm.iCmd(0)->click(); });
    EXPECT_EQ(input_box(args), QString());

    // Enter in the text field gives the text back as OK does.
    msgFrm::setShownHook([](msgFrm &frm) {
        frm.iTxt()->setText(QStringLiteral("Grace"));
        QTest::keyClick(frm.iTxt(), Qt::Key_Return);
    });
    EXPECT_EQ(input_box(args), "Grace");
}

TEST_F(MsgFrmTest, FileLinkChecksEmptinessAndJoinsTheFieldsWithTheNotSign)
{
    QStringList notices;
    msgFrm::setNoticeHandler([&](const QString &text, const QString &caption) { notices << caption + ": " + text; });
    QString browseTitle;
    msgFrm::setBrowseHandler([&](QWidget *, const QString &title, const QString &) {
        browseTitle = title;
        return QStringLiteral("/home/pupil/data.rtd");
    });
    msgFrm::setShownHook([&](msgFrm &frm) {
        EXPECT_EQ(frm.Label2(0)->text(), "Enter the File or URL to create a link with:");
        EXPECT_EQ(frm.Label2(1)->text(), "Enter a name for this link:");
        frm.nCmd(0)->click(); // both empty
        frm.Text1(0)->setText(QStringLiteral("typed"));
        frm.nCmd(0)->click(); // the name empty
        EXPECT_TRUE(frm.isVisible());
        frm.cmdbrowse()->click();
        frm.Text1(1)->setText(QStringLiteral("My data"));
        frm.nCmd(0)->click();
    });
    FileLinkArgs args;
    args.NoPointer = true;
    EXPECT_EQ(File_Link(args), QStringLiteral("/home/pupil/data.rtd") + QChar(172) + QStringLiteral("My data"));
    EXPECT_EQ(browseTitle, " Select the file to create a link for :");
    ASSERT_EQ(notices.size(), 2);
    EXPECT_EQ(notices[0], "Invalid Filename: You must enter a valid file path or a correctly formatted URL.");
    EXPECT_EQ(notices[1], "Invalid name: You must enter a Name for the link");

    // An address needs no browsing, and Cancel gives nothing back.
    msgFrm::setShownHook([](msgFrm &frm) { frm.nCmd(1)->click(); });
    args.File = QStringLiteral("http://example.org");
    args.Name = QStringLiteral("Site");
    EXPECT_EQ(File_Link(args), QString());
    msgFrm::setBrowseHandler([](QWidget *, const QString &, const QString &) { return QString(); });
    msgFrm::setShownHook([](msgFrm &frm) {
        frm.cmdbrowse()->click(); // browsing given up keeps the typed address
        frm.nCmd(0)->click();
    });
    EXPECT_EQ(File_Link(args), QStringLiteral("http://example.org") + QChar(172) + QStringLiteral("Site"));
}

// ---- on a screen scaled to 200 % -------------------------------------------------------------

namespace {
class IconStripHighDpi : public ScaledScreenTest {};
} // namespace

TEST_F(IconStripHighDpi, CellsAreDrawnAtTheScreensRatio)
{
    for (int i = 0; i < IconStrip::kCells; ++i) {
        const QPixmap cell = IconStrip::Cell(IconStrip::Strip(), i);
        EXPECT_EQ(cell.devicePixelRatio(), 2.0) << i;
        EXPECT_EQ(cell.size(), QSize(2 * IconStrip::kCellSize, 2 * IconStrip::kCellSize)) << i;
        EXPECT_EQ(cell.deviceIndependentSize().toSize(), QSize(IconStrip::kCellSize, IconStrip::kCellSize)) << i;
        const QImage image = cell.toImage();
        EXPECT_TRUE(HasFineDetail(image, image.rect())) << "cell " << i << " is not blown up from half the pixels";
    }
}
