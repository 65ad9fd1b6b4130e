// Every control of the window carries its name as its object name, so that tools which look at
// the running window (the test probe, screen readers later) find it by the name the code uses.

#include "app/MainFrm.h"

#include "app/PagePanel.h"
#include "anim/ucGifPlayer.h"
#include "charts/PictureBox.h"
#include "controls/Check.h"
#include "controls/DropPanel.h"
#include "controls/GlossButton.h"
#include "controls/RowList.h"
#include "controls/ShapedTabs.h"
#include "controls/ucTableView.h"
#include "toolbar/ThemedToolbar.h"

#include <QLabel>
#include <QTextEdit>

namespace {

void Name(QObject *control, const QString &name)
{
    if (control)
        control->setObjectName(name);
}

template <typename Array>
void NameArray(const Array &controls, const QString &name)
{
    for (size_t i = 0; i < controls.size(); ++i)
        Name(controls[i], name + QStringLiteral("_") + QString::number(i));
}

} // namespace

void MainFrm::nameControls()
{
    Name(this, QStringLiteral("MainFrm"));
    Name(Ptoolbar, QStringLiteral("Ptoolbar"));
    Name(ThemedToolbar1, QStringLiteral("ThemedToolbar1"));
    Name(P2, QStringLiteral("P2"));
    Name(P3, QStringLiteral("P3"));
    Name(P5, QStringLiteral("P5"));
    Name(P2->piclbl, QStringLiteral("piclbl"));
    Name(P3->pSettings, QStringLiteral("pSettings"));
    NameArray(p4, QStringLiteral("p4"));
    Name(P3->Label2, QStringLiteral("Label2"));
    Name(P3->Label3, QStringLiteral("Label3"));
    Name(P2->Label4, QStringLiteral("Label4"));
    Name(P2->Label5, QStringLiteral("Label5"));
    Name(P3->IMmsg, QStringLiteral("IMmsg"));
    NameArray(P3->Label1, QStringLiteral("Label1"));
    Name(P2->cmdRemove, QStringLiteral("cmdRemove"));
    Name(P3->command1, QStringLiteral("command1"));
    NameArray(P3->GlossButton1, QStringLiteral("GlossButton1"));
    Name(P3->cl1, QStringLiteral("cl1"));
    Name(P2->cl2, QStringLiteral("cl2"));
    Name(P2->CL4, QStringLiteral("CL4"));
    Name(P3->List1, QStringLiteral("List1"));
    Name(P3->List2, QStringLiteral("List2"));
    NameArray(P2->Check5, QStringLiteral("Check5"));
    Name(P3->Check4, QStringLiteral("Check4"));
    Name(P3->CheckSpace, QStringLiteral("CheckSpace"));
    Name(P3->dd1, QStringLiteral("dd1"));
    Name(P3->DD2, QStringLiteral("DD2"));
    NameArray(P3->ucGifPlayer1, QStringLiteral("ucGifPlayer1"));
}

// The audio stage makes its controls when it first opens; they are named then.
void MainFrm::nameAudioStageControls()
{
    Name(P5->Label10, QStringLiteral("Label10"));
    Name(P5->l9, QStringLiteral("l9"));
    Name(P5->IMmsg1, QStringLiteral("IMmsg1"));
    Name(P5->cmdStartAudio, QStringLiteral("cmdStartAudio"));
    NameArray(P5->cmdadd, QStringLiteral("cmdadd"));
    Name(P5->cl5, QStringLiteral("cl5"));
    Name(P5->ucgif, QStringLiteral("ucgif"));
    Name(P5->ucGifPlayer2, QStringLiteral("ucGifPlayer2"));
}

// An analysis page makes its controls when first opened; they are named then.
void MainFrm::namePageControls(Page page)
{
    if (page == Page::Averages)
        nameAveragesControls();
    else if (page == Page::Groups)
        nameGroupsControls();
    else if (page == Page::Compare)
        nameCompareControls();
}

void MainFrm::nameAveragesControls()
{
    Name(averages->Tab1, QStringLiteral("Tab1"));
    NameArray(averages->F1, QStringLiteral("F1"));
    Name(averages->Label6, QStringLiteral("Label6"));
    Name(averages->Label7, QStringLiteral("Label7"));
    Name(averages->lbsort, QStringLiteral("lbsort"));
    Name(averages->l8, QStringLiteral("l8"));
    Name(averages->DD3, QStringLiteral("DD3"));
    Name(averages->cl3, QStringLiteral("cl3"));
    Name(averages->Check1, QStringLiteral("Check1"));
    Name(averages->t1, QStringLiteral("t1"));
    NameArray(averages->cmd1, QStringLiteral("cmd1"));
    NameArray(averages->lb1, QStringLiteral("lb1"));
    NameArray(averages->cmd2, QStringLiteral("cmd2"));
    NameArray(averages->lb2, QStringLiteral("lb2"));
    Name(averages->cmdshowall, QStringLiteral("cmdshowall"));
    Name(averages->cmdSA, QStringLiteral("cmdSA"));
    Name(averages->cmdinfo, QStringLiteral("cmdinfo"));
    Name(averages->pBox, QStringLiteral("pBox"));
    Name(averages->PicSL, QStringLiteral("PicSL"));
    Name(averages->cmdBP, QStringLiteral("cmdBP"));
    Name(averages->cmdSL, QStringLiteral("cmdSL"));
}

void MainFrm::nameGroupsControls()
{
    Name(groups->Tab2, QStringLiteral("Tab2"));
    NameArray(groups->f2, QStringLiteral("f2"));
    Name(groups->Label8, QStringLiteral("Label8"));
    Name(groups->lbsort1, QStringLiteral("lbsort1"));
    Name(groups->Check2, QStringLiteral("Check2"));
    Name(groups->Check3, QStringLiteral("Check3"));
    Name(groups->t4, QStringLiteral("t4"));
    Name(groups->ptally, QStringLiteral("ptally"));
    Name(groups->pEmean, QStringLiteral("pEmean"));
    Name(groups->pCF, QStringLiteral("pCF"));
    Name(groups->ppCF, QStringLiteral("ppCF"));
    Name(groups->cmdTally, QStringLiteral("cmdTally"));
    Name(groups->cmdR, QStringLiteral("cmdR"));
    Name(groups->cmdCF, QStringLiteral("cmdCF"));
    Name(groups->cmdPlot, QStringLiteral("cmdPlot"));
}

void MainFrm::nameCompareControls()
{
    Name(compare->ShapedTabs1, QStringLiteral("ShapedTabs1"));
    NameArray(compare->pFR, QStringLiteral("pFR"));
    Name(compare->Label9, QStringLiteral("Label9"));
    Name(compare->ld, QStringLiteral("ld"));
    Name(compare->lbSR, QStringLiteral("lbSR"));
    Name(compare->pdsqr, QStringLiteral("pdsqr"));
    NameArray(compare->lbc, QStringLiteral("lbc"));
    Name(compare->Text1, QStringLiteral("Text1"));
    NameArray(compare->cmdarr, QStringLiteral("cmdarr"));
    Name(compare->cmdSG, QStringLiteral("cmdSG"));
    Name(compare->cmdSR, QStringLiteral("cmdSR"));
    Name(compare->cmdBPc, QStringLiteral("cmdBPc"));
    Name(compare->ucTableView1, QStringLiteral("ucTableView1"));
}
