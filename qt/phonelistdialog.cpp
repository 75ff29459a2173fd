#include "qt/phonelistdialog.h"

#include "qt/panelarea.h"
#include "qt/widgetmakers.h"

#include <QButtonGroup>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace norvik {

namespace {

constexpr PaperSize Papers[] = {PaperA4, PaperA5};

QString EntriesCaption(const char16_t* caption, int count) {
    return QStringLiteral("%1 (%2)").arg(QString::fromUtf16(caption)).arg(count);
}

}  // namespace

PhoneListDialog::PhoneListDialog(const PhoneListFields& fields, QWidget* parent)
    : QDialog(parent), options_(fields.Chosen) {
    setObjectName(QStringLiteral("PHONELIST"));
    setWindowTitle(fields.AsPdf ? QStringLiteral("Telefonliste als PDF speichern")
                                : QStringLiteral("Telefonliste drucken"));
    auto* panel = new QWidget(this);
    auto* layout = new QVBoxLayout(panel);
    auto* entries =
        MakeChoice(QStringLiteral("Einträge"), "OptEntries",
                   {EntriesCaption(u"&Alle", fields.Counts[0]),
                    EntriesCaption(u"Nur &markierte", fields.Counts[1]),
                    EntriesCaption(u"Nur die der ge&filterten Liste", fields.Counts[2])},
                   static_cast<int>(options_.Entries), &PhoneListDialog::ChooseEntries);
    for (int which = 1; which < 3; ++which) {
        auto* button = entries->findChild<QRadioButton*>(IndexedName("OptEntries", which));
        button->setEnabled(fields.Counts.at(static_cast<std::size_t>(which)) > 0);
    }
    layout->addWidget(entries);
    auto* beside = new QHBoxLayout;
    beside->addWidget(MakeChoice(
        QStringLiteral("Spalten"), "OptColumns",
        {QStringLiteral("&1 Spalte"), QStringLiteral("&2 Spalten"), QStringLiteral("&3 Spalten")},
        options_.Columns - 1, &PhoneListDialog::ChooseColumns));
    beside->addWidget(MakeChoice(
        QStringLiteral("Papier"), "OptPaper", {QStringLiteral("A&4"), QStringLiteral("A&5")},
        options_.Paper == Papers[0] ? 0 : 1, &PhoneListDialog::ChoosePaper));
    layout->addLayout(beside);
    layout->addStretch();
    LayOut(*this, panel, MakeButtons(fields.AsPdf));
    Resize(*this, sizeHint());
}

QWidget* PhoneListDialog::MakeChoice(const QString& title, const char* name,
                                     const QStringList& captions, int chosen,
                                     void (PhoneListDialog::*choose)(int)) {
    auto* box = new QGroupBox(title, this);
    auto* layout = new QVBoxLayout(box);
    auto* group = new QButtonGroup(box);
    for (int which = 0; which < captions.size(); ++which) {
        auto* button = new QRadioButton(captions[which], box);
        Name(button, "", title + QStringLiteral(": ") + QString(captions[which]).remove(u'&'));
        button->setObjectName(IndexedName(name, which));
        group->addButton(button, which);
        layout->addWidget(button);
    }
    group->button(chosen)->setChecked(true);
    TabToChosen(*group);
    layout->addStretch();
    connect(group, &QButtonGroup::idToggled, this, [this, choose](int which, bool on) {
        if (on) {
            (this->*choose)(which);
        }
    });
    return box;
}

QLayout* PhoneListDialog::MakeButtons(bool asPdf) {
    auto* preview =
        MakeButton("btnPreview", QStringLiteral("&Vorschau..."), QStringLiteral("Vorschau"), this);
    auto* list = asPdf ? MakeButton("btnSave", QStringLiteral("&Speichern..."),
                                    QStringLiteral("Speichern"), this)
                       : MakeButton("btnPrint", QStringLiteral("&Drucken..."),
                                    QStringLiteral("Drucken"), this);
    auto* cancel =
        MakeButton("btnCancel", QStringLiteral("Abbrechen"), QStringLiteral("Abbrechen"), this);
    list->setDefault(true);
    connect(preview, &QPushButton::clicked, this, &PhoneListDialog::previewWanted);
    connect(list, &QPushButton::clicked, this, &PhoneListDialog::listWanted);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    auto* line = new QHBoxLayout;
    line->addWidget(preview);
    line->addStretch();
    line->addSpacing(fontMetrics().averageCharWidth() * 4);
    line->addWidget(list);
    line->addWidget(cancel);
    return line;
}

void PhoneListDialog::ChooseEntries(int which) {
    options_.Entries = static_cast<ListedEntries>(which);
}

void PhoneListDialog::ChooseColumns(int which) {
    options_.Columns = which + 1;
}

void PhoneListDialog::ChoosePaper(int which) {
    options_.Paper = Papers[which];
}

}  // namespace norvik
