#include "app/pages/DataColumn.h"

#include "app/MainMod1.h"
#include "app/pages/PageContext.h"
#include "app/pages/PageWidgets.h"
#include "common/NumberText.h"
#include "controls/Check.h"
#include "controls/GlossButton.h"
#include "controls/RowList.h"
#include "dialogs/MsgBox.h"
#include "files/RtdFile.h"
#include "stats/Maths.h"

#include <QCoreApplication>
#include <QLabel>

namespace {

// A collected mean as the lists keep it: at most 5 decimals, in its shortest text.
QString CollectedText(float average)
{
    return QString::fromStdString(zrt::GeneralText(Maths::RoundToPlaces(static_cast<double>(average), 5)));
}

} // namespace

DataColumn::DataColumn(PageContext &context, QWidget *parent, const QRect &geometry)
    : PagePanel(parent), m_context(context)
{
    setGeometry(geometry);
    build();
}

void DataColumn::build()
{
    Label4 = pages::NewLabel(this, tr("Averaged Reation times"), QRect(6, 6, 166, 18));
    QFont bold = Label4->font();
    bold.setBold(true);
    Label4->setFont(bold);
    Label5 = pages::NewLabel(this, tr("Data Collected:"), QRect(8, 26, 160, 18), true);
    cmdRemove = pages::NewButton(m_context, this, tr("Remove Selected Result"), QRect(6, 48, 160, 28),
                                 [this] { cmdRemove_Click(); });

    piclbl = new PagePanel(this);
    piclbl->setGeometry(0, 84, width(), 24);
    piclbl->setBackColor(MainMod1::HeaderColour);
    cl2 = new zrt::RowList(this);
    CL4 = new zrt::RowList(this);
    cl2->move(0, piclbl->y() + piclbl->height());
    CL4->move(CL4->x(), cl2->y());
    for (int i = 0; i < 2; ++i) {
        Check5[i] = new zrt::Check(piclbl);
        Check5[i]->setCaption(i == 0 ? tr("Visual Data") : tr("Audio Data"));
        Check5[i]->setBackColor(zrt::ToOleColor(MainMod1::HeaderColour));
        Check5[i]->setForeColor(zrt::RGB(255, 255, 255));
        // A size smaller than the column's text, so each caption fits its half of the strip.
        QFont small = Check5[i]->font();
        small.setPointSizeF(small.pointSizeF() * 0.9);
        Check5[i]->setFont(small);
        Check5[i]->resize(width() / 2 - 2, 18);
        connect(Check5[i], &zrt::Check::Click, this, [this, i] { m_context.guard([this, i] { Check5_Click(i); }); });
    }
    Check5[0]->move(1, (piclbl->height() - Check5[0]->height()) / 2);
    Check5[0]->setValue(1);
    Check5[1]->move(CL4->x() + 1, Check5[0]->y());
    keepListsInStep();
    nameForScreenReaders();
    orderTabs();
    connect(this, &PagePanel::Resize, this, [this] { m_context.guard([this] { arange_data_lists(); }); });
}

void DataColumn::nameForScreenReaders()
{
    // The check boxes above the lists are their captions, but a check box cannot be a buddy.
    cl2->setAccessibleName(tr("Visual reaction times"));
    CL4->setAccessibleName(tr("Audio reaction times"));
}

// Tab reads the column as it stands: Remove, the two choices of the list to analyse, the lists.
void DataColumn::orderTabs() { pages::TabOrder({cmdRemove, Check5[0], Check5[1], cl2, CL4}); }

