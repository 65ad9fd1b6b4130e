#pragma once
// The program's own dialog window: borderless, cut to the shape of a speech balloon with a soft
// shadow, its pointer touching a spot on the screen (the mouse pointer's place unless a point
// is given). One window carries four panels and each entry shows one of them: F1(0) the message
// box, F1(1) the box that closes itself, F1(2) the one-line input, F1(3) the link dialog.
//
// The entries in MsgBoxes.h run it modally. The Prepare... routines do everything up to the
// showing, so a test (or a caller that wants no modal loop) can build the window, show it,
// press its buttons and read the answer. Lengths given by callers are in twips, as are the
// labels; the panels and the shape are in pixels.

#include "dialogs/BalloonShape.h"
#include "dialogs/DialogButton.h"
#include "gfx/GraphicsBas1.h"

#include <QCoreApplication>
#include <QDialog>
#include <QString>

#include <array>
#include <functional>

class QCheckBox;
class QFrame;
class QLabel;
class QLineEdit;
class QPushButton;
class QTimer;

namespace zrt {

class FormulaView;


struct MsgBoxArgs {
    QString Text;
    qint32 Flags = 0; // bits 0-2 the button set, 4-6 the icon, 8-9 the default button
    QString Title;
    bool NoPointer = false; // true: centred on the screen, no pointer
    QString CheckText;      // not empty: a check box that adds 100 to the answer when ticked
    QString Caption1, Caption2, Caption3; // not empty: replace the set's captions
    quint32 BackColour = 0;               // 0: the pale yellow
    float PointX = 0, PointY = 0;         // pixels; either 0: the mouse pointer's place
    qint16 Shadow = 0;
    qint32 FormWidth = 0; // twips; 0 keeps the window's own width
    qint32 LabelValue = 0;
};

struct AutoBoxArgs {
    QString Text;
    int Seconds = 5;
    QString Title;     // empty: "Auto Timed Msgbox"
    qint32 Flags = 64; // only the icon bits count
    quint32 BackColour = 0;
    bool NoPointer = false;
    float PointX = 0, PointY = 0;
};

struct InputBoxArgs {
    QString Prompt;
    QString Title;
    QString Default;
    quint32 BackColour = 0;
    quint32 ForeColour = 0; // the prompt's and title's text
    qint32 Flags = 32;      // only the icon bits count
    bool NoPointer = false;
    float PointX = 0, PointY = 0;
};

struct FileLinkArgs {
    QString Title = QCoreApplication::translate("msgFrm", "Create a Link");
    QString File; // starting texts of the two fields
    QString Name;
    quint32 BackColour = 0;
    qint32 Flags = 32; // only the icon bits count
    bool NoPointer = false;
    float PointX = 0, PointY = 0;
};

class msgFrm : public QDialog {
    Q_OBJECT
public:
    enum Panel { MessagePanel = 0, TimedPanel = 1, InputPanel = 2, LinkPanel = 3 };

    static constexpr quint32 kDefaultBackColour = RGB(255, 255, 204);
    static constexpr int kDefaultWidthTwips = 5400;
    static constexpr int kLinkWidthTwips = 5100;
    static inline const QString kAutoTitle = QString::fromUtf8(QT_TRANSLATE_NOOP("msgFrm", "Auto Timed Msgbox"));
    static inline const QString kAutoText =
        QString::fromUtf8(QT_TRANSLATE_NOOP("msgFrm", "This message will automatically close in "));
    static inline const QString kLinkFileLabel =
        QString::fromUtf8(QT_TRANSLATE_NOOP("msgFrm", "Enter the File or URL to create a link with:"));
    static inline const QString kLinkNameLabel =
        QString::fromUtf8(QT_TRANSLATE_NOOP("msgFrm", "Enter a name for this link:"));
    static inline const QString kBrowseTitle =
        QString::fromUtf8(QT_TRANSLATE_NOOP("msgFrm", " Select the file to create a link for :"));
    static inline const QString kBrowseFilter = QString::fromUtf8(QT_TRANSLATE_NOOP("msgFrm", "All file types (*)"));
    static inline const QChar kLinkSeparator = QChar(172);

    explicit msgFrm(QWidget *parent = nullptr);
    ~msgFrm() override;

    // Hooks, shared by every instance. The shown hook runs once the window is up and its modal
    // loop is turning, so a test can press a button. The notice handler shows the link dialog's
    // plain messages (text, caption); the browse handler asks for a file (owner, title, filter)
    // and returns an empty text when none was chosen. An empty function restores the default.
    using ShownHook = std::function<void(msgFrm &)>;
    using NoticeHandler = std::function<void(const QString &text, const QString &caption)>;
    using BrowseHandler = std::function<QString(QWidget *owner, const QString &title, const QString &filter)>;
    static void setShownHook(ShownHook hook);
    static void setNoticeHandler(NoticeHandler handler);
    static void setBrowseHandler(BrowseHandler handler);

    // The entries, split at the showing.
    void PrepareMsgBox(const MsgBoxArgs &args);
    qint16 FinishMsgBox() const; // the answer, + 100 when the check box is ticked
    void PrepareAutoBox(const AutoBoxArgs &args);
    void PrepareInputBox(const InputBoxArgs &args);
    QString InputResult() const; // the text, empty after Cancel
    void PrepareFileLink(const FileLinkArgs &args);
    QString FileLinkResult() const; // file¬name, empty after Cancel

