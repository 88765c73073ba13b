#include "platform/print/qt_printers.h"

#include <QImage>
#include <QPainter>
#include <QPrinter>
#include <QPrinterInfo>

namespace qor {

namespace {

bool PrintOn(QPrinter& printer, const PrintJob& job) {
    printer.setDocName(QString::fromUtf8(job.title.data(), static_cast<qsizetype>(job.title.size())));
    printer.setPageSize(QPageSize(QPageSize::A4));
    QPageLayout layout = printer.pageLayout();
    layout.setMargins(layout.minimumMargins()); // the page is laid out for all that can be printed on
    printer.setPageLayout(layout);
    const QSizeF paper = layout.paintRect(QPageLayout::Millimeter).size();
    const PaperPlace place =
        job.place({paper.width(), paper.height(), printer.logicalDpiX(), printer.logicalDpiY()});
    const QImage image(reinterpret_cast<const uchar*>(job.pixels), job.width, job.height, 2 * job.width,
                       QImage::Format_RGB555);
    QPainter painter;
    if (!painter.begin(&printer))
        return false;
    painter.drawImage(QRectF(0, 0, place.dotsWide, place.dotsHigh),
                      image.convertToFormat(QImage::Format_RGB32),
                      QRectF(0, 0, place.pixelsWide, place.pixelsHigh));
    return painter.end();
}

} // namespace

std::vector<std::string> QtPrinters::Names() const {
    std::vector<std::string> names;
    for (const QString& name : QPrinterInfo::availablePrinterNames())
        names.push_back(name.toStdString());
    return names;
}

std::string QtPrinters::DefaultName() const {
    return QPrinterInfo::defaultPrinterName().toStdString();
}

bool QtPrinters::Print(const std::string& printer, const PrintJob& job) {
    const QPrinterInfo info = QPrinterInfo::printerInfo(QString::fromStdString(printer));
    if (info.isNull()) // the toolkit would make a file of it
        return false;
    QPrinter paper(info, QPrinter::HighResolution);
    return PrintOn(paper, job);
}

bool QtPrinters::PrintToFile(const std::filesystem::path& path, const PrintJob& job) {
    QPrinter file(QPrinter::HighResolution);
    file.setOutputFormat(QPrinter::PdfFormat);
    file.setOutputFileName(QString::fromStdString(path.string()));
    return PrintOn(file, job);
}

} // namespace qor
