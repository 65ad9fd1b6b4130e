#pragma once
#include "dialogs/DialogButton.h"
// The about window: the program's name, its version, what it is for, and OK.

#include <QDialog>

class QLabel;

namespace zrt {

class AboutFrm : public QDialog {
    Q_OBJECT
public:
    static inline const QString kProgramName = QStringLiteral("Zorvane Reaction Times");
    static inline const QString kPurpose = QString::fromUtf8(QT_TRANSLATE_NOOP(
        "AboutFrm", "Measure your own reaction times in a small game, then analyse them as a statistics course "
                    "does: averages, spread, grouped data and comparison."));

    explicit AboutFrm(const QString &version, QWidget *parent = nullptr);

    // Shows the window modally and returns when OK is pressed.
    static void ShowAbout(const QString &version, QWidget *parent = nullptr);

    QLabel *lblName() const { return m_lblName; }
    QLabel *lblVersion() const { return m_lblVersion; }
    QLabel *lblPurpose() const { return m_lblPurpose; }
    DialogButton *cmdOK() const { return m_cmdOK; }

private:
    QLabel *m_lblName = nullptr;
    QLabel *m_lblVersion = nullptr;
    QLabel *m_lblPurpose = nullptr;
    DialogButton *m_cmdOK = nullptr;
};

} // namespace zrt
