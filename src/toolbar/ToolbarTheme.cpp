#include "toolbar/ToolbarTheme.h"

#include <QtGlobal>
#if QT_VERSION >= QT_VERSION_CHECK(6, 5, 0)
#include <QGuiApplication>
#include <QStyleHints>
#endif

#include <utility>

namespace zrt {

namespace {

std::function<QString()> &ThemeSource()
{
    static std::function<QString()> source;
    return source;
}

QString AskToolkitForScheme()
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 5, 0)
    if (auto *app = qobject_cast<QGuiApplication *>(QCoreApplication::instance())) {
        switch (app->styleHints()->colorScheme()) {
        case Qt::ColorScheme::Light: return QStringLiteral("NormalColor");
        case Qt::ColorScheme::Dark: return QStringLiteral("Metallic");
        default: break;
        }
    }
#endif
    return QStringLiteral("Classic");
}

void WriteCommonColors(ThemeColors &c)
{
    c[2] = RGB(255, 207, 142);
    c[3] = RGB(255, 245, 206);
    c[4] = RGB(254, 145, 78);
    c[5] = RGB(254, 211, 142);
    c[10] = RGB(255, 212, 144);
    c[11] = RGB(255, 154, 87);
    c[12] = RGB(255, 197, 125);
    c[13] = RGB(255, 244, 204);
    c[14] = RGB(255, 238, 194);
    c[15] = RGB(255, 128, 62);
    c[16] = RGB(255, 192, 111);
}

void WriteReversedCommonColors(ThemeColors &c)
{
    c[2] = RGB(255, 245, 206);
    c[3] = RGB(255, 207, 142);
    c[4] = RGB(254, 211, 142);
    c[5] = RGB(254, 145, 78);
    c[10] = RGB(255, 154, 87);
    c[11] = RGB(255, 212, 144);
    c[12] = RGB(255, 244, 204);
    c[13] = RGB(255, 197, 125);
}

// Entries 0, 1, 6, 7, 8, 9 of each row.
struct Row {
    OleColor e0, e1, e6, e7, e8, e9;
};

constexpr Row kRows[5] = {
    {RGB(129, 169, 226), RGB(221, 236, 254), RGB(59, 97, 156), RGB(0, 45, 150), RGB(0, 53, 145),
     RGB(118, 167, 241)},
    {RGB(153, 151, 180), RGB(244, 244, 251), RGB(124, 124, 148), RGB(75, 75, 111), RGB(118, 116, 146),
     RGB(180, 179, 200)},
    {RGB(181, 197, 143), RGB(247, 249, 225), RGB(96, 128, 88), RGB(63, 93, 56), RGB(96, 119, 107),
     RGB(177, 195, 141)},
    {RGB(194, 194, 171), RGB(248, 248, 242), RGB(145, 145, 115), RGB(49, 106, 197), RGB(148, 148, 119),
     RGB(208, 208, 198)},
    // The brown of entries 6 to 8 is meant: the gold scheme has no darker line colour.
    {RGB(217, 172, 1), RGB(255, 239, 165), RGB(117, 91, 30), RGB(117, 91, 30), RGB(117, 91, 30),
     RGB(245, 179, 90)},
};

void WriteRow(ThemeColors &c, int row)
{
    const Row &r = kRows[row];
    c[0] = r.e0;
    c[1] = r.e1;
    c[6] = r.e6;
    c[7] = r.e7;
    c[8] = r.e8;
    c[9] = r.e9;
    if (row == 3) {
        // The classic-blue scheme lights its buttons in blue instead of the warm colours.
        for (int i : {2, 3, 12, 13, 14})
            c[i] = RGB(191, 209, 239);
        for (int i : {4, 5, 10, 11, 15, 16})
            c[i] = RGB(149, 179, 228);
    }
}

int RowFor(int themeColor)
{
    if (themeColor == theme::FollowDesktop)
        return ThemeRowForName(DesktopThemeName());
    if (themeColor >= 0 && themeColor <= 4)
        return themeColor;
    return 1;
}

} // namespace

int ThemeRowForName(const QString &name)
{
    if (name == QLatin1String("NormalColor"))
        return 0;
    if (name == QLatin1String("HomeStead"))
        return 2;
    return 1;
}

QString DesktopThemeName()
{
    if (ThemeSource())
        return ThemeSource()();
    return AskToolkitForScheme();
}

void SetDesktopThemeSource(std::function<QString()> source) { ThemeSource() = std::move(source); }

ThemeColors ThemeColorsFor(int themeColor, bool reverseGradient)
{
    ThemeColors c{};
    WriteCommonColors(c);
    WriteRow(c, RowFor(themeColor));
    if (reverseGradient) {
        std::swap(c[0], c[1]);
        std::swap(c[8], c[9]);
        WriteReversedCommonColors(c);
    }
    return c;
}

} // namespace zrt
