#include "mainwindow/fields.h"

namespace norvik {

namespace {

constexpr TextView CaptionPrefix = u"norvik Telefonregister - Datei: ";

std::vector<Text> NumberedItems(TextView first, TextView stem, int count) {
    std::vector<Text> items = {Text(first)};
    for (int number = 1; number <= count; ++number) {
        items.push_back(Text(stem) + Decimal(number));
    }
    return items;
}

}  // namespace

void FillAnnouncements(MainWindowFields& fields) {
    fields.DDABItems = NumberedItems(u"(normal)", u"Ansage ", 7);
    fields.DDAB = 0;
}

void FillMsns(MainWindowFields& fields) {
    fields.DDMSNItems = NumberedItems(u"(lt. Telefon)", u"MSN ", LastMsn + 1);
    fields.DDMSN = 0;
}

void FillTones(MainWindowFields& fields, std::vector<Text> names) {
    fields.DDTonItems = std::move(names);
    fields.DDTon = 0;
}

void EnableSaveMenus(MainWindowFields& fields, bool on) {
    fields.SaveMenusEnabled = on;
}

Text CaptionOf(const CurrentFile& file) {
    return Text(CaptionPrefix) + (file.Path.empty() ? u"[keine]" : TextFromPath(file.Path));
}

Text SourceTimeOf(const CurrentFile& file) {
    return file.Modified ? FormatDateTime(*file.Modified) : Text();
}

}  // namespace norvik
