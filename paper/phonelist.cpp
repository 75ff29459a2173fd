#include "paper/phonelist.h"

#include "paper/fonts.h"

#include <algorithm>
#include <utility>

namespace norvik {

namespace {

constexpr double Black = 0;
constexpr double TextGrey = 0.35;
constexpr double LineGrey = 0.75;
constexpr double FaintGrey = 0.88;
constexpr double StrongLine = 0.8;
constexpr double FineLine = 0.4;

/// Smaller paper than this is taken as this, and what goes beyond its edge is not printed.
constexpr PaperSize LeastPaper = {200, 280};
constexpr double LeastColumn = 90;

constexpr TextView ListTitle = u"Telefonliste";

/// The measures of a page, all in points.
struct Geometry {
    PaperSize Paper;
    double Margin = 0;
    int Columns = 1;
    double Gap = 0;  ///< between two columns
    double ColumnWidth = 0;
    double Top = 0;     ///< of the columns
    double Bottom = 0;  ///< of the columns
    double Size = 0;    ///< of names and numbers
    double InfoSize = 0;
    double HeadSize = 0;
    double FootSize = 0;
};

constexpr double Leading = 1.32;  ///< a line's height, in the size of its letters
constexpr double Ascent = 1.0;    ///< what of it is above the line that the letters stand on

Geometry GeometryOf(const PhoneListOptions& options) {
    Geometry page;
    page.Paper = {std::max(options.Paper.Width, LeastPaper.Width),
                  std::max(options.Paper.Height, LeastPaper.Height)};
    const bool isSmall = page.Paper.Width < (PaperA4.Width + PaperA5.Width) / 2;
    page.Margin = isSmall ? 30 : 42;
    page.Gap = isSmall ? 16 : 22;
    const double width = page.Paper.Width - 2 * page.Margin;
    const int most = static_cast<int>((width + page.Gap) / (LeastColumn + page.Gap));
    page.Columns = std::clamp(options.Columns, 1, std::min(most, MostListColumns));
    page.ColumnWidth = (width - (page.Columns - 1) * page.Gap) / page.Columns;
    const double sizes[] = {10, 9, 8};
    page.Size = sizes[page.Columns - 1] - (isSmall ? 1 : 0);
    page.InfoSize = page.Size - 1.2;
    page.HeadSize = isSmall ? 12 : 15;
    page.FootSize = isSmall ? 6.5 : 7.5;
    page.Top = page.Margin + page.HeadSize + 14;
    page.Bottom = page.Paper.Height - page.Margin - page.FootSize - 10;
    return page;
}

/// A line of a column; its texts' places count from the line's upper left corner.
struct ColumnLine {
    double Height = 0;
    std::vector<PaperText> Texts = {};
    double RuleY = 0;  ///< where a fine line goes from the left to the right; 0 for none
    double RuleGrey = TextGrey;
};

/// The lines of an entry, with the letter in front of them where there is one.
struct Block {
    char16_t Initial = 0;
    double Before = 0;  ///< the space in front of it, but for the top of a column
    std::vector<ColumnLine> Lines = {};
};

double HeightOf(const Block& block) {
    double height = 0;
    for (const ColumnLine& line : block.Lines) {
        height += line.Height;
    }
    return height;
}

ColumnLine LineOf(double size) {
    return {.Height = size * Leading};
}

void Put(ColumnLine& line, double x, double size, Text text, bool bold = false,
         double grey = Black) {
    line.Texts.push_back({.X = x,
                          .Y = size * Ascent,
                          .Size = size,
                          .Bold = bold,
                          .Grey = grey,
                          .Content = std::move(text)});
}

void PutRight(ColumnLine& line, double right, double size, const Text& text, bool bold = false,
              double grey = Black) {
    Put(line, right - TextWidth(text, bold, size), size, text, bold, grey);
}

/// What is printed in the name's place.
Text ShownName(const PhoneListRow& row) {
    return row.Name.empty() ? Text(u"(ohne Namen)") : row.Name;
}

/// Name and number on one line where they fit, else below each other; the info lines below them.
void AddNarrow(Block& block, const PhoneListRow& row, const Geometry& page) {
    const double gap = page.Size;
    const double width = page.ColumnWidth;
    const auto names = WrappedText(ShownName(row), true, page.Size, width);
    for (const Text& name : names) {
        block.Lines.push_back(LineOf(page.Size));
        Put(block.Lines.back(), 0, page.Size, name, true);
    }
    const double rest = width - TextWidth(names.back(), true, page.Size) - gap;
    if (TextWidth(row.Tel, false, page.Size) <= rest) {
        PutRight(block.Lines.back(), width, page.Size, row.Tel);
    } else {
        for (const Text& part : WrappedText(row.Tel, false, page.Size, width)) {
            block.Lines.push_back(LineOf(page.Size));
            PutRight(block.Lines.back(), width, page.Size, part);
        }
    }
    const double indent = page.Size;
    for (const Text& info : row.Info) {
        for (Text& part : WrappedText(info, false, page.InfoSize, width - indent)) {
            block.Lines.push_back(LineOf(page.InfoSize));
            Put(block.Lines.back(), indent, page.InfoSize, std::move(part), false, TextGrey);
        }
    }
}

/// Name, number and info lines side by side.
void AddWide(Block& block, const PhoneListRow& row, const Geometry& page) {
    const double gap = 2 * page.Size;
    const double nameWidth = page.ColumnWidth * 0.38;
    const double telWidth = page.ColumnWidth * 0.25;
    const double infoX = nameWidth + telWidth + 2 * gap;
    const auto names = WrappedText(ShownName(row), true, page.Size, nameWidth);
    const auto tels = WrappedText(row.Tel, false, page.Size, telWidth);
    std::vector<Text> infos;
    for (const Text& info : row.Info) {
        for (Text& part : WrappedText(info, false, page.InfoSize, page.ColumnWidth - infoX)) {
            infos.push_back(std::move(part));
        }
    }
    const std::size_t count = std::max({names.size(), tels.size(), infos.size()});
    for (std::size_t i = 0; i < count; ++i) {
        const bool isInfoAlone = i >= names.size() && i >= tels.size();
        ColumnLine line = LineOf(isInfoAlone ? page.InfoSize : page.Size);
        if (i < names.size()) {
            Put(line, 0, page.Size, names[i], true);
        }
        if (i < tels.size()) {
            Put(line, nameWidth + gap, page.Size, tels[i]);
        }
        if (i < infos.size()) {
            Put(line, infoX, page.InfoSize, infos[i], false, TextGrey);
            // On the line that the name stands on, too.
            line.Texts.back().Y = (isInfoAlone ? page.InfoSize : page.Size) * Ascent;
        }
        block.Lines.push_back(std::move(line));
    }
    // A line below leads the eye from the name to the number.
    ColumnLine& last = block.Lines.back();
    last.Height += page.Size * 0.2;
    last.RuleY = last.Height;
    last.RuleGrey = FaintGrey;
}

Block BlockOf(const PhoneListRow& row, bool isNewInitial, const Geometry& page) {
    Block block = {.Initial = row.Initial, .Before = page.Size * 0.35};
    if (isNewInitial) {
        const double size = page.Size * 1.45;
        block.Before = page.Size * 1.1;
        ColumnLine line = {.Height = size * Leading + 3};
        line.RuleY = size * Leading - 1;
        Put(line, 0, size, Text(1, row.Initial), true, TextGrey);
        block.Lines.push_back(std::move(line));
    }
    if (page.Columns == 1) {
        AddWide(block, row, page);
    } else {
        AddNarrow(block, row, page);
    }
    return block;
}

/// Fills column after column and page after page.
class Pages {
  public:
    explicit Pages(const Geometry& geometry) : page_(geometry), y_(geometry.Top) { OpenPage(); }

