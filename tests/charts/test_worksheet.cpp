// The printed worksheet: a PDF read back with the poppler tools, by its text and its pixels.

#include "ChartTestSupport.h"

#include "charts/BoxPlots.h"
#include "export/Worksheet.h"

#include <QFile>
#include <QPrinter>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace zrt;
using namespace charttest;

namespace {

bool HaveTool(const char *name) { return !QStandardPaths::findExecutable(QString::fromLatin1(name)).isEmpty(); }

QString Run(const QString &program, const QStringList &args)
{
    QProcess p;
    p.start(program, args);
    p.waitForFinished(60000);
    return QString::fromUtf8(p.readAllStandardOutput());
}

QString PdfText(const QString &pdf) { return Run(QStringLiteral("pdftotext"), {QStringLiteral("-layout"), pdf, QStringLiteral("-")}); }

// The first page at 50 dots per inch.
QImage PdfPage(const QString &pdf, const QString &stem)
{
    Run(QStringLiteral("pdftoppm"), {QStringLiteral("-r"), QStringLiteral("50"), QStringLiteral("-png"),
                                     QStringLiteral("-singlefile"), pdf, stem});
    return QImage(stem + ".png").convertToFormat(QImage::Format_RGB32);
}

struct Drawn {
    PictureBox box;
    Drawn()
    {
        Prepare(box, 400, 200);
        AnalysisResults r;
        r.SampleSize = 8;
        r.LowestValue = 20;
        r.HighestValue = 60;
        r.RangeValue = 40;
        r.MedianValue = 29;
        r.LowerQuartile = 25;
        r.UpperQuartile = 34;
        r.InterquartileRange = 9;
        r.LowerOutlierLimit = 11.5;
        r.UpperOutlierLimit = 47.5;
        DrawBoxPlot(box, {20, 24, 26, 28, 30, 32, 36, 60}, r, 0, true);
    }
};

Worksheet Sheet(const PictureBox *chart, bool blanks)
{
    Worksheet w;
    w.title = QStringLiteral("Averages");
    w.dataText = QStringLiteral("20, 24, 26, 28, 30, 32, 36, 60, ");
    w.answers = {{QStringLiteral("Mean"), QStringLiteral("32.0123"), true},
                 {QStringLiteral("Median"), QStringLiteral("29.4567"), false},
                 {QStringLiteral("Range"), QStringLiteral("40.8899"), true},
                 {QStringLiteral("Mode"), QStringLiteral("No mode 7531"), false}};
    w.blanksForHidden = blanks;
    w.chart = chart;
    return w;
}

// Pixels near the box plot's fill colour, which nothing else on the sheet has.
int FillPixels(const QImage &page)
{
    const QColor fill = TranslateColor(BoxFill);
    int n = 0;
    for (int y = 0; y < page.height(); ++y)
        for (int x = 0; x < page.width(); ++x) {
            const QColor c(page.pixel(x, y));
            n += std::abs(c.red() - fill.red()) + std::abs(c.green() - fill.green()) + std::abs(c.blue() - fill.blue()) < 12;
        }
    return n;
}

int DarkPixels(const QImage &page, const QRect &r)
{
    int n = 0;
    for (int y = r.top(); y <= r.bottom(); ++y)
        for (int x = r.left(); x <= r.right(); ++x)
            n += qGray(page.pixel(x, y)) < 100;
    return n;
}

} // namespace

TEST(Worksheet, PdfShowsRevealedAnswersAndTheChartButNoHiddenAnswer)
{
    if (!HaveTool("pdftotext") || !HaveTool("pdftoppm"))
        GTEST_SKIP() << "pdftotext and pdftoppm (poppler-utils) are needed to read the PDF back";
    QTemporaryDir dir;
    Drawn chart;

    for (const bool blanks : {false, true}) {
        SCOPED_TRACE(blanks ? "blanks for pupils" : "answers only");
        const QString pdf = dir.filePath(blanks ? "pupils.pdf" : "key.pdf");
        ASSERT_EQ(WriteWorksheetPdf(Sheet(&chart.box, blanks), pdf), QString());

        const QString text = PdfText(pdf);
        EXPECT_TRUE(text.contains("Averages")) << text.toStdString();
        EXPECT_TRUE(text.contains("20, 24, 26, 28, 30, 32, 36, 60,"));
        EXPECT_TRUE(text.contains(QRegularExpression("Mean +32\\.0123")));
        EXPECT_TRUE(text.contains(QRegularExpression("Range +40\\.8899")));
        EXPECT_FALSE(text.contains("29.4567"));
        EXPECT_FALSE(text.contains("7531"));
        // Hidden questions are there to be answered only on the pupils' sheet.
        EXPECT_EQ(text.contains("Median"), blanks);
        EXPECT_EQ(text.contains("Name"), blanks);
        EXPECT_TRUE(text.contains("55")); // a label of the chart's scale

        const QImage page = PdfPage(pdf, dir.filePath(blanks ? "pupils" : "key"));
        ASSERT_FALSE(page.isNull());
        // A4 at 50 dpi: 413 x 585. The chart fills the text width below the answers: its box is
        // 80 of 200 rows high and 64 of 400 columns wide, scaled by about 354 / 400.
        EXPECT_NEAR(page.width(), 413, 2);
        const int fill = FillPixels(page);
        EXPECT_GT(fill, 30 * 40);
        EXPECT_LT(fill, 60 * 80);
        // Ink at the top where the title and the answers stand.
        EXPECT_GT(DarkPixels(page, QRect(30, 30, 350, 30)), 20);
    }
}

TEST(Worksheet, ALongDataTextRunsOnToMorePagesAndAFailedWriteKeepsTheOldFile)
{
    QTemporaryDir dir;
    Drawn chart;
    Worksheet w = Sheet(&chart.box, true);
    QString many;
    for (int i = 0; i < 4000; ++i)
        many += QString::number(100 + i % 900) + QStringLiteral(", ");
    w.dataText = many;
    const QString pdf = dir.filePath("long.pdf");
    ASSERT_EQ(WriteWorksheetPdf(w, pdf), QString());
    QFile f(pdf);
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    const QByteArray bytes = f.readAll();
    EXPECT_GE(bytes.count("/Type /Page\n") + bytes.count("/Type /Page\r") + bytes.count("/Type /Page "), 2);

    const QString bad = dir.filePath("missing/folder/sheet.pdf");
    EXPECT_NE(WriteWorksheetPdf(w, bad), QString());
    EXPECT_FALSE(QFile::exists(bad));
}

TEST(Worksheet, PrintingGoesThroughTheDialogAndACancelPrintsNothing)
{
    QTemporaryDir dir;
    Drawn chart;
    const QString out = dir.filePath("printed.pdf");
    int asked = 0;
    SetPrintDialogHook([&](QPrinter &printer, QWidget *) {
        ++asked;
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(out);
        return asked == 1; // the second time the dialog is cancelled
    });
    QString failure;
    EXPECT_TRUE(PrintWorksheet(Sheet(&chart.box, false), nullptr, &failure));
    EXPECT_EQ(failure, QString());
    EXPECT_TRUE(QFile::exists(out));
    QFile::remove(out);
    EXPECT_FALSE(PrintWorksheet(Sheet(&chart.box, false), nullptr, &failure));
    EXPECT_EQ(failure, QString());
    EXPECT_FALSE(QFile::exists(out));
    EXPECT_EQ(asked, 2);
    SetPrintDialogHook({});
}