    // The routines of the message box.
    void SetupButtons(qint32 Flags, const QString &Caption1 = {}, const QString &Caption2 = {},
                      const QString &Caption3 = {});
    void SetDefaultButton(qint32 flags);
    void SetDisplayIcon(qint32 flags, QLabel *target);
    bool Draw_Answer(const QString &text); // true when the text holds formula marks
    void DrawBalloon(bool NoPointer, float PointX, float PointY, qint16 Shadow);
    BalloonShape::PointerStyle GetPointerStyle(float PointX, float PointY);
    void n_RefreshShadow(qint16 Shadow);

    // Form-level state.
    qint16 Answer() const { return m_Answer; }
    qint16 DefaultButton() const { return m_DefaultButton; }
    quint32 BackColour() const { return m_BackColour; }
    QString Tag() const { return m_Tag; }
    int TwipsPerPixelX() const { return m_TwipsPerPixelX; }
    int TwipsPerPixelY() const { return m_TwipsPerPixelY; }
    BalloonShape::PointerStyle PointerStyle() const { return m_PointerStyle; }
    bool ShadowShown() const { return m_ShadowShown; }
    bool Dragging() const { return m_Dragging; }
    int ButtonTag(int index) const;
    Panel ShownPanel() const { return m_ShownPanel; }
    QRegion BalloonRegion() const;

    // Controls, by their names.
    QFrame *F1(int index) const;
    QLabel *P1() const { return m_P1; }
    QLabel *LblTitle() const { return m_LblTitle; }
    QLabel *lblmsg() const { return m_lblmsg; }
    FormulaView *Picmsg() const { return m_Picmsg; }
    DialogButton *cmd1(int index) const;
    QCheckBox *Check1() const { return m_Check1; }
    QLabel *aPic() const { return m_aPic; }
    QLabel *aTitle() const { return m_aTitle; }
    QLabel *aMsg() const { return m_aMsg; }
    DialogButton *command1() const { return m_command1; }
    QTimer *Timer1() const { return m_Timer1; }
    QLabel *iTitle() const { return m_iTitle; }
    QLabel *iPic() const { return m_iPic; }
    QLabel *iMsg() const { return m_iMsg; }
    QLineEdit *iTxt() const { return m_iTxt; }
    DialogButton *iCmd(int index) const;
    QLabel *Label3() const { return m_Label3; }
    QLabel *Lpic() const { return m_Lpic; }
    QLabel *Label2(int index) const;
    QLineEdit *Text1(int index) const;
    DialogButton *cmdbrowse() const { return m_cmdbrowse; }
    DialogButton *nCmd(int index) const;

public Q_SLOTS:
    void Timer1_Timer();
    // Escape and closing from outside act as the panel's cancelling button, if it has one.
    void reject() override;

protected:
    void showEvent(QShowEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    int ToPixelsX(int twips) const;
    int ToPixelsY(int twips) const;
    QRect TwipsRect(int left, int top, int width, int height) const;
    QRect ScreenAt(QPoint point) const;

    void BuildMessagePanel();
    void BuildTimedPanel();
    void BuildInputPanel();
    void BuildLinkPanel();
    QLabel *NewLabel(QWidget *panel, bool bold = false, bool wrap = false);
    DialogButton *NewButton(QWidget *panel, const QString &caption);

    void SetWidthTwips(qint32 twips);
    QFrame *ShowPanel(Panel panel);
    void PlaceTitle(QLabel *icon, QLabel *title, int panelWidth);
    int PlaceWrappedText(QLabel *label, int top, int panelWidth);
    void FinishPanelHeight(QFrame *panel, int height);
    void CentreButtonBar();
    void ApplyShape();
    void FocusDefault();
    DialogButton *CancellingButton() const;

    void cmd1_Click(int index);
    void command1_Click();
    void iCmd_Click(int index);
    void nCmd_Click(int index);
    void cmdbrowse_Click();
    void Notice(const QString &text, const QString &caption);

    void PaintShadow(QPainter &painter) const;
    void PaintFace(QPainter &painter) const;
    void PaintPointer(QPainter &painter) const;

    qint16 m_Answer = 0;
    qint16 m_DefaultButton = 1;
    quint32 m_BackColour = kDefaultBackColour;
    int m_TwipsPerPixelX = 15;
    int m_TwipsPerPixelY = 15;
    QString m_Tag;
    std::array<int, 3> m_Tags{};
    Panel m_ShownPanel = MessagePanel;
    BalloonShape::PointerStyle m_PointerStyle = BalloonShape::NoPointer;
    bool m_ShadowShown = false;
    bool m_Dragging = false;
    QPoint m_DragOffset;

    std::array<QFrame *, 4> m_F1{};
    QLabel *m_P1 = nullptr;
    QLabel *m_LblTitle = nullptr;
    QLabel *m_lblmsg = nullptr;
    FormulaView *m_Picmsg = nullptr;
    QWidget *m_ButtonBar = nullptr;
    std::array<DialogButton *, 3> m_cmd1{};
    QCheckBox *m_Check1 = nullptr;
    QLabel *m_aPic = nullptr;
    QLabel *m_aTitle = nullptr;
    QLabel *m_aMsg = nullptr;
    DialogButton *m_command1 = nullptr;
    QTimer *m_Timer1 = nullptr;
    QLabel *m_iTitle = nullptr;
    QLabel *m_iPic = nullptr;
    QLabel *m_iMsg = nullptr;
    QLineEdit *m_iTxt = nullptr;
    std::array<DialogButton *, 2> m_iCmd{};
    QLabel *m_Label3 = nullptr;
    QLabel *m_Lpic = nullptr;
    std::array<QLabel *, 2> m_Label2{};
    std::array<QLineEdit *, 2> m_Text1{};
    DialogButton *m_cmdbrowse = nullptr;
    std::array<DialogButton *, 2> m_nCmd{};
};

} // namespace zrt
