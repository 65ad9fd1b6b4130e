// The left column: adding, cancelling and removing results, and the layout of the two lists.

#include "app/MainFrm.h"

#include "app/MainMod1.h"
#include "dialogs/MsgBox.h"
#include "app/PagePanel.h"
#include "anim/ucGifPlayer.h"
#include "common/NumberText.h"
#include "controls/Check.h"
#include "controls/GlossButton.h"
#include "controls/RowList.h"
#include "stats/Maths.h"

#include <QLabel>

namespace {

// A collected mean as the lists keep it: at most 5 decimals, in its shortest text.
QString CollectedText(float average)
{
    return QString::fromStdString(zrt::GeneralText(Maths::RoundToPlaces(static_cast<double>(average), 5)));
}

} // namespace

void MainFrm::GlossButton1_Click(int index)
{
    if (index == 0) {
        cl2->AddItem(CollectedText(VisualAverage));
        SetDataCount();
        DataSaved = false;
    }
    VisualAverage = 0.0f;
    Label3->hide();
    if (cl2->ListCount() == 0)
        Settings_Enabled(true);
    GlossButton1[0]->hide();
    GlossButton1[1]->hide();
    cl1->Clear();
    IMmsg->show();
    command1->setEnabled(true);
}

void MainFrm::cmdadd_Click(int index)
{
    if (index == 0) {
        cl2->AddItem(CollectedText(VisualAverage));
        CL4->AddItem(CollectedText(AudioAverage));
        SetDataCount();
        DataSaved = false;
    }
    VisualAverage = 0.0f;
    AudioAverage = 0.0f;
    P5->hide();
    Label3->hide();
    if (cl2->ListCount() == 0)
        Settings_Enabled(true);
    GlossButton1[0]->hide();
    GlossButton1[1]->hide();
    cmdadd[0]->hide();
    cmdadd[1]->hide();
    cl1->Clear();
    cl5->Clear();
    cmdStartAudio->setEnabled(true);
    command1->setEnabled(true);
    IMmsg1->show();
    IMmsg->show();
    P3->show();
    P3->raise();
    Timer1->stop();
    timers().SetTimer(TimerIdlePeek, 2500);
}

void MainFrm::cmdRemove_Click()
{
    const int index = cl2->ListIndex();
    if (index == -1) {
        MsgBox(this, QStringLiteral("Please select an averaged reaction time to remove!"), vbInformation,
               QStringLiteral("No Time Selected"));
        return;
    }
    if (Check4->Value() == 1)
        CL4->RemoveItem(index);
    cl2->RemoveItem(index);
    SetDataCount();
}

void MainFrm::arange_data_lists()
{
    // Both lists change together; nothing is shown half laid out.
    P2->setUpdatesEnabled(false);
    const int half = P2->width() / 2;
    CL4->setGeometry(half, CL4->y(), half, P2->height() - CL4->y());
    CL4->setBackNormal(zrt::ToOleColor(MainMod1::PanelColour));
    cl2->move(0, cl2->y());
    if (Check4->Value() == 1) {
        cl2->resize(CL4->x(), cl2->height());
        CL4->show();
    } else {
        cl2->resize(P2->width(), cl2->height());
        CL4->hide();
    }
    cl2->setBackNormal(zrt::ToOleColor(MainMod1::PanelColour));
    cl2->resize(cl2->width(), P2->height() - cl2->y());
    Check5[1]->move(CL4->x() + 1, Check5[1]->y());
    P2->setUpdatesEnabled(true);
}

void MainFrm::Check4_Click()
{
    if (Check4->Value() == 1) {
        CL4->show();
        cl2->resize(CL4->x(), cl2->height());
    } else {
        CL4->hide();
        cl2->resize(P2->width(), cl2->height());
    }
}

void MainFrm::Check5_Click(int index)
{
    // The two boxes act as a pair of radio buttons.
    Check5[1 - index]->setValue(Check5[index]->Value() == 1 ? 0 : 1);
    Refresh_Data();
}

void MainFrm::Clear_Data()
{
    cl2->Clear();
    CL4->Clear();
    // A cleared session starts from one character and 4 attempts, unlike a fresh start.
    List1->setListIndex(0);
    List2->setListIndex(0);
    Settings_Enabled(true);
    analysis.results.SampleSize = 0;
}

zrt::CollectedLists MainFrm::collectedLists() const
{
    zrt::CollectedLists lists;
    for (int i = 0; i < cl2->ListCount(); ++i)
        lists.cl2.push_back(cl2->ItemText(i).toStdString());
    for (int i = 0; i < CL4->ListCount(); ++i)
        lists.CL4.push_back(CL4->ItemText(i).toStdString());
    return lists;
}
