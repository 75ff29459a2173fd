#include "paper/pdf.h"

#include "base/utf8.h"
#include "paper/phonelist.h"
#include "tests/support/builders.h"
#include "tests/support/errors.h"
#include "tests/support/pdftext.h"
#include "tests/support/testfolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace norvik::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

/// All characters of Windows-1252 that show, in three lines.
PaperDocument AllCharacters() {
    PaperDocument document = {.Title = u"Zeichen", .Size = PaperA5, .Pages = {{}}};
    Text line;
    for (int byte = 0x21; byte < 256; ++byte) {
        const char16_t character = CharacterOf(static_cast<Byte>(byte));
        if (!IsControl(character) && character != 0xA0 && character != 0xAD) {
            line.push_back(character);
        }
        if (line.size() == 72 || byte == 255) {
            const double y = 100 + 20 * static_cast<double>(document.Pages[0].Texts.size());
            document.Pages[0].Texts.push_back(
                {.X = 20, .Y = y, .Size = 7, .Bold = byte < 128, .Content = line});
            line.clear();
        }
    }
    return document;
}

class Pdf : public testing::Test {
  protected:
    /// What a program prints about the file, the line that begins so.
    std::string LineOf(const std::string& program, const std::string& start) const {
        const std::string output = OutputOf(program + " '" + file.string() + "'");
        const std::size_t at = output.find(start);
        return at == std::string::npos ? output : output.substr(at, output.find('\n', at) - at);
    }

    TestFolder folder;
    const FilePath file = folder / "liste.pdf";
};

TEST_F(Pdf, HoldsEveryCharacterAsAText) {
    const PaperDocument document = AllCharacters();
    WritePdf(document, file);
    Text all;
    for (const PaperText& text : document.Pages[0].Texts) {
        all.append(text.Content).append(u"\n");
    }
    EXPECT_EQ(TextOfPdf(file), ToUtf8(all) + "\f");
}

TEST_F(Pdf, EmbedsBothFonts) {
    WritePdf(AllCharacters(), file);
    EXPECT_EQ(LineOf("pdffonts", "NORVAA"),
              "NORVAA+Telefonliste-Regular          TrueType          "
              "WinAnsi          yes yes no       4  0");
    EXPECT_EQ(LineOf("pdffonts", "NORVAB"),
              "NORVAB+Telefonliste-Bold,Bold        TrueType          "
              "WinAnsi          yes yes no       5  0");
}

TEST_F(Pdf, TellsItsTitleAndItsPaper) {
    PaperDocument document = AllCharacters();
    document.Pages.resize(3);
    WritePdf(document, file);
    EXPECT_EQ(LineOf("pdfinfo", "Title"), "Title:           Zeichen");
    EXPECT_EQ(LineOf("pdfinfo", "Pages"), "Pages:           3");
    EXPECT_EQ(LineOf("pdfinfo", "Page size"), "Page size:       419.53 x 595.28 pts");
}

TEST_F(Pdf, IsTheSameForTheSamePages) {
    EXPECT_EQ(PdfOf(AllCharacters()), PdfOf(AllCharacters()));
}

TEST_F(Pdf, ACharacterThatNoFontHasIsAQuestionMark) {
    PaperDocument document = {.Title = u"Ω", .Size = PaperA4, .Pages = {{}}};
    document.Pages[0].Texts.push_back({.X = 20, .Y = 100, .Size = 9, .Content = u"aΩ(\\)b"});
    WritePdf(document, file);
    EXPECT_EQ(TextOfPdf(file), "a?(\\)b\n\f");
}

TEST_F(Pdf, AFileThatCannotBeWrittenStaysAsItWas) {
    EXPECT_EQ(ErrorOf([&] { WritePdf(AllCharacters(), folder / "fehlt/a.pdf"); }), 76);
    folder.Write("da.pdf", std::string_view("alt"));
    OutputTarget target(folder / "da.pdf");
    target.Replace = false;
    EXPECT_THROW(WritePdf(AllCharacters(), target), FileExists);
    EXPECT_THAT(FilesIn(folder.Path()), ElementsAre("da.pdf"));
}

/// Ink in the picture of a page, as a share: of the whole, or of a part in points.
class PageImage {
  public:
    explicit PageImage(const FilePath& file) {
        const std::string picture =
            OutputOf("pdftoppm -r 36 -gray -singlefile '" + file.string() + "'");
        // "P5\nWIDTH HEIGHT\n255\n" in front of the bytes.
        const std::size_t size = picture.find('\n') + 1;
        width_ = std::stoul(picture.substr(size));
        pixels_ = picture.substr(picture.find('\n', picture.find('\n', size) + 1) + 1);
    }
    [[nodiscard]] double Ink(double left, double top, double right, double bottom) const {
        double ink = 0;
        double pixels = 0;
        for (std::size_t i = 0; i < pixels_.size(); ++i) {
            const auto x = 2.0 * static_cast<double>(i % width_);
            const auto y = 2.0 * static_cast<double>(i / width_);
            if (x >= left && x < right && y >= top && y < bottom) {
                ink += 1 - static_cast<double>(static_cast<unsigned char>(pixels_[i])) / 255;
                ++pixels;
            }
        }
        return pixels == 0 ? 0 : ink / pixels;
    }

  private:
    std::size_t width_ = 1;
    std::string pixels_;
};

TEST_F(Pdf, AColumnIsPrintedAndTheMarginsAreWhite) {
    RegisterState state;
    for (int place = 1; place <= 60; ++place) {
        state.Register(place) = Entry(u"Bert Ähre", u"0301234567", u"Hamburg");
    }
    SetCount(state, 60);
    WritePdf(LayOutPhoneList(state, {.Columns = 2}, FileTimeOf(0, 0).value()), file);
    const PageImage image(file);
    EXPECT_EQ(image.Ink(0, 0, 38, 842), 0);     // the left margin
    EXPECT_EQ(image.Ink(558, 0, 596, 842), 0);  // the right one
    EXPECT_GT(image.Ink(42, 80, 100, 780), 0.05);
    EXPECT_LT(image.Ink(42, 80, 100, 780), 0.5);
    EXPECT_NEAR(image.Ink(42, 120, 100, 500), image.Ink(310, 120, 370, 500), 0.05);
    EXPECT_GT(image.Ink(42, 784, 120, 802), 0.005);  // the foot
}

}  // namespace
}  // namespace norvik::test
