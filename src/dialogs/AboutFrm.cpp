#include "dialogs/AboutFrm.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QLabel>
#include "dialogs/DialogButton.h"
#include <QVBoxLayout>

namespace zrt {

AboutFrm::AboutFrm(const QString &version, QWidget *parent)
    : QDialog(parent)
{
    setWindowTitle(QCoreApplication::translate("AboutFrm", "About ") + kProgramName);
    setModal(true);

    m_lblName = new QLabel(kProgramName, this);
    QFont big = m_lblName->font();
    big.setBold(true);
    big.setPointSizeF(big.pointSizeF() * 1.4);
    m_lblName->setFont(big);
    m_lblVersion = new QLabel(QCoreApplication::translate("AboutFrm", "Version ") + version, this);
    m_lblPurpose = new QLabel(QCoreApplication::translate("AboutFrm", kPurpose.toUtf8().constData()), this);
    m_lblPurpose->setWordWrap(true);
    for (QLabel *label : {m_lblName, m_lblVersion, m_lblPurpose})
        label->setTextFormat(Qt::PlainText);

    m_cmdOK = new DialogButton(QCoreApplication::translate("AboutFrm", "OK"), this);
    m_cmdOK->setDefault(true);
    connect(m_cmdOK, &DialogButton::clicked, this, &QDialog::accept);

    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_cmdOK);
    auto *column = new QVBoxLayout(this);
    column->addWidget(m_lblName);
    column->addWidget(m_lblVersion);
    column->addSpacing(8);
    column->addWidget(m_lblPurpose);
    column->addSpacing(8);
    column->addLayout(buttons);
    setFixedWidth(380);
}

void AboutFrm::ShowAbout(const QString &version, QWidget *parent)
{
    AboutFrm about(version, parent);
    about.exec();
}

} // namespace zrt
