// msgFrm: building its four panels and sizing them.
#include "dialogs/msgFrm.h"

#include "dialogs/FormulaView.h"
#include "dialogs/msgFrmLayout.h"

#include <QCheckBox>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>

#include <climits>

namespace zrt {

namespace {

void SetBack(QWidget *widget, const QColor &colour)
{
    QPalette palette = widget->palette();
    palette.setColor(QPalette::Window, colour);
    widget->setPalette(palette);
    widget->setAutoFillBackground(true);
}

} // namespace

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

} // namespace zrt
