#include "results/paint/pdf.h"

#include "results/report/report_page.h"

#include <algorithm>
#include <hpdf.h>
#include <iconv.h>
#include <memory>
#include <optional>
#include <vector>

namespace qor {

namespace {

// A4, and the picture on it, in points.
constexpr float PaperWidth = 595;
constexpr float PaperHeight = 842;
constexpr float Left = 10;
constexpr float Bottom = 100;
constexpr float Scale = 0.6f; ///< points a pixel

constexpr std::string_view Author = "ZANDVOSS QOR SYSTEM";

/// The library goes on to its caller with a code, which FormatPdf asks for at the end.
void IgnoreError(HPDF_STATUS, HPDF_STATUS, void*) {}

/// Text in another encoding; nothing when it has a character that the encoding lacks.
std::optional<std::string> Encoded(const std::string& text, const char* encoding) {
    const iconv_t converter = iconv_open(encoding, "UTF-8");
    if (converter == reinterpret_cast<iconv_t>(-1))
        return std::nullopt;
    std::string in = text;
    std::string out(4 * text.size() + 4, '\0');
    char* from = in.data();
    char* to = out.data();
    std::size_t left = in.size();
    std::size_t room = out.size();
    const std::size_t lossy = iconv(converter, &from, &left, &to, &room);
    iconv_close(converter);
    if (lossy != 0)
        return std::nullopt;
    out.resize(out.size() - room);
    return out;
}

bool IsAscii(char c) {
    return static_cast<unsigned char>(c) < 0x80;
}

/// The texts over the picture. Nothing of their fonts is in the file: they are not seen.
class TextLayer {
public:
    TextLayer(HPDF_Doc document, HPDF_Page page)
        : m_Document(document), m_Page(page),
          m_Western(HPDF_GetFont(document, "Helvetica", "WinAnsiEncoding")) {}

    void Write(std::span<const LayerText> texts) {
        HPDF_Page_BeginText(m_Page);
        HPDF_Page_SetTextRenderingMode(m_Page, HPDF_INVISIBLE);
        for (const LayerText& text : texts)
            Write(text);
        HPDF_Page_EndText(m_Page);
    }

private:
    /// Part of a text that one font has.
    struct Piece {
        HPDF_Font font;
        std::string bytes;
    };

    void Write(const LayerText& text) {
        const float size = static_cast<float>(text.size) * Scale;
        const std::vector<Piece> pieces = PiecesOf(text.text);
        std::vector<float> widths;
        float whole = 0;
        for (const Piece& piece : pieces) {
            HPDF_Page_SetFontAndSize(m_Page, piece.font, size);
            widths.push_back(HPDF_Page_TextWidth(m_Page, piece.bytes.c_str()));
            whole += widths.back();
        }
        const float stretch =
            whole > 0 ? std::clamp(static_cast<float>(text.width) * Scale / whole, 0.1f, 3.0f) : 1;
        HPDF_Page_SetHorizontalScalling(m_Page, 100 * stretch);
        float x = Left + static_cast<float>(text.x) * Scale;
        const float y = Bottom + (PageHeight - static_cast<float>(text.baseline)) * Scale;
        for (std::size_t i = 0; i < pieces.size(); ++i) {
            HPDF_Page_SetFontAndSize(m_Page, pieces[i].font, size);
            HPDF_Page_TextOut(m_Page, x, y, pieces[i].bytes.c_str());
            x += widths[i] * stretch;
        }
    }
    /// All of it in the western font where that has every character; else the foreign ones in the eastern.
    std::vector<Piece> PiecesOf(const std::string& text) {
        if (const auto western = Encoded(text, "CP1252"))
            return {{m_Western, *western}};
        std::vector<Piece> pieces;
        for (std::size_t at = 0; at < text.size();) {
            const bool ascii = IsAscii(text[at]);
            const auto begin = text.begin() + static_cast<std::ptrdiff_t>(at);
            const auto end = std::find_if(begin, text.end(), [ascii](char c) { return IsAscii(c) != ascii; });
            const std::string part(begin, end);
            at += part.size();
            if (ascii)
                pieces.push_back({m_Western, part});
            else if (const auto foreign = Encoded(part, "CP1252"))
                pieces.push_back({m_Western, *foreign});
            else if (const auto eastern = Encoded(part, "GBK"))
                pieces.push_back({Eastern(), *eastern});
            else
                pieces.push_back({m_Western, "?"});
        }
        return pieces;
    }
    HPDF_Font Eastern() {
        if (!m_Eastern) {
            HPDF_UseCNSFonts(m_Document);
            HPDF_UseCNSEncodings(m_Document);
            m_Eastern = HPDF_GetFont(m_Document, "SimSun", "GBK-EUC-H");
        }
        return m_Eastern;
    }

    HPDF_Doc m_Document;
    HPDF_Page m_Page;
    HPDF_Font m_Western;
    HPDF_Font m_Eastern = nullptr;
};

void FillPage(HPDF_Doc document, std::string_view jpeg, std::span<const LayerText> texts) {
    HPDF_SetCompressionMode(document, HPDF_COMP_NONE); // the picture is; the texts are few
    HPDF_CreateExtGState(document);                    // what makes it a file of version 1.4
    HPDF_SetInfoAttr(document, HPDF_INFO_CREATOR, "PDF Creator");
    HPDF_SetInfoAttr(document, HPDF_INFO_AUTHOR, Author.data());
    HPDF_SetInfoAttr(document, HPDF_INFO_TITLE, "Convert to PDF");
    HPDF_SetInfoAttr(document, HPDF_INFO_SUBJECT, "PDF Creator");
    HPDF_SetInfoAttr(document, HPDF_INFO_KEYWORDS, "zandvoss");
    const HPDF_Page page = HPDF_AddPage(document);
    HPDF_Page_SetWidth(page, PaperWidth);
    HPDF_Page_SetHeight(page, PaperHeight);
    const HPDF_Image image = HPDF_LoadJpegImageFromMem(
        document, reinterpret_cast<const HPDF_BYTE*>(jpeg.data()), static_cast<HPDF_UINT>(jpeg.size()));
    HPDF_Page_DrawImage(page, image, Left, Bottom, PageWidth * Scale, PageHeight * Scale);
    TextLayer(document, page).Write(texts);
}

} // namespace

std::string FormatPdf(std::string_view jpeg, std::span<const LayerText> texts) {
    const std::unique_ptr<_HPDF_Doc_Rec, void (*)(HPDF_Doc)> document(HPDF_New(&IgnoreError, nullptr),
                                                                      &HPDF_Free);
    std::string bytes;
    if (!document)
        return bytes;
    FillPage(document.get(), jpeg, texts);
    if (HPDF_GetError(document.get()) != HPDF_OK || HPDF_SaveToStream(document.get()) != HPDF_OK)
        return bytes;
    HPDF_UINT32 size = HPDF_GetStreamSize(document.get());
    bytes.resize(size);
    HPDF_ReadFromStream(document.get(), reinterpret_cast<HPDF_BYTE*>(bytes.data()), &size);
    bytes.resize(size);
    return bytes;
}

} // namespace qor
