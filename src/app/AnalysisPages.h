#pragma once
// The controls of the three analysis pages, by their names on the window.

#include <array>

class QLabel;
class QTextEdit;
class PagePanel;
namespace zrt {
class PictureBox;
class GlossButton;
class RowList;
class Check;
class DropPanel;
class ShapedTabs;
class ucTableView;
} // namespace zrt
using zrt::Check;
using zrt::DropPanel;
using zrt::GlossButton;
using zrt::RowList;
using zrt::ShapedTabs;
using zrt::ucTableView;

struct AveragesPage {
    ShapedTabs *Tab1 = nullptr;
    std::array<PagePanel *, 4> F1{};
    QLabel *Label6 = nullptr, *Label7 = nullptr, *lbsort = nullptr, *l8 = nullptr;
    DropPanel *DD3 = nullptr;
    RowList *cl3 = nullptr;
    Check *Check1 = nullptr;
    QTextEdit *t1 = nullptr;
    std::array<GlossButton *, 9> cmd1{};
    std::array<QLabel *, 9> lb1{};
    std::array<GlossButton *, 4> cmd2{};
    std::array<QLabel *, 4> lb2{};
    GlossButton *cmdshowall = nullptr, *cmdSA = nullptr, *cmdinfo = nullptr;
    zrt::PictureBox *pBox = nullptr, *PicSL = nullptr;
    GlossButton *cmdBP = nullptr, *cmdSL = nullptr;
};

struct GroupsPage {
    ShapedTabs *Tab2 = nullptr;
    std::array<PagePanel *, 4> f2{};
    QLabel *Label8 = nullptr, *lbsort1 = nullptr;
    Check *Check2 = nullptr, *Check3 = nullptr;
    QTextEdit *t4 = nullptr;
    zrt::PictureBox *ptally = nullptr, *pEmean = nullptr, *pCF = nullptr, *ppCF = nullptr;
    GlossButton *cmdTally = nullptr, *cmdR = nullptr, *cmdCF = nullptr, *cmdPlot = nullptr;
};

struct ComparePage {
    ShapedTabs *ShapedTabs1 = nullptr;
    std::array<zrt::PictureBox *, 3> pFR{};
    QLabel *Label9 = nullptr, *ld = nullptr, *lbSR = nullptr, *pdsqr = nullptr;
    std::array<QLabel *, 3> lbc{};
    QTextEdit *Text1 = nullptr;
    std::array<GlossButton *, 2> cmdarr{};
    GlossButton *cmdSG = nullptr, *cmdSR = nullptr, *cmdBPc = nullptr;
    ucTableView *ucTableView1 = nullptr;
};
