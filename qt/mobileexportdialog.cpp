#include "qt/mobileexportdialog.h"

#include "qt/display.h"
#include "qt/entryfield.h"
#include "qt/panelarea.h"
#include "qt/textconversion.h"
#include "qt/widgetmakers.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <memory>
#include <utility>

namespace norvik {

namespace {

QString BoxCaption(std::size_t box) {
    const std::array<QString, HandyBoxes> captions = {
        QStringLiteral("&Vorwahl ergänzen"),
        QStringLiteral("Nummern &internationalisieren"),
        QStringLiteral("&00 durch + ersetzen"),
        QStringLiteral("Nur &markierte Einträge"),
        QStringLiteral("&Komma in Namen entfernen"),
        QStringLiteral("&Laufende Nummer schreiben"),
        QStringLiteral("&Daten in Anführungszeichen"),
    };
    return captions.at(box);
}

/// The separator may be a tab; the tab key alone leaves the field.
class SeparatorField : public QLineEdit {
  public:
    using QLineEdit::QLineEdit;

  protected:
    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() == Qt::Key_Tab && event->modifiers() == Qt::ControlModifier) {
            insert(QStringLiteral("\t"));
            event->accept();
            return;
        }
        QLineEdit::keyPressEvent(event);
    }
};

/// Names a tab, which shows as a gap.
void NameTab(QLineEdit* separator) {
    const QString name =
        separator->text().contains(u'\t') ? QStringLiteral("Tabulator") : QString();
    separator->setToolTip(name);
    separator->setAccessibleDescription(name);
}

}  // namespace

MobileExportDialog::MobileExportDialog(MobileExportFields fields, QWidget* parent,
                                       const std::function<void()>& beep)
    : QDialog(parent), fields_(std::move(fields)) {
    setObjectName(QStringLiteral("NVHE"));
    setWindowTitle(QStringLiteral("Handyexport"));
    auto* panel = new QWidget(this);
    auto* layout = new QVBoxLayout(panel);
    QWidget* numbers = MakeBoxes(QStringLiteral("Rufnummern"),
                                 {AddRegionCodeBox, GlobalizeNumberBox, Change00toPlusBox});
    auto* numberLayout = qobject_cast<QVBoxLayout*>(numbers->layout());
    numberLayout->insertLayout(0, MakePrefixes());
    layout->addWidget(numbers);
    layout->addWidget(MakeBoxes(QStringLiteral("Einträge"), {UseReductionFlagsBox}));
    QWidget* lines = MakeBoxes(QStringLiteral("Zeilen der Datei"),
                               {DeleteCommaInNamesBox, WriteMemNumberBox, UseQuotesForDataBox});
    InpSeparator_ = new SeparatorField(lines);
    Name(InpSeparator_, "InpSeparator", QStringLiteral("Trennzeichen"));
    InpSeparator_->setMaximumWidth(fontMetrics().averageCharWidth() * 12);
    auto* separator = new QHBoxLayout;
    separator->addWidget(MakeLabel(QStringLiteral("&Trennzeichen:"), InpSeparator_, lines));
    separator->addWidget(InpSeparator_);
    separator->addStretch();
    qobject_cast<QVBoxLayout*>(lines->layout())->addLayout(separator);
    layout->addWidget(lines);
    layout->addStretch();
    LayOut(*this, panel, MakeButtons());
    LimitToRepertoire(InpSeparator_, beep, {.TakesTab = true});
    Draw();
    NameTab(InpSeparator_);
    connect(InpSeparator_, &QLineEdit::textChanged, this, [this](const QString& text) {
        fields_.InpSeparator = ToText(text);
        NameTab(InpSeparator_);
    });
    Resize(*this, sizeHint());
    chkHE_[AddRegionCodeBox]->setFocus();
}

QWidget* MobileExportDialog::MakeBoxes(const QString& title,
                                       std::initializer_list<std::size_t> boxes) {
    auto* group = new QGroupBox(title, this);
    auto layout = std::make_unique<QVBoxLayout>();
    for (const std::size_t number : boxes) {
        const QString caption = BoxCaption(number);
        QString accessibleName = caption;
        QCheckBox* box = MakeCheckBox("", caption, accessibleName.remove(u'&'), group);
        box->setObjectName(IndexedName("chkHE", static_cast<int>(number)));
        connect(box, &QCheckBox::toggled, this, [this, number](bool on) {
            if (!drawing_) {
                fields_.chkHE.at(number) = on;
                chkHE_Click(fields_, number);
                Draw();
            }
        });
        chkHE_.at(number) = box;
        layout->addWidget(box);
    }
    group->setLayout(layout.release());
    return group;
}

QLayout* MobileExportDialog::MakePrefixes() {
    auto* line = new QHBoxLayout;
    const auto add = [this, line](const QString& caption, const char* name, const Text& prefix) {
        auto* display = MakeDisplay(name, QString(caption).remove(u':'), this);
        display->Show(ToQString(prefix));
        line->addWidget(MakeLabel(caption, display, this));
        line->addWidget(display);
        line->addSpacing(fontMetrics().averageCharWidth() * 3);
    };
    add(QStringLiteral("Vorwahl:"), "AnzVorwahl", fields_.AnzVorwahl);
    add(QStringLiteral("Land:"), "AnzLand", fields_.AnzLand);
    line->addStretch();
    return line;
}

QLayout* MobileExportDialog::MakeButtons() {
    auto* exportButton = MakeButton("btnExport", QStringLiteral("&Exportieren..."),
                                    QStringLiteral("Exportieren"), this);
    auto* saveButton = MakeButton("btnSaveSettings", QStringLiteral("Einstellungen &speichern"),
                                  QStringLiteral("Einstellungen speichern"), this);
    auto* cancelButton =
        MakeButton("btnCancel", QStringLiteral("Abbrechen"), QStringLiteral("Abbrechen"), this);
    exportButton->setDefault(true);
    connect(exportButton, &QPushButton::clicked, this, &MobileExportDialog::exportWanted);
    connect(saveButton, &QPushButton::clicked, this, &MobileExportDialog::saveWanted);
    connect(cancelButton, &QPushButton::clicked, this, &QDialog::reject);
    auto* line = new QHBoxLayout;
    line->addWidget(exportButton);
    line->addWidget(saveButton);
    line->addStretch();
    line->addSpacing(fontMetrics().averageCharWidth() * 4);
    line->addWidget(cancelButton);
    return line;
}

void MobileExportDialog::Draw() {
    const bool before = std::exchange(drawing_, true);
    for (std::size_t box = 0; box < chkHE_.size(); ++box) {
        chkHE_.at(box)->setChecked(fields_.chkHE.at(box));
    }
    if (InpSeparator_->text() != ToQString(fields_.InpSeparator)) {  // keeps cursor and undo
        ShowLimited(InpSeparator_, ToQString(fields_.InpSeparator));
    }
    drawing_ = before;
}

}  // namespace norvik