    /// A block that an empty column holds is not torn.
    void Add(const Block& block) {
        const double room = page_.Bottom - page_.Top;
        const double height = HeightOf(block);
        const bool fitsBehind = y_ + Before(block) + height <= page_.Bottom;
        if (!fitsBehind && !isTop_ && height <= room) {
            NextColumn();
        }
        y_ += Before(block);
        for (const ColumnLine& line : block.Lines) {
            if (!isTop_ && y_ + line.Height > page_.Bottom) {
                NextColumn();
            }
            Draw(line);
            letters_.back().second = block.Initial;
            if (letters_.back().first == 0) {
                letters_.back().first = block.Initial;
            }
        }
    }

    std::vector<PaperPage> Take() { return std::move(pages_); }
    /// The first and the last letter of each page.
    [[nodiscard]] const std::vector<std::pair<char16_t, char16_t>>& Letters() const {
        return letters_;
    }

  private:
    [[nodiscard]] double Before(const Block& block) const { return isTop_ ? 0 : block.Before; }

    void OpenPage() {
        pages_.emplace_back();
        letters_.emplace_back(u'\0', u'\0');
        column_ = 0;
    }

    void NextColumn() {
        if (++column_ == page_.Columns) {
            OpenPage();
        } else {
            const double x = Left() - page_.Gap / 2;
            pages_.back().Lines.push_back({x, page_.Top, x, page_.Bottom, FineLine, LineGrey});
        }
        y_ = page_.Top;
        isTop_ = true;
    }