void DataColumn::keepListsInStep()
{
    // Selection in step: a press or release in one list selects the same row in the other.
    auto follow = [](zrt::RowList *from, zrt::RowList *to, bool onlyWhenVisible) {
        if (onlyWhenVisible && !to->isVisible())
            return;
        to->setListIndex(from->ListIndex());
    };
    connect(cl2, &zrt::RowList::MouseDown, this, [=, this] { follow(cl2, CL4, true); });
    connect(cl2, &zrt::RowList::MouseUp, this, [=, this] { follow(cl2, CL4, true); });
    connect(CL4, &zrt::RowList::MouseDown, this, [=, this] { follow(CL4, cl2, false); });
    connect(CL4, &zrt::RowList::MouseUp, this, [=, this] { follow(CL4, cl2, false); });
    // Scrolled in step as well: a visual time and its audio partner always share a line.
    connect(cl2, &zrt::RowList::TopIndexChange, this, [this] {
        if (CL4->isVisible() && CL4->TopIndex() != cl2->TopIndex())
            CL4->setTopIndex(cl2->TopIndex());
    });
    connect(CL4, &zrt::RowList::TopIndexChange, this, [this] {
        if (cl2->TopIndex() != CL4->TopIndex())
            cl2->setTopIndex(CL4->TopIndex());
    });
}

int DataColumn::count() const { return cl2->ListCount(); }

int DataColumn::visualChosen() const { return Check5[0]->Value(); }

zrt::CollectedLists DataColumn::collected() const
{
    zrt::CollectedLists lists;
    lists.visual.reserve(static_cast<size_t>(cl2->ListCount()));
    for (int i = 0; i < cl2->ListCount(); ++i)
        lists.visual.push_back(cl2->ItemText(i).toStdString());
    lists.audio.reserve(static_cast<size_t>(CL4->ListCount()));
    for (int i = 0; i < CL4->ListCount(); ++i)
        lists.audio.push_back(CL4->ItemText(i).toStdString());
    return lists;
}

void DataColumn::addResult(float visualMean)
{
    cl2->AddItem(CollectedText(visualMean));
    SetDataCount();
    DataSaved = false;
}

void DataColumn::addPair(float visualMean, float audioMean)
{
    cl2->AddItem(CollectedText(visualMean));
    CL4->AddItem(CollectedText(audioMean));
    SetDataCount();
    DataSaved = false;
}

void DataColumn::Clear()
{
    cl2->Clear();
    CL4->Clear();
}

void DataColumn::showOpened(const zrt::RtdContent &content)
{
    arange_data_lists();
    Check5[1]->setVisible(content.sample == 1);
    Check5[0]->setValue(1);
    for (const std::string &item : content.lists.visual)
        cl2->AddItem(QString::fromStdString(item));
    for (const std::string &item : content.lists.audio)
        CL4->AddItem(QString::fromStdString(item));
}

void DataColumn::cmdRemove_Click()
{
    const int index = cl2->ListIndex();
    if (index == -1) {
        MsgBox(this, tr("Please select an averaged reaction time to remove!"), vbInformation,
               tr("No Time Selected"));
        return;
    }
    if (paired())
        CL4->RemoveItem(index);
    cl2->RemoveItem(index);
    SetDataCount();
}

void DataColumn::arange_data_lists()
{
    // Both lists change together; nothing is shown half laid out.
    setUpdatesEnabled(false);
    const int half = width() / 2;
    CL4->setGeometry(half, CL4->y(), half, height() - CL4->y());
    CL4->setBackNormal(zrt::ToOleColor(MainMod1::PanelColour));
    cl2->move(0, cl2->y());
    if (paired()) {
        cl2->resize(CL4->x(), cl2->height());
        CL4->show();
    } else {
        cl2->resize(width(), cl2->height());
        CL4->hide();
    }
    cl2->setBackNormal(zrt::ToOleColor(MainMod1::PanelColour));
    cl2->resize(cl2->width(), height() - cl2->y());
    Check5[1]->move(CL4->x() + 1, Check5[1]->y());
    setUpdatesEnabled(true);
}

void DataColumn::Check4_Click()
{
    if (paired()) {
        CL4->show();
        cl2->resize(CL4->x(), cl2->height());
    } else {
        CL4->hide();
        cl2->resize(width(), cl2->height());
    }
}

void DataColumn::Check5_Click(int index)
{
    // The two boxes act as a pair of radio buttons.
    Check5[1 - index]->setValue(Check5[index]->Value() == 1 ? 0 : 1);
    Q_EMIT choiceChanged();
}

void DataColumn::SetDataCount()
{
    const QString text = tr("Data Collected: (") + QString::number(cl2->ListCount()) + ")";
    if (Label5->text() != text) {
        Label5->setText(text);
        Q_EMIT countChanged();
    }
}
