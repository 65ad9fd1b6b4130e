#include "dialogs/msgFrm.h"

#include "dialogs/FormulaView.h"
#include "dialogs/IconStrip.h"

#include "common/RunTimeError.h"

#include <QCheckBox>
#include <QCursor>
#include <QFileDialog>
#include <QFrame>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QTimer>

#include <climits>

namespace zrt {

namespace {

// Places on the message panel, in twips.
constexpr int kTextLeft = 65;
constexpr int kTextTop = 600;
constexpr int kTextMargin = 130;  // the text is this much narrower than its panel
constexpr int kCheckGap = 70;     // from the text's bottom to the check box
constexpr int kButtonGap = 420;   // from the text's bottom to the buttons
constexpr int kPanelBelow = 900;  // room below the text for check box and buttons
constexpr std::array<int, 3> kButtonLefts{0, 1800, 3555};
constexpr int kButtonWidth = 1140;
constexpr int kButtonHeight = 405;

// Panels sit 30 pixels down and 8 in; the window is 65 pixels taller than its panel and
// 30 wider.
constexpr int kPanelTop = 30;
constexpr int kPanelLeft = 8;
constexpr int kPanelWidthLoss = 30;
constexpr int kWindowHeightGain = 65;
constexpr int kMinimumWidth = 160; // pixels; a narrower window could not hold a panel

constexpr int kIconSide = IconStrip::kCellSize;
const QColor kFrameColour(70, 70, 70);

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
constexpr int kCancelAnswer = 2;

msgFrm::ShownHook &ShownHookSlot()
{
    static msgFrm::ShownHook hook;
    return hook;
}

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

void SetBack(QWidget *widget, const QColor &colour)
{
    QPalette palette = widget->palette();
    palette.setColor(QPalette::Window, colour);
    widget->setPalette(palette);
    widget->setAutoFillBackground(true);
}

void SetFore(QLabel *label, const QColor &colour)
{
    QPalette palette = label->palette();
    palette.setColor(QPalette::WindowText, colour);
    label->setPalette(palette);
}

} // namespace

void msgFrm::setShownHook(ShownHook hook)
{
    ShownHookSlot() = std::move(hook);
}

void msgFrm::setNoticeHandler(NoticeHandler handler)
{
    NoticeSlot() = std::move(handler);
}

void msgFrm::setBrowseHandler(BrowseHandler handler)
{
    BrowseSlot() = std::move(handler);
}

msgFrm::msgFrm(QWidget *parent)
    : QDialog(parent, Qt::Dialog | Qt::FramelessWindowHint)
{
    setAttribute(Qt::WA_TranslucentBackground);
    setModal(true);
    const QScreen *screen = QGuiApplication::primaryScreen();
    const double dpiX = screen ? screen->logicalDotsPerInchX() : 96.0;
    const double dpiY = screen ? screen->logicalDotsPerInchY() : 96.0;
    m_TwipsPerPixelX = qMax(1, qRound(1440.0 / dpiX));
    m_TwipsPerPixelY = qMax(1, qRound(1440.0 / dpiY));

    for (auto &panel : m_F1) {
        panel = new QFrame(this);
        panel->hide();
    }
    BuildMessagePanel();
    BuildTimedPanel();
    BuildInputPanel();
    BuildLinkPanel();

    m_Timer1 = new QTimer(this);
    m_Timer1->setSingleShot(false); // it is switched off by hand when it fires
    connect(m_Timer1, &QTimer::timeout, this, &msgFrm::Timer1_Timer);

    resize(ToPixelsX(kDefaultWidthTwips), 200);
}

msgFrm::~msgFrm() = default;

// ---- twips and screens -------------------------------------------------------------------

int msgFrm::ToPixelsX(int twips) const
{
    return qRound(static_cast<double>(twips) / m_TwipsPerPixelX);
}

int msgFrm::ToPixelsY(int twips) const
{
    return qRound(static_cast<double>(twips) / m_TwipsPerPixelY);
}

QRect msgFrm::TwipsRect(int left, int top, int width, int height) const
{
    return QRect(ToPixelsX(left), ToPixelsY(top), ToPixelsX(width), ToPixelsY(height));
}

QRect msgFrm::ScreenAt(QPoint point) const
{
    const QScreen *screen = QGuiApplication::screenAt(point);
    if (!screen)
        screen = QGuiApplication::primaryScreen();
    return screen ? screen->geometry() : QRect(0, 0, 1024, 768);
}

// ---- building the panels -----------------------------------------------------------------

QLabel *msgFrm::NewLabel(QWidget *panel, bool bold, bool wrap)
{
    auto *label = new QLabel(panel);
    label->setWordWrap(wrap);
    label->setTextFormat(Qt::PlainText);
    label->setAlignment(wrap ? Qt::AlignLeft | Qt::AlignTop : Qt::AlignLeft | Qt::AlignVCenter);
    if (bold) {
        QFont font = label->font();
        font.setBold(true);
        label->setFont(font);
    }
    return label;
}

DialogButton *msgFrm::NewButton(QWidget *panel, const QString &caption)
{
    auto *button = new DialogButton(caption, panel);
    button->setAutoDefault(true);
    return button;
}

void msgFrm::BuildMessagePanel()
{
    QFrame *panel = m_F1[MessagePanel];
    m_P1 = new QLabel(panel);
    m_LblTitle = NewLabel(panel, true);
    m_lblmsg = NewLabel(panel, false, true);
    m_Picmsg = new FormulaView(panel);
    m_Picmsg->hide();
    m_Check1 = new QCheckBox(panel);
    m_Check1->hide();
    m_ButtonBar = new QWidget(panel);
    for (int i = 0; i < 3; ++i) {
        m_cmd1[i] = NewButton(m_ButtonBar, {});
        m_cmd1[i]->setGeometry(TwipsRect(kButtonLefts[i], 0, kButtonWidth, kButtonHeight));
        m_cmd1[i]->hide();
        connect(m_cmd1[i], &DialogButton::clicked, this, [this, i] { cmd1_Click(i); });
    }
}

void msgFrm::BuildTimedPanel()
{
    QFrame *panel = m_F1[TimedPanel];
    m_aPic = new QLabel(panel);
    m_aTitle = NewLabel(panel, true);
    m_aTitle->setText(kAutoTitle);
    m_aMsg = NewLabel(panel, false, true);
    m_aMsg->setText(kAutoText);
    m_command1 = NewButton(panel, QStringLiteral("OK"));
    connect(m_command1, &DialogButton::clicked, this, &msgFrm::command1_Click);
}

void msgFrm::BuildInputPanel()
{
    QFrame *panel = m_F1[InputPanel];
    m_iPic = new QLabel(panel);
    m_iTitle = NewLabel(panel, true);
    m_iMsg = NewLabel(panel, false, true);
    m_iTxt = new QLineEdit(panel);
    m_iCmd[0] = NewButton(panel, QStringLiteral("Cancel"));
    m_iCmd[1] = NewButton(panel, QStringLiteral("OK"));
    for (int i = 0; i < 2; ++i)
        connect(m_iCmd[i], &DialogButton::clicked, this, [this, i] { iCmd_Click(i); });
    // Enter in the text takes what was typed, as a press on OK does.
    connect(m_iTxt, &QLineEdit::returnPressed, this, [this] { iCmd_Click(1); });
}

void msgFrm::BuildLinkPanel()
{
    QFrame *panel = m_F1[LinkPanel];
    m_Lpic = new QLabel(panel);
    m_Label3 = NewLabel(panel, true);
    for (int i = 0; i < 2; ++i) {
        m_Label2[i] = NewLabel(panel);
        m_Text1[i] = new QLineEdit(panel);
        m_nCmd[i] = NewButton(panel, i == 0 ? QStringLiteral("OK") : QStringLiteral("Cancel"));
        connect(m_nCmd[i], &DialogButton::clicked, this, [this, i] { nCmd_Click(i); });
    }
    m_Label2[0]->setGeometry(TwipsRect(45, 480, 4155, 270));
    m_Text1[0]->setGeometry(TwipsRect(45, 765, 4155, 315));
    m_Label2[1]->setGeometry(TwipsRect(45, 1155, 4155, 270));
    m_Text1[1]->setGeometry(TwipsRect(45, 1440, 4155, 315));
    m_cmdbrowse = NewButton(panel, QStringLiteral("..."));
    m_cmdbrowse->setAutoDefault(false);
    m_cmdbrowse->setGeometry(TwipsRect(4230, 750, 345, 375));
    connect(m_cmdbrowse, &DialogButton::clicked, this, &msgFrm::cmdbrowse_Click);
    m_nCmd[0]->setGeometry(TwipsRect(3480, 1875, 1110, 330));
    m_nCmd[1]->setGeometry(TwipsRect(2325, 1890, 1110, 330));
}

// ---- sizing ------------------------------------------------------------------------------

void msgFrm::SetWidthTwips(qint32 twips)
{
    resize(qMax(kMinimumWidth, ToPixelsX(twips)), height());
}

QFrame *msgFrm::ShowPanel(Panel shown)
{
    m_ShownPanel = shown;
    for (int i = 0; i < 4; ++i)
        m_F1[i]->setVisible(i == shown);
    QFrame *panel = m_F1[shown];
    SetBack(panel, TranslateColor(m_BackColour));
    panel->setGeometry(kPanelLeft, kPanelTop, width() - kPanelWidthLoss, panel->height());
    return panel;
}

void msgFrm::PlaceTitle(QLabel *icon, QLabel *title, int panelWidth)
{
    icon->setGeometry(4, 2, kIconSide, kIconSide);
    const int left = icon->isVisibleTo(icon->parentWidget()) ? kIconSide + 10 : 4;
    title->setGeometry(left, 2, qMax(1, panelWidth - left - 4), kIconSide);
}

// Puts a word-wrapping label at the text's place; returns its bottom.
int msgFrm::PlaceWrappedText(QLabel *label, int top, int panelWidth)
{
    const int width = qMax(1, ToPixelsX(panelWidth * m_TwipsPerPixelX - kTextMargin));
    label->setGeometry(ToPixelsX(kTextLeft), top, width, label->heightForWidth(width));
    return label->geometry().bottom() + 1;
}

void msgFrm::FinishPanelHeight(QFrame *panel, int height)
{
    panel->resize(panel->width(), height);
    resize(width(), height + kWindowHeightGain);
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

// ---- the shape ---------------------------------------------------------------------------

void msgFrm::DrawBalloon(bool NoPointer, float PointX, float PointY, qint16 Shadow)
{
    Q_UNUSED(Shadow) // the shadow looks the same whatever number it is given
    if (NoPointer) {
        const QRect screen = ScreenAt(QCursor::pos()); // the screen the pupil is looking at
        move(screen.left() + (screen.width() - width()) / 2, screen.top() + (screen.height() - height()) / 2);
        m_PointerStyle = BalloonShape::NoPointer;
    } else {
        m_PointerStyle = GetPointerStyle(PointX, PointY);
    }
    m_ShadowShown = BalloonShape::StandsOnScreen(QRect(pos(), size()), ScreenAt(pos() + QPoint(width() / 2, height() / 2)));
    ApplyShape();
}

BalloonShape::PointerStyle msgFrm::GetPointerStyle(float PointX, float PointY)
{
    const QPoint tip = (PointX == 0 || PointY == 0) ? QCursor::pos() : QPoint(qRound(PointX), qRound(PointY));
    const BalloonShape::PointerStyle style = BalloonShape::PointerStyleFor(tip, ScreenAt(tip));
    move(BalloonShape::WindowTopLeft(style, tip, size()));
    return style;
}

QRegion msgFrm::BalloonRegion() const
{
    QRegion region = BalloonShape::MainRegion(size());
    if (m_Dragging)
        return region;
    if (m_ShadowShown)
        region += BalloonShape::ShadowRegion(size());
    return region + BalloonShape::PointerRegion(m_PointerStyle, size());
}

void msgFrm::ApplyShape()
{
    setMask(BalloonRegion());
    update();
}

void msgFrm::n_RefreshShadow(qint16 Shadow)
{
    Q_UNUSED(Shadow)
    // Once moved, the balloon no longer points at its spot: it keeps face and shadow only.
    m_PointerStyle = BalloonShape::NoPointer;
    m_ShadowShown = BalloonShape::StandsOnScreen(QRect(pos(), size()), ScreenAt(pos() + QPoint(width() / 2, height() / 2)));
    ApplyShape();
}

// ---- painting ----------------------------------------------------------------------------

void msgFrm::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    if (m_ShadowShown && !m_Dragging)
        PaintShadow(painter);
    PaintFace(painter);
    if (!m_Dragging)
        PaintPointer(painter);
}

void msgFrm::PaintShadow(QPainter &painter) const
{
    // Dark strips over a clear ground: the outer ones let most of what lies behind show.
    painter.save();
    painter.setClipRegion(BalloonShape::ShadowRegion(size()));
    for (const BalloonShape::ShadowStrip &strip : BalloonShape::ShadowStrips(size())) {
        const QColor shade(0, 0, 0, (255 - strip.behindAlpha) / 2);
        painter.fillRect(strip.row, shade);
        painter.fillRect(strip.column, shade);
    }
    painter.restore();
}

void msgFrm::PaintFace(QPainter &painter) const
{
    painter.setPen(kFrameColour);
    painter.setBrush(TranslateColor(m_BackColour));
    painter.drawRoundedRect(BalloonShape::FaceRect(size()), 12, 12);
}

void msgFrm::PaintPointer(QPainter &painter) const
{
    const QPolygon triangle = BalloonShape::PointerPolygon(m_PointerStyle, size());
    if (triangle.isEmpty())
        return;
    painter.setPen(Qt::NoPen);
    painter.setBrush(TranslateColor(m_BackColour));
    painter.drawPolygon(triangle);
    // Only the two sides are framed; the base lies inside the face.
    painter.setPen(kFrameColour);
    painter.drawLine(triangle.point(0), triangle.point(1));
    painter.drawLine(triangle.point(0), triangle.point(2));
}

// ---- dragging ----------------------------------------------------------------------------

void msgFrm::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton || m_ShownPanel == InputPanel) {
        QDialog::mousePressEvent(event);
        return;
    }
    m_Dragging = true;
    m_DragOffset = event->globalPosition().toPoint() - pos();
    ApplyShape();
}

