#include "results/paint/page_painter.h"

#include <QFontMetricsF>
#include <QImage>
#include <QPainter>

#include <cmath>

namespace qor {

namespace {

/// The font of a text in the next whole size, which the painter then scales.
struct LaidFont {
    QFont font;
    double down;   ///< scale from the whole size to the page's
    double across; ///< the same, stretched

    explicit LaidFont(const PageFont& wanted) : font(QStringLiteral("Liberation Sans")) {
        font.setStyleHint(QFont::SansSerif);
        font.setKerning(false); // each character keeps its width, as in the rows of two columns
        font.setHintingPreference(QFont::PreferNoHinting);
        const int whole = std::max(static_cast<int>(std::lround(wanted.Size())), 1);
        font.setPixelSize(whole);
        down = wanted.Size() / whole;
        across = down * wanted.Stretch();
    }
};

LayerText Paint(QPainter& painter, const PageText& text) {
    const LaidFont laid(text.font);
    const QString shown = QString::fromStdString(text.text);
    const double baseline = text.y + text.font.Ascent();
    painter.save();
    painter.translate(text.x, baseline);
    painter.scale(laid.across, laid.down);
    painter.setFont(laid.font);
    painter.setPen(QColor::fromRgb(0xFF000000U | text.colour));
    painter.drawText(QPointF(0, 0), shown);
    painter.restore();
    const double width = QFontMetricsF(laid.font).horizontalAdvance(shown) * laid.across;
    return {static_cast<double>(text.x), baseline, width, text.font.Size(), text.text};
}

QRect RectOf(const PagePlace& place) {
    return {place.x, place.y, place.width, place.height};
}

} // namespace

PaintedPage PaintPage(const ReportPage& page, const QImage& plot, const PictureRgb* logo) {
    QImage image(PageWidth, PageHeight, QImage::Format_RGB32);
    image.fill(Qt::white);
    PaintedPage painted;
    {
        QPainter painter(&image);
        painter.setRenderHints(QPainter::TextAntialiasing | QPainter::SmoothPixmapTransform);
        painter.drawImage(QPoint(page.plot.x, page.plot.y), plot);
        if (logo && page.logo) {
            const QImage company(reinterpret_cast<const uchar*>(logo->pixels.data()), logo->width,
                                 logo->height, QImage::Format_RGB32);
            const QRect place = RectOf(*page.logo);
            painter.drawImage(place.topLeft(), company.size() == place.size()
                                                   ? company
                                                   : company.scaled(place.size(), Qt::IgnoreAspectRatio,
                                                                    Qt::SmoothTransformation));
        }
        for (const PageText& text : page.texts)
            painted.texts.push_back(Paint(painter, text));
    }
    painted.picture = InSixteenBits(image);
    return painted;
}

Picture16 InSixteenBits(const QImage& image) {
    const QImage full =
        image.format() == QImage::Format_RGB32 ? image : image.convertToFormat(QImage::Format_RGB32);
    Picture16 picture{full.width(), full.height(), {}};
    picture.pixels.resize(static_cast<std::size_t>(full.width()) * static_cast<std::size_t>(full.height()));
    std::uint16_t* to = picture.pixels.data();
    for (int y = 0; y < full.height(); ++y) {
        const auto* from = reinterpret_cast<const std::uint32_t*>(full.constScanLine(y));
        for (int x = 0; x < full.width(); ++x, ++from, ++to)
            *to = static_cast<std::uint16_t>((*from >> 9 & 0x7C00) | (*from >> 6 & 0x03E0) |
                                             (*from >> 3 & 0x1F));
    }
    return picture;
}

} // namespace qor
