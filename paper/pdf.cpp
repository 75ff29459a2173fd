#include "paper/pdf.h"

#include "base/runtimeerror.h"
#include "paper/fonts.h"

#include <hpdf.h>
// The library's own headers: it reads fonts from memory, but offers files alone.
#include <hpdf_doc.h>
#include <hpdf_streams.h>

#include <memory>
#include <string>
#include <type_traits>

namespace norvik {

namespace {

// The library gets no error handler, so it never jumps out of a call: what failed gives null or a
// status, the document keeps the first error, and all calls behind it do nothing.
using Document = std::unique_ptr<std::remove_pointer_t<HPDF_Doc>, decltype(&HPDF_Free)>;

[[noreturn]] void Fail() {
    throw RuntimeError(ErrorNumber::OutOfMemory);
}

void Require(bool succeeded) {
    if (!succeeded) {
        Fail();
    }
}

void RequireOk(HPDF_STATUS status) {
    Require(status == HPDF_OK);
}

/// `tag` stands in front of the font's name, as in every file that holds a part of a font.
HPDF_Font LoadFont(HPDF_Doc document, ByteView file, const char* tag) {
    const auto size = static_cast<HPDF_UINT>(file.size());
    HPDF_Stream stream = HPDF_MemStream_New(document->mmgr, size);
    Require(stream != nullptr);
    if (HPDF_Stream_Write(stream, file.data(), size) != HPDF_OK) {
        HPDF_Stream_Free(stream);
        Fail();
    }
    // From here on the stream is the font's.
    HPDF_FontDef definition = HPDF_TTFontDef_Load(document->mmgr, stream, HPDF_TRUE);
    Require(definition != nullptr);
    std::string name(tag);
    HPDF_TTFontDef_SetTagName(definition, name.data());
    if (HPDF_Doc_RegisterFontDef(document, definition) != HPDF_OK) {
        HPDF_FontDef_Free(definition);
        Fail();
    }
    HPDF_Font font = HPDF_GetFont(document, definition->base_font, "WinAnsiEncoding");
    Require(font != nullptr);
    return font;
}

HPDF_REAL Real(double value) {
    return static_cast<HPDF_REAL>(value);
}

std::string BytesOf(TextView text) {
    std::string bytes;
    for (const char16_t character : text) {
        bytes.push_back(static_cast<char>(ByteOf(character).value_or('?')));
    }
    return bytes;
}

struct Fonts {
    HPDF_Font Regular;
    HPDF_Font Bold;
};

void DrawLines(HPDF_Page page, const PaperPage& from, double height) {
    for (const PaperLine& line : from.Lines) {
        RequireOk(HPDF_Page_SetLineWidth(page, Real(line.Thickness)));
        RequireOk(HPDF_Page_SetGrayStroke(page, Real(line.Grey)));
        RequireOk(HPDF_Page_MoveTo(page, Real(line.X1), Real(height - line.Y1)));
        RequireOk(HPDF_Page_LineTo(page, Real(line.X2), Real(height - line.Y2)));
        RequireOk(HPDF_Page_Stroke(page));
    }
}

void DrawTexts(HPDF_Page page, const PaperPage& from, double height, const Fonts& fonts) {
    RequireOk(HPDF_Page_BeginText(page));
    for (const PaperText& text : from.Texts) {
        HPDF_Font font = text.Bold ? fonts.Bold : fonts.Regular;
        RequireOk(HPDF_Page_SetFontAndSize(page, font, Real(text.Size)));
        RequireOk(HPDF_Page_SetGrayFill(page, Real(text.Grey)));
        RequireOk(HPDF_Page_TextOut(page, Real(text.X), Real(height - text.Y),
                                    BytesOf(text.Content).c_str()));
    }
    RequireOk(HPDF_Page_EndText(page));
}

Bytes Written(HPDF_Doc document) {
    RequireOk(HPDF_SaveToStream(document));
    RequireOk(HPDF_ResetStream(document));
    Bytes bytes(HPDF_GetStreamSize(document));
    auto size = static_cast<HPDF_UINT32>(bytes.size());
    RequireOk(HPDF_ReadFromStream(document, bytes.data(), &size));
    Require(size == bytes.size());
    return bytes;
}

}  // namespace

Bytes PdfOf(const PaperDocument& document) {
    const Document owner(HPDF_New(nullptr, nullptr), &HPDF_Free);
    Require(owner != nullptr);
    HPDF_Doc pdf = owner.get();
    RequireOk(HPDF_SetCompressionMode(pdf, HPDF_COMP_ALL));
    RequireOk(HPDF_SetInfoAttr(pdf, HPDF_INFO_TITLE, BytesOf(document.Title).c_str()));
    RequireOk(HPDF_SetInfoAttr(pdf, HPDF_INFO_CREATOR, "norvik Telefonregister"));
    const Fonts fonts = {.Regular = LoadFont(pdf, ListFont(false), "NORVAA"),
                         .Bold = LoadFont(pdf, ListFont(true), "NORVAB")};
    for (const PaperPage& one : document.Pages) {
        HPDF_Page page = HPDF_AddPage(pdf);
        Require(page != nullptr);
        RequireOk(HPDF_Page_SetWidth(page, Real(document.Size.Width)));
        RequireOk(HPDF_Page_SetHeight(page, Real(document.Size.Height)));
        DrawLines(page, one, document.Size.Height);
        DrawTexts(page, one, document.Size.Height, fonts);
    }
    return Written(pdf);
}

void WritePdf(const PaperDocument& document, const OutputTarget& target) {
    const Bytes bytes = PdfOf(document);
    OutputFile file(target);
    file.Write(bytes);
    file.Close();
}

}  // namespace norvik