void msgFrm::mouseMoveEvent(QMouseEvent *event)
{
    if (m_Dragging && (event->buttons() & Qt::LeftButton))
        move(event->globalPosition().toPoint() - m_DragOffset);
    else
        QDialog::mouseMoveEvent(event);
}

void msgFrm::mouseReleaseEvent(QMouseEvent *event)
{
    if (!m_Dragging || event->button() != Qt::LeftButton) {
        QDialog::mouseReleaseEvent(event);
        return;
    }
    m_Dragging = false;
    n_RefreshShadow(static_cast<qint16>(m_Tag.toInt()));
}

// ---- showing and closing -----------------------------------------------------------------

void msgFrm::showEvent(QShowEvent *event)
{
    QDialog::showEvent(event);
    FocusDefault();
    if (ShownHookSlot()) {
        QTimer::singleShot(0, this, [this] {
            if (ShownHookSlot())
                ShownHookSlot()(*this);
        });
    }
}

void msgFrm::FocusDefault()
{
    DialogButton *button = nullptr;
    QWidget *focus = nullptr;
    switch (m_ShownPanel) {
    case MessagePanel:
        button = m_cmd1[m_DefaultButton - 1];
        if (!button->isVisibleTo(this))
            button = m_cmd1[0];
        focus = button;
        break;
    case TimedPanel:
        focus = button = m_command1;
        break;
    case InputPanel:
        button = m_iCmd[1];
        focus = m_iTxt;
        break;
    case LinkPanel:
        button = m_nCmd[0];
        focus = m_Text1[0];
        break;
    }
    button->setDefault(true);
    focus->setFocus(Qt::ActiveWindowFocusReason);
}

