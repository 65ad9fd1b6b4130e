#include "export/Worksheet.h"

#include "charts/Drawings.h"
#include "charts/PictureBox.h"
#include "files/FileAccess.h"

#include <QBuffer>
#include <QFont>
#include <QFontMetricsF>
#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QPrinter>
#include <QTextLayout>

#include <algorithm>

namespace zrt {
namespace {

PrintDialogHook &dialogHook()
{
    static PrintDialogHook hook;
    return hook;
}

// Lines of text broken to a width, laid out from y = 0.
struct Wrapped {
    explicit Wrapped(const QString &text, const QFont &font, QPaintDevice *device, qreal width)
        : layout(text, font, device)
    {
        QTextOption option;
        option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
        layout.setTextOption(option);
        layout.beginLayout();
        qreal y = 0;
        for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
            line.setLineWidth(width);
            line.setPosition(QPointF(0, y));
            y += line.height();
        }
        layout.endLayout();
        height = y;
    }
    QTextLayout layout;
    qreal height = 0;
};

class SheetWriter {
public:
    SheetWriter(QPainter &painter, QPagedPaintDevice &device)
        : m_painter(painter), m_device(device), m_width(device.width()), m_height(device.height())
    {
    }

    int pages() const { return m_pages; }

    void heading(const QString &text)
    {
        QFont font(Drawings::LabelFamily());
        font.setPointSizeF(16);
        font.setBold(true);
        paragraph(text, font);
        m_y += lineHeight(font) * 0.5;
    }

    // A paragraph per line of the text, each broken to the page's width; pages break between lines.
    void paragraph(const QString &text, const QFont &font)
    {
        for (const QString &part : text.split(QLatin1Char('\n'))) {
            Wrapped w(part.isEmpty() ? QStringLiteral(" ") : part, font, &m_device, m_width);
            for (int i = 0; i < w.layout.lineCount(); ++i) {
                const QTextLine line = w.layout.lineAt(i);
                room(line.height());
                line.draw(&m_painter, QPointF(0, m_y - line.y()));
                m_y += line.height();
            }
        }
    }

    // A question and its answer side by side; a blank answer is a line to write on.
    void answerRow(const QString &question, const QString *answer, const QFont &font)
    {
        const qreal gap = lineHeight(font) * 0.3;
        const qreal answerX = m_width * 0.45;
        Wrapped q(question, font, &m_device, answerX - gap);
        Wrapped a(answer ? *answer : QStringLiteral(" "), font, &m_device, m_width - answerX);
        const qreal blankLine = answer ? 0 : lineHeight(font) * 1.8; // room to write on
        const qreal h = std::max({q.height, a.height, blankLine}) + gap;
        room(h);
        q.layout.draw(&m_painter, QPointF(0, m_y));
        if (answer) {
            a.layout.draw(&m_painter, QPointF(answerX, m_y));
        } else {
            m_painter.save();
            m_painter.setPen(QPen(Qt::black, std::max(1.0, m_device.logicalDpiY() / 150.0)));
            const qreal y = m_y + blankLine;
            m_painter.drawLine(QPointF(answerX, y), QPointF(m_width, y));
            m_painter.restore();
        }
        m_y += h;
    }

    void space(qreal h) { m_y += h; }

    // The chart painted again at the device's resolution, as wide as the text at most.
    void chart(const PictureBox &box)
    {
        const QSize size = box.ClientSize();
        if (size.isEmpty())
            return;
        qreal scale = std::min(m_width / size.width(), m_height / size.height());
        if (m_y + size.height() * scale > m_height) {
            const qreal left = m_height - m_y;
            if (left >= m_height / 2)
                scale = left / size.height();
            else
                newPage();
        }
        m_painter.save();
        m_painter.translate(0, m_y);
        m_painter.scale(scale, scale);
        box.Replay(m_painter);
        m_painter.restore();
        m_y += size.height() * scale;
    }

    qreal lineHeight(const QFont &font) const { return QFontMetricsF(font, &m_device).height(); }

private:
    void room(qreal h)
    {
        if (m_y > 0 && m_y + h > m_height)
            newPage();
    }
    void newPage()
    {
        m_device.newPage();
        ++m_pages;
        m_y = 0;
    }

    QPainter &m_painter;
    QPagedPaintDevice &m_device;
    qreal m_width;
    qreal m_height;
    qreal m_y = 0;
    int m_pages = 1;
};

} // namespace

int PaintWorksheet(QPainter &painter, QPagedPaintDevice &device, const Worksheet &sheet)
{
    SheetWriter w(painter, device);
    QFont body(Drawings::LabelFamily());
    body.setPointSizeF(11);
    painter.setPen(Qt::black);

    w.heading(sheet.title);
    if (sheet.blanksForHidden) {
        w.answerRow(QObject::tr("Name"), nullptr, body);
        w.space(w.lineHeight(body) * 0.5);
    }
    if (!sheet.dataText.isEmpty()) {
        w.paragraph(sheet.dataText, body);
        w.space(w.lineHeight(body));
    }
    for (const WorksheetAnswer &a : sheet.answers) {
        if (a.revealed)
            w.answerRow(a.question, &a.answer, body);
        else if (sheet.blanksForHidden)
            w.answerRow(a.question, nullptr, body);
    }
    if (sheet.chart != nullptr) {
        w.space(w.lineHeight(body));
        w.chart(*sheet.chart);
    }
    return w.pages();
}

QString WriteWorksheetPdf(const Worksheet &sheet, const QString &path)
{
    QByteArray bytes;
    {
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::WriteOnly);
        QPdfWriter pdf(&buffer);
        pdf.setResolution(300);
        pdf.setPageLayout(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait, QMarginsF(15, 15, 15, 15),
                                      QPageLayout::Millimeter));
        pdf.setTitle(sheet.title);
        pdf.setCreator(QStringLiteral("Zorvane Reaction Times"));
        QPainter painter;
        if (!painter.begin(&pdf))
            return QStringLiteral("the PDF could not be started");
        PaintWorksheet(painter, pdf, sheet);
        painter.end();
    }
    const FileWrite written = ReplaceFile(path.toStdString(), std::string_view(bytes.constData(), bytes.size()));
    return written ? QString() : QString::fromStdString(written.reason);
}

bool PrintWorksheet(const Worksheet &sheet, QWidget *parent, QString *failure)
{
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(sheet.title);
    bool accepted = false;
    if (dialogHook()) {
        accepted = dialogHook()(printer, parent);
    } else {
        QPrintDialog dialog(&printer, parent);
        accepted = dialog.exec() == QDialog::Accepted;
    }
    if (!accepted)
        return false;
    QPainter painter;
    if (!painter.begin(&printer)) {
        if (failure)
            *failure = QObject::tr("The printer could not be started.");
        return false;
    }
    PaintWorksheet(painter, printer, sheet);
    if (!painter.end() || printer.printerState() == QPrinter::Error) {
        if (failure)
            *failure = QObject::tr("The printer reported an error.");
        return false;
    }
    return true;
}

void SetPrintDialogHook(PrintDialogHook hook) { dialogHook() = std::move(hook); }

} // namespace zrt
