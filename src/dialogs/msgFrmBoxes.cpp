// msgFrm: the message box, the timed box, the input box and the link dialog.
#include "dialogs/msgFrm.h"

#include "common/RunTimeError.h"
#include "dialogs/FormulaView.h"
#include "dialogs/IconStrip.h"
#include "dialogs/msgFrmLayout.h"

#include <QCheckBox>
#include <QFileDialog>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QTimer>

#include <climits>

namespace zrt {

namespace {

struct ButtonSet {
    int count;
    std::array<const char *, 3> captions;
    std::array<int, 3> tags;
};

// The answers are those of the standard message box: OK 1, Cancel 2, Abort 3, Retry 4,
// Ignore 5, Yes 6, No 7.
constexpr std::array<ButtonSet, 6> kButtonSets{{
    {1, {"OK", "", ""}, {1, 0, 0}},
    {2, {"OK", "Cancel", ""}, {1, 2, 0}},
    {3, {"Abort", "Retry", "Ignore"}, {3, 4, 5}},
    {3, {"Yes", "No", "Cancel"}, {6, 7, 2}},
    {2, {"Yes", "No", ""}, {6, 7, 0}},
    {2, {"Retry", "Cancel", ""}, {4, 2, 0}},
}};

msgFrm::NoticeHandler &NoticeSlot()
{
    static msgFrm::NoticeHandler handler;
    return handler;
}

msgFrm::BrowseHandler &BrowseSlot()
{
    static msgFrm::BrowseHandler handler;
    return handler;
}

void SetFore(QLabel *label, const QColor &colour)
{
    QPalette palette = label->palette();
    palette.setColor(QPalette::WindowText, colour);
    label->setPalette(palette);
}

} // namespace

void msgFrm::setNoticeHandler(NoticeHandler handler)
{
    NoticeSlot() = std::move(handler);
}

void msgFrm::setBrowseHandler(BrowseHandler handler)
{
    BrowseSlot() = std::move(handler);
}

// ---- the message box ---------------------------------------------------------------------

void msgFrm::PrepareMsgBox(const MsgBoxArgs &args)
{
    m_Answer = 0;
    m_LblTitle->setText(args.Title);
    m_lblmsg->setText(args.Text);
    if (args.FormWidth != 0)
        SetWidthTwips(args.FormWidth);
    m_BackColour = args.BackColour == 0 ? kDefaultBackColour : args.BackColour;
    if (args.Shadow != 0)
        m_Tag = QString::number(args.Shadow);

    QFrame *panel = ShowPanel(MessagePanel);
    const int panelWidth = panel->width();
    PlaceWrappedText(m_lblmsg, ToPixelsY(kTextTop), panelWidth);
    if (args.LabelValue != 0)
        m_lblmsg->setProperty("LabelValue", args.LabelValue);
    if (Draw_Answer(args.Text))
        m_lblmsg->hide();
    else
        m_lblmsg->show();
    const int textBottom = m_lblmsg->geometry().bottom() + 1;
    const int textBottomTwips = textBottom * m_TwipsPerPixelY;

    if (!args.CheckText.isEmpty()) {
        // No ground of its own: the balloon's face shows through around the box and its text.
        m_Check1->setAutoFillBackground(false);
        m_Check1->setAttribute(Qt::WA_NoSystemBackground);
        m_Check1->setText(args.CheckText);
        m_Check1->adjustSize();
        m_Check1->move(m_lblmsg->x(), ToPixelsY(textBottomTwips + kCheckGap));
        m_Check1->show();
    } else {
        m_Check1->hide();
    }
    m_ButtonBar->move(0, ToPixelsY(textBottomTwips + kButtonGap));
    FinishPanelHeight(panel, ToPixelsY(textBottomTwips + kPanelBelow));

    SetDisplayIcon(args.Flags, m_P1);
    PlaceTitle(m_P1, m_LblTitle, panelWidth);
    DrawBalloon(args.NoPointer, args.PointX, args.PointY, args.Shadow);
    SetupButtons(args.Flags, args.Caption1, args.Caption2, args.Caption3);
    CentreButtonBar();
    SetDefaultButton(args.Flags);
}

// The buttons keep their places among themselves; the row of those shown is centred.
void msgFrm::CentreButtonBar()
{
    int shown = 1;
    for (int i = 0; i < 3; ++i)
        if (m_cmd1[i]->isVisibleTo(m_ButtonBar))
            shown = i + 1;
    const int width = ToPixelsX(kButtonLefts[shown - 1] + kButtonWidth);
    m_ButtonBar->setGeometry((m_F1[MessagePanel]->width() - width) / 2, m_ButtonBar->y(), width, ToPixelsY(kButtonHeight));
}

qint16 msgFrm::FinishMsgBox() const
{
    return static_cast<qint16>(m_Check1->isChecked() ? m_Answer + 100 : m_Answer);
}

void msgFrm::SetupButtons(qint32 Flags, const QString &Caption1, const QString &Caption2, const QString &Caption3)
{
    const int set = Flags & 7;
    if (set < static_cast<int>(kButtonSets.size())) {
        const ButtonSet &buttons = kButtonSets[set];
        for (int i = 0; i < 3; ++i) {
            m_cmd1[i]->setText(QString::fromLatin1(buttons.captions[i]));
            m_Tags[i] = buttons.tags[i];
            m_cmd1[i]->setVisible(i < buttons.count);
        }
    } else {
        // Sets 6 and 7 name no buttons. One blank button answering 0 is left, so that the box
        // can still be closed.
        for (int i = 0; i < 3; ++i) {
            m_cmd1[i]->setText({});
            m_Tags[i] = 0;
            m_cmd1[i]->setVisible(i == 0);
        }
    }
    const std::array<const QString *, 3> captions{&Caption1, &Caption2, &Caption3};
    for (int i = 0; i < 3; ++i) {
        if (!captions[i]->isEmpty())
            m_cmd1[i]->setText(*captions[i]);
    }
}

void msgFrm::SetDefaultButton(qint32 flags)
{
    switch (flags & 768) {
    case 0:
        m_DefaultButton = 1;
        break;
    case 256:
        m_DefaultButton = 2;
        break;
    case 512:
        m_DefaultButton = 3;
        break;
    default: // both bits: the standard box knows no fourth button here; keep what was set
        break;
    }
}

void msgFrm::SetDisplayIcon(qint32 flags, QLabel *target)
{
    if (!target)
        return;
    const int cell = IconStrip::CellForFlags(flags);
    if (cell < 0) {
        target->clear();
        target->hide();
        return;
    }
    target->setPixmap(IconStrip::Cell(IconStrip::Strip(), cell));
    target->show();
}

bool msgFrm::Draw_Answer(const QString &text)
{
    if (!FormulaText::HasMarks(text)) {
        m_Picmsg->hide();
        return false;
    }
    m_Picmsg->setFont(m_lblmsg->font());
    m_Picmsg->setText(text);
    // The drawn text takes the label's place and, where its signs need it, a little more height.
    QRect place = m_lblmsg->geometry();
    place.setHeight(qMax(place.height(), m_Picmsg->heightForWidth(place.width())));
    m_lblmsg->setGeometry(place);
    m_Picmsg->setGeometry(place);
    m_Picmsg->show();
    return true;
}

void msgFrm::cmd1_Click(int index)
{
    m_Answer = static_cast<qint16>(m_Tags[index]);
    done(QDialog::Accepted);
}

int msgFrm::ButtonTag(int index) const
{
    if (index < 0 || index > 2)
        zrt::raise(ErrInvalidPropertyIndex);
    return m_Tags[index];
}

// ---- the timed box -----------------------------------------------------------------------

void msgFrm::PrepareAutoBox(const AutoBoxArgs &args)
{
    m_Answer = 0;
    m_BackColour = args.BackColour == 0 ? kDefaultBackColour : args.BackColour;
    const int seconds = qBound(0, args.Seconds, INT_MAX / 1000);
    m_aTitle->setText(args.Title.isEmpty() ? kAutoTitle : args.Title);
    const QString countdown = kAutoText + QString::number(seconds) + (seconds == 1 ? QStringLiteral(" second.") : QStringLiteral(" seconds."));
    m_aMsg->setText(args.Text.isEmpty() ? countdown : args.Text + QStringLiteral("\n\n") + countdown);

    QFrame *panel = ShowPanel(TimedPanel);
    const int panelWidth = panel->width();
    SetDisplayIcon(args.Flags, m_aPic);
    PlaceTitle(m_aPic, m_aTitle, panelWidth);
    const int textBottom = PlaceWrappedText(m_aMsg, ToPixelsY(kTextTop), panelWidth);
    const QSize button(ToPixelsX(kButtonWidth), ToPixelsY(kButtonHeight));
    m_command1->setGeometry((panelWidth - button.width()) / 2, textBottom + ToPixelsY(kButtonGap), button.width(), button.height());
    FinishPanelHeight(panel, textBottom + ToPixelsY(kPanelBelow));

    setWindowFlag(Qt::WindowStaysOnTopHint, true);
    DrawBalloon(args.NoPointer, args.PointX, args.PointY, 0);
    m_Timer1->setInterval(seconds * 1000);
    m_Timer1->start();
}

void msgFrm::Timer1_Timer()
{
    m_Timer1->stop();
    done(QDialog::Rejected);
}

void msgFrm::command1_Click()
{
    m_Timer1->stop();
    m_Answer = 1;
    done(QDialog::Accepted);
}

// ---- the input box -----------------------------------------------------------------------

void msgFrm::PrepareInputBox(const InputBoxArgs &args)
{
    m_Answer = 0;
    m_BackColour = args.BackColour == 0 ? kDefaultBackColour : args.BackColour;
    m_iTitle->setText(args.Title);
    m_iMsg->setText(args.Prompt);
    m_iTxt->setText(args.Default);
    m_iTxt->selectAll();
    SetFore(m_iTitle, TranslateColor(args.ForeColour));
    SetFore(m_iMsg, TranslateColor(args.ForeColour));

    QFrame *panel = ShowPanel(InputPanel);
    const int panelWidth = panel->width();
    SetDisplayIcon(args.Flags, m_iPic);
    PlaceTitle(m_iPic, m_iTitle, panelWidth);
    const int textBottom = PlaceWrappedText(m_iMsg, ToPixelsY(kTextTop), panelWidth);
    const int boxHeight = ToPixelsY(315);
    m_iTxt->setGeometry(m_iMsg->x(), textBottom + 6, m_iMsg->width(), boxHeight);
    const QSize button(ToPixelsX(1110), ToPixelsY(330));
    const int buttonTop = m_iTxt->geometry().bottom() + 1 + ToPixelsY(kCheckGap * 2);
    const int right = m_iMsg->geometry().right() + 1;
    m_iCmd[0]->setGeometry(right - button.width(), buttonTop, button.width(), button.height());
    m_iCmd[1]->setGeometry(right - 2 * button.width() - 8, buttonTop, button.width(), button.height());
    FinishPanelHeight(panel, buttonTop + button.height() + 10);

    DrawBalloon(args.NoPointer, args.PointX, args.PointY, 0);
}

void msgFrm::iCmd_Click(int index)
{
    if (index == 1) {
        m_Answer = 0;
        if (m_iTxt->text().isEmpty())
            return; // nothing to give back yet: the box stays
    } else {
        m_Answer = -1;
    }
    done(index == 1 ? QDialog::Accepted : QDialog::Rejected);
}

QString msgFrm::InputResult() const
{
    return m_Answer == -1 ? QString() : m_iTxt->text();
}

// ---- the link dialog ---------------------------------------------------------------------

void msgFrm::PrepareFileLink(const FileLinkArgs &args)
{
    m_Answer = 0;
    m_BackColour = args.BackColour == 0 ? kDefaultBackColour : args.BackColour;
    m_Label3->setText(args.Title);
    m_Label2[0]->setText(kLinkFileLabel);
    m_Label2[1]->setText(kLinkNameLabel);
    m_Text1[0]->setText(args.File);
    m_Text1[1]->setText(args.Name);

    SetWidthTwips(kLinkWidthTwips);
    QFrame *panel = ShowPanel(LinkPanel);
    SetDisplayIcon(args.Flags, m_Lpic);
    PlaceTitle(m_Lpic, m_Label3, panel->width());
    FinishPanelHeight(panel, m_nCmd[1]->geometry().bottom() + 1 + ToPixelsY(120));

    DrawBalloon(args.NoPointer, args.PointX, args.PointY, 0);
}

void msgFrm::cmdbrowse_Click()
{
    QString path;
    if (BrowseSlot())
        path = BrowseSlot()(this, kBrowseTitle, kBrowseFilter);
    else
        path = QFileDialog::getOpenFileName(this, kBrowseTitle, QString(), kBrowseFilter);
    if (!path.isEmpty())
        m_Text1[0]->setText(path);
}

void msgFrm::nCmd_Click(int index)
{
    if (index == 1) {
        m_Answer = -1;
        done(QDialog::Rejected);
        return;
    }
    m_Answer = 0;
    // Emptiness is the only test made, whatever the first message says.
    if (m_Text1[0]->text().isEmpty()) {
        Notice(QStringLiteral("You must enter a valid file path or a correctly formatted URL."), QStringLiteral("Invalid Filename"));
        return;
    }
    if (m_Text1[1]->text().isEmpty()) {
        Notice(QStringLiteral("You must enter a Name for the link"), QStringLiteral("Invalid name"));
        return;
    }
    done(QDialog::Accepted);
}

void msgFrm::Notice(const QString &text, const QString &caption)
{
    if (NoticeSlot())
        NoticeSlot()(text, caption);
    else
        QMessageBox::information(this, caption, text);
}

QString msgFrm::FileLinkResult() const
{
    if (m_Answer == -1)
        return {};
    return m_Text1[0]->text() + kLinkSeparator + m_Text1[1]->text();
}

} // namespace zrt
