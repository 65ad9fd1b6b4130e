#include "charts/ChartPictures.h"

#include "charts/PictureBox.h"
#include "files/FileAccess.h"

#include <QBuffer>
#include <QClipboard>
#include <QFileDialog>
#include <QGuiApplication>
#include <QMenu>
#include <QMessageBox>
#include <QPainter>
#include <QRegularExpression>
#include <QSvgGenerator>

namespace zrt {
namespace {

ChartPictureMenu::AskFileName &askHook()
{
    static ChartPictureMenu::AskFileName hook;
    return hook;
}

ChartPictureMenu::ShowFailure &failureHook()
{
    static ChartPictureMenu::ShowFailure hook;
    return hook;
}

QString writeBytes(const QString &path, const QByteArray &bytes)
{
    const FileWrite written = ReplaceFile(path.toStdString(), std::string_view(bytes.constData(), bytes.size()));
    return written ? QString() : QString::fromStdString(written.reason);
}

QString withSuffix(QString path, const QString &suffix)
{
    if (!path.endsWith(suffix, Qt::CaseInsensitive))
        path += suffix;
    return path;
}

const char *kMenuName = "chartPictureMenu";

} // namespace

QImage ChartImage(const PictureBox &box, int scale)
{
    if (scale <= 1)
        return box.Image().copy();
    const QSize client = box.ClientSize();
    QImage image(client * scale, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.scale(scale, scale);
    box.Replay(painter);
    return image;
}

QByteArray ChartSvg(const PictureBox &box, const QString &title)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QSvgGenerator svg;
    svg.setOutputDevice(&buffer);
    const QSize client = box.ClientSize();
    svg.setSize(client);
    svg.setViewBox(QRect(QPoint(0, 0), client));
    // The surface's pixels are the screen's: 96 per inch, so fonts keep their pixel sizes.
    svg.setResolution(96);
    if (!title.isEmpty())
        svg.setTitle(title.toHtmlEscaped()); // the generator writes it into the XML as it stands
    QPainter painter(&svg);
    box.Replay(painter);
    painter.end();
    // The generator gives the size in millimetres, which readers turn back into pixels at
    // different resolutions; the surface's size in pixels means the same to all of them.
    static const QRegularExpression size(QStringLiteral("<svg width=\"[0-9.]+mm\" height=\"[0-9.]+mm\""));
    const QString header = QString::fromUtf8(bytes.left(400));
    const QRegularExpressionMatch m = size.match(header);
    if (m.hasMatch())
        bytes.replace(m.capturedStart(), m.capturedLength(),
                      QStringLiteral("<svg width=\"%1\" height=\"%2\"").arg(client.width()).arg(client.height()).toUtf8());
    return bytes;
}

QString SaveChartPng(const PictureBox &box, const QString &path, int scale)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    if (!ChartImage(box, scale).save(&buffer, "PNG"))
        return QStringLiteral("the picture could not be encoded as PNG");
    return writeBytes(path, bytes);
}

QString SaveChartSvg(const PictureBox &box, const QString &path, const QString &title)
{
    return writeBytes(path, ChartSvg(box, title));
}

void CopyChart(const PictureBox &box)
{
    if (QClipboard *clipboard = QGuiApplication::clipboard())
        clipboard->setImage(ChartImage(box, 1));
}

// --- the context menu

ChartPictureMenu::ChartPictureMenu(PictureBox *box, const QString &title) : QObject(box), m_box(box), m_title(title)
{
    setObjectName(QLatin1String(kMenuName));
}

ChartPictureMenu *ChartPictureMenu::Attach(PictureBox *box, const QString &title)
{
    if (ChartPictureMenu *existing = Of(box))
        return existing;
    auto *menu = new ChartPictureMenu(box, title);
    box->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(box, &QWidget::customContextMenuRequested, menu, [menu, box](const QPoint &at) {
        QMenu *popup = menu->BuildMenu(box);
        popup->setAttribute(Qt::WA_DeleteOnClose);
        popup->popup(box->mapToGlobal(at));
    });
    return menu;
}

ChartPictureMenu *ChartPictureMenu::Of(const PictureBox *box)
{
    return box == nullptr ? nullptr
                          : box->findChild<ChartPictureMenu *>(QLatin1String(kMenuName), Qt::FindDirectChildrenOnly);
}

void ChartPictureMenu::SetAskFileName(AskFileName ask) { askHook() = std::move(ask); }

void ChartPictureMenu::SetShowFailure(ShowFailure show) { failureHook() = std::move(show); }

QMenu *ChartPictureMenu::BuildMenu(QWidget *parent)
{
    auto *menu = new QMenu(parent);
    menu->addAction(tr("Save Picture as &PNG..."), this, [this] { Run(SavePng); });
    menu->addAction(tr("Save Picture as PNG at &Double Size..."), this, [this] { Run(SavePngDouble); });
    menu->addAction(tr("Save Picture as &SVG..."), this, [this] { Run(SaveSvg); });
    menu->addSeparator();
    QAction *copy = menu->addAction(tr("&Copy"), this, [this] { Run(Copy); });
    copy->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_C));
    return menu;
}

void ChartPictureMenu::Run(Action action)
{
    if (action == Copy) {
        CopyChart(*m_box);
        Q_EMIT Copied();
        return;
    }
    const bool svg = action == SaveSvg;
    const QString filter = svg ? tr("SVG picture (*.svg)") : tr("PNG picture (*.png)");
    const QString caption = tr(" Save the picture of %1 as:").arg(m_title);
    QWidget *parent = m_box->window();
    QString path = askHook() ? askHook()(parent, caption, filter)
                             : QFileDialog::getSaveFileName(parent, caption, QString(), filter);
    if (path.isEmpty())
        return;
    path = withSuffix(path, svg ? QStringLiteral(".svg") : QStringLiteral(".png"));
    const QString reason = svg ? SaveChartSvg(*m_box, path, m_title)
                               : SaveChartPng(*m_box, path, action == SavePngDouble ? 2 : 1);
    if (reason.isEmpty()) {
        Q_EMIT Saved(path);
        return;
    }
    const QString text = tr("The picture could not be saved as %1:\n%2").arg(path, reason);
    if (failureHook())
        failureHook()(parent, tr("Picture Not Saved"), text);
    else
        QMessageBox::warning(parent, tr("Picture Not Saved"), text);
    Q_EMIT Failed(text);
}

} // namespace zrt