DialogButton *msgFrm::CancellingButton() const
{
    switch (m_ShownPanel) {
    case MessagePanel: {
        DialogButton *only = nullptr;
        int shown = 0;
        for (int i = 0; i < 3; ++i) {
            if (!m_cmd1[i]->isVisibleTo(this))
                continue;
            if (m_Tags[i] == kCancelAnswer)
                return m_cmd1[i];
            only = m_cmd1[i];
            ++shown;
        }
        return shown == 1 ? only : nullptr;
    }
    case TimedPanel:
        return m_command1;
    case InputPanel:
        return m_iCmd[0];
    case LinkPanel:
        return m_nCmd[1];
    }
    return nullptr;
}

void msgFrm::reject()
{
    if (DialogButton *button = CancellingButton())
        button->click();
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

// ---- controls by index -------------------------------------------------------------------

QFrame *msgFrm::F1(int index) const
{
    if (index < 0 || index > 3)
        zrt::raise(ErrInvalidPropertyIndex);
    return m_F1[index];
}

DialogButton *msgFrm::cmd1(int index) const
{
    if (index < 0 || index > 2)
        zrt::raise(ErrInvalidPropertyIndex);
    return m_cmd1[index];
}

DialogButton *msgFrm::iCmd(int index) const
{
    if (index < 0 || index > 1)
        zrt::raise(ErrInvalidPropertyIndex);
    return m_iCmd[index];
}

QLabel *msgFrm::Label2(int index) const
{
    if (index < 0 || index > 1)
        zrt::raise(ErrInvalidPropertyIndex);
    return m_Label2[index];
}

QLineEdit *msgFrm::Text1(int index) const
{
    if (index < 0 || index > 1)
        zrt::raise(ErrInvalidPropertyIndex);
    return m_Text1[index];
}

DialogButton *msgFrm::nCmd(int index) const
{
    if (index < 0 || index > 1)
        zrt::raise(ErrInvalidPropertyIndex);
    return m_nCmd[index];
}

} // namespace zrt