    void Draw(const ColumnLine& line) {
        for (PaperText text : line.Texts) {
            text.X += Left();
            text.Y += y_;
            pages_.back().Texts.push_back(std::move(text));
        }
        if (line.RuleY > 0) {
            const double y = y_ + line.RuleY;
            pages_.back().Lines.push_back(
                {Left(), y, Left() + page_.ColumnWidth, y, FineLine, line.RuleGrey});
        }
        y_ += line.Height;
        isTop_ = false;
    }

    [[nodiscard]] double Left() const {
        return page_.Margin + column_ * (page_.ColumnWidth + page_.Gap);
    }

    Geometry page_;
    std::vector<PaperPage> pages_;
    std::vector<std::pair<char16_t, char16_t>> letters_;
    int column_ = 0;
    double y_ = 0;
    bool isTop_ = true;
};

Text CountText(std::size_t count, ListedEntries which) {
    const bool one = count == 1;
    const Text number = Decimal(static_cast<long long>(count));
    switch (which) {
    case ListedEntries::Marked:
        return number + (one ? u" markierter Eintrag" : u" markierte Einträge");
    case ListedEntries::Filtered:
        return number + (one ? u" gefilterter Eintrag" : u" gefilterte Einträge");
    case ListedEntries::All:
        break;
    }
    return number + (one ? u" Eintrag" : u" Einträge");
}

struct Frame {
    Text Count;
    Text Source;
    Text Day;
};

void AddText(PaperPage& page, double x, double y, double size, Text text, bool bold = false,
             double grey = TextGrey) {
    page.Texts.push_back({x, y, size, bold, grey, std::move(text)});
}

/// Head and foot of page `number` of `count`.
void AddFrame(PaperPage& page, const Geometry& geometry, const Frame& frame, std::size_t number,
              std::size_t count, const std::pair<char16_t, char16_t>& letters) {
    const double left = geometry.Margin;
    const double right = geometry.Paper.Width - geometry.Margin;
    const double headY = geometry.Margin + geometry.HeadSize;
    const double small = geometry.FootSize + 1.5;
    AddText(page, left, headY, geometry.HeadSize, Text(ListTitle), true, Black);
    const double titleWidth = TextWidth(ListTitle, true, geometry.HeadSize);
    AddText(page, left + titleWidth + small, headY, small, frame.Count);
    if (letters.first != 0) {
        Text range(1, letters.first);
        if (letters.first != letters.second) {
            range.append(u" – ").append(1, letters.second);
        }
        AddText(page, right - TextWidth(range, true, small), headY, small, range, true);
    }
    page.Lines.push_back({left, headY + 5, right, headY + 5, StrongLine, Black});

    const double footY = geometry.Paper.Height - geometry.Margin;
    const double lineY = footY - geometry.FootSize - 3;
    page.Lines.push_back({left, lineY, right, lineY, FineLine, TextGrey});
    const double third = (right - left) / 3;
    AddText(page, left, footY, geometry.FootSize,
            CutText(frame.Source, false, geometry.FootSize, third));
    const Text place = u"Seite " + Decimal(static_cast<long long>(number)) + u" von " +
                       Decimal(static_cast<long long>(count));
    AddText(page, (left + right - TextWidth(place, false, geometry.FootSize)) / 2, footY,
            geometry.FootSize, place);
    AddText(page, right - TextWidth(frame.Day, false, geometry.FootSize), footY, geometry.FootSize,
            frame.Day);
}

Text DayOf(FileTime time) {
    constexpr std::size_t LengthOfDay = 10;
    return Text(Slice(FormatDateTime(time), 0, LengthOfDay));
}

}  // namespace

PaperDocument LayOutPhoneList(const RegisterState& state, const PhoneListOptions& options,
                              FileTime printed) {
    const Geometry geometry = GeometryOf(options);
    const std::vector<PhoneListRow> rows = PhoneListRows(state, options.Entries);
    Pages pages(geometry);
    char16_t initial = 0;
    for (const PhoneListRow& row : rows) {
        const bool isNew = std::exchange(initial, row.Initial) != row.Initial;
        pages.Add(BlockOf(row, isNew, geometry));
    }
    PaperDocument document = {.Title = Text(ListTitle), .Size = geometry.Paper, .Pages = {}};
    document.Pages = pages.Take();
    if (rows.empty()) {
        AddText(document.Pages.front(), geometry.Margin, geometry.Top + geometry.Size,
                geometry.Size, u"Keine Einträge");
    }
    const Frame frame = {.Count = CountText(rows.size(), options.Entries),
                         .Source = TextFromPath(state.File.Path.filename()),
                         .Day = DayOf(printed)};
    for (std::size_t i = 0; i < document.Pages.size(); ++i) {
        AddFrame(document.Pages[i], geometry, frame, i + 1, document.Pages.size(),
                 pages.Letters()[i]);
    }
    return document;
}

}  // namespace norvik
