// RowList: the design-time properties and their persistence.
#include "controls/RowList.h"

#include <QApplication>

#include <algorithm>
#include <cmath>

namespace zrt {

namespace {

Qt::CursorShape CursorOf(short pointer)
{
    switch (pointer) {
    case 2: return Qt::CrossCursor;
    case 3: return Qt::IBeamCursor;
    case 5:
    case 15: return Qt::SizeAllCursor;
    case 6: return Qt::SizeBDiagCursor;
    case 7: return Qt::SizeVerCursor;
    case 8: return Qt::SizeFDiagCursor;
    case 9: return Qt::SizeHorCursor;
    case 10: return Qt::UpArrowCursor;
    case 11: return Qt::WaitCursor;
    case 12: return Qt::ForbiddenCursor;
    case 13: return Qt::BusyCursor;
    case 14: return Qt::WhatsThisCursor;
    default: return Qt::ArrowCursor;
    }
}

} // namespace

// ---- properties -----------------------------------------------------------------------------

void RowList::PropertyChange(const QString &name)
{
    ResolveColors();
    Relayout();
    Q_EMIT PropertyChanged(name);
}

void RowList::setTTipText(const QString &text)
{
    m_TTipText = text;
    m_iScr->setToolTip(text);
    Q_EMIT PropertyChanged(QStringLiteral("TTipText"));
}

void RowList::setAppearance(short value)
{
    m_Appearance = value;
    update();
    PropertyChange(QStringLiteral("Appearance"));
}

void RowList::setBorderStyle(short value)
{
    m_BorderStyle = value;
    update();
    PropertyChange(QStringLiteral("BorderStyle"));
}

void RowList::setScrollBarWidth(short value)
{
    const int half = static_cast<int>(std::nearbyint(width() / 2.0));
    int result = value;
    if (result > half)
        result = half;
    if (result < 9)
        result = 9;
    m_ScrollBarWidth = static_cast<short>(result);
    PropertyChange(QStringLiteral("ScrollBarWidth"));
}

void RowList::setFontNormal(OleColor color)
{
    m_FontNormal = color;
    PropertyChange(QStringLiteral("FontNormal"));
}

void RowList::setFontSelected(OleColor color)
{
    m_FontSelected = color;
    PropertyChange(QStringLiteral("FontSelected"));
}

void RowList::setBackNormal(OleColor color)
{
    m_BackNormal = color;
    PropertyChange(QStringLiteral("BackNormal"));
}

void RowList::setBackSelected(OleColor color)
{
    m_BackSelected = color;
    PropertyChange(QStringLiteral("BackSelected"));
}

void RowList::setBackSelectedG1(OleColor color)
{
    m_BackSelectedG1 = color;
    PropertyChange(QStringLiteral("BackSelectedG1"));
}

void RowList::setBackSelectedG2(OleColor color)
{
    m_BackSelectedG2 = color;
    PropertyChange(QStringLiteral("BackSelectedG2"));
}

void RowList::setBoxBorder(OleColor color)
{
    m_BoxBorder = color;
    PropertyChange(QStringLiteral("BoxBorder"));
}

void RowList::setBoxOffset(short value)
{
    m_BoxOffset = value;
    PropertyChange(QStringLiteral("BoxOffset"));
}

void RowList::setBoxRadius(short value)
{
    m_BoxRadius = value;
    PropertyChange(QStringLiteral("BoxRadius"));
}

void RowList::setBackStyle(short value)
{
    m_BackStyle = value;
    PropertyChange(QStringLiteral("BackStyle"));
}

void RowList::setAlignment(int value)
{
    m_Alignment = value;
    PropertyChange(QStringLiteral("Alignment"));
}

void RowList::setFocus(bool value)
{
    m_Focus = value;
    PropertyChange(QStringLiteral("Focus"));
}

void RowList::setHoverSelection(bool value)
{
    m_HoverSelection = value;
    PropertyChange(QStringLiteral("HoverSelection"));
}

void RowList::setWordWrap(bool value)
{
    m_WordWrap = value;
    PropertyChange(QStringLiteral("WordWrap"));
}

void RowList::setItemHeight(short value)
{
    m_ItemHeight = value;
    PropertyChange(QStringLiteral("ItemHeight"));
}

void RowList::setItemHeightAuto(bool value)
{
    m_ItemHeightAuto = value;
    UpdateItemHeightFromFont();
    PropertyChange(QStringLiteral("ItemHeightAuto"));
}

void RowList::setItemOffset(short value)
{
    m_ItemOffset = value;
    PropertyChange(QStringLiteral("ItemOffset"));
}

void RowList::setItemTextLeft(short value)
{
    m_ItemTextLeft = value;
    PropertyChange(QStringLiteral("ItemTextLeft"));
}

void RowList::setOrderType(short value)
{
    m_OrderType = value;
    Q_EMIT PropertyChanged(QStringLiteral("OrderType"));
}

void RowList::setSelectionPicture(const QImage &picture)
{
    m_SelectionPicture = picture;
    PropertyChange(QStringLiteral("SelectionPicture"));
}

void RowList::setSelectMode(short value)
{
    m_SelectMode = value;
    PropertyChange(QStringLiteral("SelectMode"));
}

void RowList::setSelectModeStyle(short value)
{
    m_SelectModeStyle = value;
    PropertyChange(QStringLiteral("SelectModeStyle"));
}

void RowList::setMousePointer(short value)
{
    m_MousePointer = value;
    ApplyMousePointer();
    Q_EMIT PropertyChanged(QStringLiteral("MousePointer"));
}

void RowList::setMouseIcon(const QImage &icon)
{
    m_MouseIcon = icon;
    ApplyMousePointer();
    Q_EMIT PropertyChanged(QStringLiteral("MouseIcon"));
}

void RowList::setDisabledIcons(bool value)
{
    m_DisabledIcons = value;
    Refresh();
}

void RowList::setSingleIcon(bool value)
{
    m_SingleIcon = value;
    Refresh();
}

void RowList::ApplyMousePointer()
{
    if (m_MousePointer == 0)
        m_iScr->unsetCursor();
    else if (m_MousePointer == 99 && !m_MouseIcon.isNull())
        m_iScr->setCursor(QCursor(QPixmap::fromImage(m_MouseIcon)));
    else
        m_iScr->setCursor(CursorOf(m_MousePointer));
}

void RowList::ResolveColors()
{
    m_cBackNormal = TranslateColor(m_BackNormal);
    m_cBackSelected = TranslateColor(m_BackSelected);
    m_cBoxBorder = TranslateColor(m_BoxBorder);
    m_cFontNormal = TranslateColor(m_FontNormal);
    m_cFontSelected = TranslateColor(m_FontSelected);
    m_cGradient1 = TranslateColor(m_BackSelectedG1);
    m_cGradient2 = TranslateColor(m_BackSelectedG2);
}

void RowList::UpdateItemHeightFromFont()
{
    if (m_ItemHeightAuto)
        m_ItemHeight = static_cast<short>(QFontMetrics(font()).height());
}

// ---- persistence ----------------------------------------------------------------------------

void RowList::WriteProperties(QVariantMap &bag) const
{
    const auto put = [&bag](const char *key, const QVariant &value, const QVariant &fallback) {
        if (value != fallback)
            bag.insert(QString::fromLatin1(key), value);
    };
    put("TTipText", m_TTipText, QString());
    put("Appearance", m_Appearance, short(1));
    // Written against 1 but read against 0: a stored list without the key comes back borderless.
    put("BorderStyle", m_BorderStyle, short(1));
    put("Enabled", isEnabled(), true);
    put("ScrollBarWidth", m_ScrollBarWidth, short(13));
    const QFont ambient = parentWidget() ? parentWidget()->font() : QApplication::font();
    if (font() != ambient)
        bag.insert(QStringLiteral("Font"), font().toString());
    put("FontNormal", m_FontNormal, SystemColor(8));
    put("FontSelected", m_FontSelected, SystemColor(14));
    put("BackNormal", m_BackNormal, SystemColor(5));
    put("BackSelected", m_BackSelected, SystemColor(13));
    put("BackSelectedG1", m_BackSelectedG1, SystemColor(13));
    put("BackSelectedG2", m_BackSelectedG2, SystemColor(13));
    put("BoxBorder", m_BoxBorder, SystemColor(14));
    put("BoxOffset", m_BoxOffset, short(1));
    put("BoxRadius", m_BoxRadius, short(0));
    put("BackStyle", m_BackStyle, short(1));
    put("Alignment", m_Alignment, 0);
    put("Focus", m_Focus, true);
    put("HoverSelection", m_HoverSelection, false);
    put("WordWrap", m_WordWrap, true);
    if (!m_ItemHeightAuto) // otherwise the font decides
        put("ItemHeight", m_ItemHeight, short(0));
    put("ItemHeightAuto", m_ItemHeightAuto, true);
    put("ItemOffset", m_ItemOffset, short(0));
    put("ItemTextLeft", m_ItemTextLeft, short(2));
    put("OrderType", m_OrderType, short(0));
    if (!m_SelectionPicture.isNull())
        bag.insert(QStringLiteral("SelectionPicture"), m_SelectionPicture);
    put("SelectMode", m_SelectMode, short(0));
    put("SelectModeStyle", m_SelectModeStyle, short(0));
    put("MousePointer", m_MousePointer, short(0));
    if (!m_MouseIcon.isNull())
        bag.insert(QStringLiteral("MouseIcon"), m_MouseIcon);
}

void RowList::ReadProperties(const QVariantMap &bag)
{
    const auto get = [&bag](const char *key, const QVariant &fallback) {
        return bag.value(QString::fromLatin1(key), fallback);
    };
    const auto getShort = [&get](const char *key, short fallback) {
        return static_cast<short>(get(key, fallback).toInt());
    };
    m_TTipText = get("TTipText", QString()).toString();
    m_iScr->setToolTip(m_TTipText);
    m_Appearance = getShort("Appearance", 1);
    m_BorderStyle = getShort("BorderStyle", 0);
    m_ScrollBarWidth = getShort("ScrollBarWidth", 13);
    m_FontNormal = get("FontNormal", SystemColor(8)).toUInt();
    m_FontSelected = get("FontSelected", SystemColor(14)).toUInt();
    m_BackNormal = get("BackNormal", SystemColor(5)).toUInt();
    m_BackSelected = get("BackSelected", SystemColor(13)).toUInt();
    m_BackSelectedG1 = get("BackSelectedG1", SystemColor(13)).toUInt();
    m_BackSelectedG2 = get("BackSelectedG2", SystemColor(13)).toUInt();
    m_BoxBorder = get("BoxBorder", SystemColor(14)).toUInt();
    m_BoxOffset = getShort("BoxOffset", 1);
    m_BoxRadius = getShort("BoxRadius", 0);
    m_BackStyle = getShort("BackStyle", 1);
    m_Alignment = get("Alignment", 0).toInt();
    m_Focus = get("Focus", true).toBool();
    m_HoverSelection = get("HoverSelection", false).toBool();
    m_WordWrap = get("WordWrap", true).toBool();
    m_ItemHeightAuto = get("ItemHeightAuto", true).toBool();
    m_ItemHeight = getShort("ItemHeight", 0);
    m_ItemOffset = getShort("ItemOffset", 0);
    m_ItemTextLeft = getShort("ItemTextLeft", 2);
    m_OrderType = getShort("OrderType", 0);
    m_SelectionPicture = get("SelectionPicture", QImage()).value<QImage>();
    m_SelectMode = getShort("SelectMode", 0);
    m_SelectModeStyle = getShort("SelectModeStyle", 0);
    m_MousePointer = getShort("MousePointer", 0);
    m_MouseIcon = get("MouseIcon", QImage()).value<QImage>();
    ApplyMousePointer();
    const QString fontText = get("Font", QString()).toString();
    QFont stored;
    if (!fontText.isEmpty() && stored.fromString(fontText))
        QWidget::setFont(stored); // re-measures the rows through the font change
    setEnabled(get("Enabled", true).toBool());
    UpdateItemHeightFromFont();
    ResolveColors();
    update();
    Relayout();
}

} // namespace zrt
