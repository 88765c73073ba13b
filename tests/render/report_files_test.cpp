#include "results/paint/jpeg.h"
#include "results/paint/logo_file.h"
#include "results/paint/page_painter.h"
#include "results/paint/pdf.h"
#include "results/report/bitmap_reader.h"
#include "support/application.h"

#include <QBuffer>
#include <QImage>

#include <cstdlib>
#include <gtest/gtest.h>

namespace qor {
namespace {

constexpr std::uint32_t Red = 0xFF0000;
constexpr std::uint32_t Green = 0x00FF00;
constexpr std::uint32_t Blue = 0x0000FF;
constexpr std::uint32_t White = 0xFFFFFF;

Picture16 Noise(int width, int height) {
    Picture16 picture{width, height, {}};
    for (int i = 0; i < width * height; ++i)
        picture.pixels.push_back(static_cast<std::uint16_t>(i * 7919 & 0x7FFF));
    return picture;
}

std::uint32_t Rgb(std::uint16_t pixel) {
    return EightBits(pixel >> 10 & 31U) << 16 | EightBits(pixel >> 5 & 31U) << 8 | EightBits(pixel & 31U);
}

std::string Number(std::uint32_t value, int bytes) {
    std::string text;
    for (; bytes > 0; --bytes, value >>= 8)
        text += static_cast<char>(value & 0xFF);
    return text;
}

/// A bitmap file of 3 x 2 pixels from its parts.
std::string Bitmap(std::uint32_t bits, std::uint32_t compression, const std::string& behindHeader,
                   const std::string& pixels, int height = 2) {
    const std::uint32_t at = 54 + static_cast<std::uint32_t>(behindHeader.size());
    return "BM" + Number(0, 8) + Number(at, 4) + Number(40, 4) + Number(3, 4) +
           Number(static_cast<std::uint32_t>(height), 4) + Number(1, 2) + Number(bits, 2) +
           Number(compression, 4) + Number(0, 20) + behindHeader + pixels;
}

std::string Bytes(std::initializer_list<int> values) {
    std::string bytes;
    for (const int value : values)
        bytes += static_cast<char>(value);
    return bytes;
}

/// Black, red, green, blue.
std::string Palette(std::size_t entries) {
    std::string palette = Bytes({0, 0, 0, 0, 0, 0, 255, 0, 0, 255, 0, 0, 255, 0, 0, 0});
    palette.resize(4 * entries, '\0');
    return palette;
}

TEST(ReportFiles, BitmapsAreReadInEveryForm) {
    // The upper row red, green, blue; the lower one blue, green, red.
    const std::vector<std::uint32_t> picture = {Red, Green, Blue, Blue, Green, Red};
    const std::string five = Number(0x001F, 2) + Number(0x03E0, 2) + Number(0x7C00, 2) + Number(0, 2) +
                             Number(0x7C00, 2) + Number(0x03E0, 2) + Number(0x001F, 2) + Number(0, 2);
    const std::string sixGreen = Number(0x001F, 2) + Number(0x07E0, 2) + Number(0xF800, 2) + Number(0, 2) +
                                 Number(0xF800, 2) + Number(0x07E0, 2) + Number(0x001F, 2) + Number(0, 2);
    const std::string sixMasks = Number(0xF800, 4) + Number(0x07E0, 4) + Number(0x001F, 4);
    const std::string threes = Bytes(
        {255, 0, 0, 0, 255, 0, 0, 0, 255, 0, 0, 0, 0, 0, 255, 0, 255, 0, 255, 0, 0}); // last row unfilled
    const std::string fours = Number(Blue, 4) + Number(Green, 4) + Number(Red, 4) + Number(Red, 4) +
                              Number(Green, 4) + Number(Blue, 4);
    const std::string fromTop = Number(Red, 4) + Number(Green, 4) + Number(Blue, 4) + Number(Blue, 4) +
                                Number(Green, 4) + Number(Red, 4);
    const std::string oldest = "BM" + Number(0, 8) + Number(26 + 48, 4) + Number(12, 4) + Number(3, 2) +
                               Number(2, 2) + Number(1, 2) + Number(4, 2) +
                               Bytes({0, 0, 0, 0, 0, 255, 0, 255, 0, 255, 0, 0}) + std::string(36, '\0') +
                               Bytes({0x32, 0x10, 0, 0, 0x12, 0x30, 0, 0});
    struct {
        const char* what;
        std::string bytes;
    } const forms[] = {
        {"4 bits", Bitmap(4, 0, Palette(16), Bytes({0x32, 0x10, 0, 0, 0x12, 0x30, 0, 0}))},
        {"8 bits", Bitmap(8, 0, Palette(256), Bytes({3, 2, 1, 0, 1, 2, 3, 0}))},
        {"8 bits in runs",
         Bitmap(8, 1, Palette(256), Bytes({0, 3, 3, 2, 1, 0, 0, 0, 1, 1, 1, 2, 1, 3, 0, 1}))},
        {"4 bits in runs",
         Bitmap(4, 2, Palette(16), Bytes({0, 3, 0x32, 0x10, 0, 0, 2, 0x12, 1, 0x30, 0, 1}))},
        {"16 bits", Bitmap(16, 0, "", five)},
        {"16 bits, masks", Bitmap(16, 3, sixMasks, sixGreen)},
        {"24 bits", Bitmap(24, 0, "", threes)},
        {"32 bits", Bitmap(32, 0, "", fours)},
        {"32 bits from the top", Bitmap(32, 0, "", fromTop, -2)},
        {"the oldest header", oldest},
    };
    for (const auto& form : forms) {
        const auto read = ReadLogo(form.bytes);
        ASSERT_TRUE(read) << form.what;
        EXPECT_EQ(read->width, 3) << form.what;
        EXPECT_EQ(read->pixels, picture) << form.what;
        const std::string last = form.bytes.substr(0, form.bytes.size() - 4);
        if (const auto cut = ReadLogo(last)) {
            EXPECT_NE(std::string(form.what).find("runs"), std::string::npos) << form.what;
        }
    }
    const auto stepped = ReadBitmap(Bitmap(8, 1, Palette(256), Bytes({0, 2, 2, 1, 9, 1, 0, 1})));
    ASSERT_TRUE(stepped);
    EXPECT_EQ(stepped->pixels, (std::vector<std::uint32_t>{White, White, Red, White, White, White}));
    EXPECT_FALSE(ReadBitmap(Bitmap(24, 0, "", "")));
    EXPECT_FALSE(ReadBitmap(Bitmap(24, 0, "", std::string(200, 'x'), 1 << 30))) << "of no reasonable size";
    EXPECT_FALSE(ReadBitmap(Bitmap(7, 0, "", std::string(200, 'x'))));
    EXPECT_FALSE(ReadLogo("no picture"));
    EXPECT_FALSE(ReadLogo(""));
}

TEST(ReportFiles, OurBitmapsAreThePage) {
    const Picture16 page = Noise(5, 3);
    const std::string file = FormatBitmap(page);
    EXPECT_EQ(file.size(), 54U + 12 * 3) << "rows begin at a multiple of four";
    EXPECT_EQ(FormatBitmap(Noise(956, 1212)).size(), 54U + 956 * 1212 * 2);
    EXPECT_EQ(file.substr(10, 4), Number(54, 4));
    EXPECT_EQ(file.substr(28, 2), Number(16, 2));
    const auto read = ReadBitmap(file);
    ASSERT_TRUE(read);
    for (std::size_t i = 0; i < page.pixels.size(); ++i)
        EXPECT_EQ((read->pixels[i] ^ Rgb(page.pixels[i])) & 0xF8F8F8, 0U) << i;
    const PictureRgb full{3, 2, {Red, Green, Blue, White, 0x123456, 0}};
    const auto again = ReadBitmap(FormatBitmap(full));
    ASSERT_TRUE(again);
    EXPECT_EQ(again->pixels, full.pixels);
    const QImage other = QImage::fromData(QByteArray::fromStdString(file), "BMP");
    ASSERT_EQ(other.size(), QSize(5, 3)) << "as another reader sees it";
    EXPECT_EQ((other.pixel(4, 2) ^ Rgb(page.pixels[14])) & 0xF8F8F8, 0U);
}

TEST(ReportFiles, JpegKeepsColours) {
    Picture16 page = Noise(64, 48);
    for (std::size_t i = 0; i < page.pixels.size();
         ++i) // columns of single pixels: halved colours would mix them
        page.pixels[i] = i % 2 ? 0x7C00 : 0x001F;
    const auto read = ReadLogo(FormatJpeg(page));
    ASSERT_TRUE(read);
    EXPECT_EQ(read->width, 64);
    int worst = 0;
    for (std::size_t i = 0; i < page.pixels.size(); ++i) {
        for (const int shift : {0, 8, 16})
            worst = std::max(worst, std::abs(static_cast<int>(read->pixels[i] >> shift & 255U) -
                                             static_cast<int>(Rgb(page.pixels[i]) >> shift & 255U)));
    }
    EXPECT_LE(worst, 4);
}

TEST(ReportFiles, LogosOfOtherForms) {
    QImage image(3, 2, QImage::Format_ARGB32);
    image.fill(Qt::red);
    image.setPixel(1, 1, 0); // nothing there
    QByteArray png;
    QBuffer buffer(&png);
    image.save(&buffer, "PNG");
    const auto read = ReadLogo(png.toStdString());
    ASSERT_TRUE(read);
    EXPECT_EQ(read->pixels, (std::vector<std::uint32_t>{Red, Red, Red, Red, White, Red}));
    EXPECT_FALSE(ReadLogo(png.left(png.size() / 2).toStdString()));
}

TEST(ReportFiles, PdfHoldsThePictureAndItsTexts) {
    const std::string jpeg = FormatJpeg(Noise(PageWidth, PageHeight));
    const std::vector<LayerText> texts = {{200, 122, 300, 36, "PIM (Test)"},
                                          {15, 300, 100, 19, "caf\xC3\xA9"},
                                          {15, 320, 100, 19, "Nr \xE4\xB8\xAD 7"},
                                          {15, 340, 100, 19, "\xF0\x9F\x98\x80"},
                                          {15, 360, 0, 19, ""}};
    const std::string pdf = FormatPdf(jpeg, texts);
    const auto has = [&pdf](const std::string& part) { return pdf.find(part) != std::string::npos; };
    EXPECT_EQ(pdf.substr(0, 8), "%PDF-1.4");
    EXPECT_TRUE(has(jpeg)) << "byte for byte";
    EXPECT_TRUE(has("573.6") && has("727.2") && has(" 10 100 cm")) << "0.6 points a pixel";
    for (const char* field : {"/Creator (PDF Creator)", "/Author (", "/Title (Convert to PDF)",
                              "/Subject (PDF Creator)", "/Keywords (zandvoss)"})
        EXPECT_TRUE(has(field)) << field;
    EXPECT_TRUE(has("3 Tr")) << "unseen";
    EXPECT_TRUE(has("(PIM \\050Test\\051) Tj"));
    EXPECT_TRUE(has("(caf\\351) Tj"));
    EXPECT_TRUE(has("<D6D0> Tj")) << "of another script";
    EXPECT_TRUE(has("(Nr ) Tj") && has("( 7) Tj"));
    EXPECT_TRUE(has("(?) Tj"));
}

TEST(ReportFiles, ThePageAsAPicture) {
    test::NeedApplication();
    ReportPage page;
    page.texts = {{200, 90, "IM Messung", TitleFont, 0x050000}, {550, 250, "row", RowFont, Red}};
    page.plot = {0, 606, 956, 606};
    page.logo = LogoPlace(40, 30);
    QImage plot(956, 606, QImage::Format_RGB32);
    plot.fill(0xFF00FF);
    const PictureRgb logo{40, 30, std::vector<std::uint32_t>(1200, 0x0000FF)};
    const PaintedPage painted = PaintPage(page, plot, &logo);
    const auto at = [&painted](int x, int y) {
        return painted.picture.pixels[static_cast<std::size_t>(y) * 956 + static_cast<std::size_t>(x)];
    };
    ASSERT_EQ(painted.picture.pixels.size(), 956U * 1212);
    EXPECT_EQ(at(0, 0), 0x7FFF) << "white";
    EXPECT_EQ(at(0, 605), 0x7FFF);
    EXPECT_EQ(at(0, 606), 0x7C1F);
    EXPECT_EQ(at(955, 1211), 0x7C1F);
    EXPECT_EQ(at(915, 15), 0x7FFF);
    EXPECT_EQ(at(916, 15), 0x001F);
    EXPECT_EQ(at(955, 44), 0x001F);
    EXPECT_EQ(at(955, 45), 0x7FFF);
    // The letters stand in their line, and reach as far as the layer says.
    int left = 956;
    int right = 0;
    int top = 1212;
    int bottom = 0;
    for (int y = 46; y < 240; ++y) {
        for (int x = 0; x < 956; ++x) {
            if (at(x, y) == 0x7FFF)
                continue;
            left = std::min(left, x);
            right = std::max(right, x);
            top = std::min(top, y);
            bottom = std::max(bottom, y);
        }
    }
    const LayerText& title = painted.texts.at(0);
    EXPECT_NEAR(left, 203, 3);
    EXPECT_NEAR(right, title.x + title.width, 4);
    EXPECT_GE(top, 90);
    EXPECT_LE(bottom, 130);
    EXPECT_NEAR(title.baseline, 122.4, 0.1);
    // "IM Messung" in units of the face, at 16 pixels for an average of 904.
    const double units = 569 + 1706 + 569 + 1706 + 1139 + 1024 + 1024 + 1139 + 1139 + 1139;
    EXPECT_NEAR(title.width, units / 904 * 16, 2);
}

} // namespace
} // namespace qor
