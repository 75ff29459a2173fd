#include "qt/settingsdialog.h"

#include "qt/display.h"
#include "qt/entryfield.h"
#include "qt/entrylist.h"
#include "qt/panelarea.h"
#include "qt/recordscrollbar.h"
#include "qt/textconversion.h"
#include "qt/widgetmakers.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include <utility>

namespace norvik {

namespace {

/// A field of a damaged file may be longer than anything can show.
constexpr std::size_t LongestShown = 500;

QString ItemCaption(std::size_t item) {
    const std::array<QString, SyncItems> captions = {
        QStringLiteral("Name"),
        QStringLiteral("Vorname"),
        QStringLiteral("Firma"),
        QStringLiteral("Strasse, Hausnr."),
        QStringLiteral("PLZ"),
        QStringLiteral("Stadt"),
        QStringLiteral("Tel. geschäftl."),
        QStringLiteral("Tel. privat"),
        QStringLiteral("Fax"),
        QStringLiteral("Andere (Handy)"),
    };
    return captions.at(item);
}

QString Shown(TextView text) {
    return ToQString(Slice(text, 0, LongestShown));
}

}  // namespace

SettingsDialog::SettingsDialog(SettingsFields fields, Desktop& desktop,
                               std::function<void(const Operation&)> run, QWidget* parent)
    : QDialog(parent), fields_(std::move(fields)), desktop_(desktop), run_(std::move(run)) {
    setObjectName(QStringLiteral("NVSET"));
    setWindowTitle(QStringLiteral("Norvikkonverter - Einstellungen"));
    auto* panel = new QWidget(this);
    auto* layout = new QVBoxLayout(panel);
    layout->addWidget(MakeGeneral());
    layout->addWidget(MakeLocation());
    layout->addWidget(MakeSync(), 1);
    LayOut(*this, panel, MakeButtons());
    Draw();
    Resize(*this, sizeHint());
    Connect();
    InpLoadfile_->setFocus();
}

QLineEdit* SettingsDialog::MakePath(const char* name, const QString& accessibleName,
                                    QWidget* parent) {
    auto* field = new QLineEdit(parent);
    Name(field, name, accessibleName);
    LimitToRepertoire(field, [this] { desktop_.Beep(); });
    return field;
}

QLineEdit* SettingsDialog::MakeValue(std::size_t number, const QString& accessibleName,
                                     QWidget* parent) {
    auto* field = new QLineEdit(parent);
    field->setObjectName(IndexedName("SetValue", static_cast<int>(number)));
    field->setAccessibleName(accessibleName);
    field->installEventFilter(this);
    LimitToRepertoire(field, [this] { desktop_.Beep(); });
    SetValue_.at(number) = field;
    return field;
}

QWidget* SettingsDialog::MakeGeneral() {
    auto* group = new QGroupBox(QStringLiteral("Allgemein"), this);
    DDSprache_ = new QComboBox(group);
    Name(DDSprache_, "DDSprache", QStringLiteral("Sprache"));
    DDSprache_->setMinimumContentsLength(10);  // the toolkit's own width cuts a large text
    DDSprache_->addItems({QStringLiteral("Deutsch"), QStringLiteral("English")});
    InpLoadfile_ = MakePath("InpLoadfile", QStringLiteral("Datei beim Start laden"), group);
    auto* change = MakeButton("btnChangeLoadfile", QStringLiteral("Ä&ndern"),
                              QStringLiteral("Datei beim Start ändern"), group);
    connect(change, &QPushButton::clicked, this,
            [this] { Handle([this] { btnChangeLoadfile_Click(fields_, desktop_); }); });
    auto* grid = new QGridLayout(group);
    grid->addWidget(MakeLabel(QStringLiteral("S&prache"), DDSprache_, group), 0, 0);
    grid->addWidget(DDSprache_, 0, 1, Qt::AlignLeft);
    grid->addWidget(MakeLabel(QStringLiteral("&Datei beim Start laden:"), InpLoadfile_, group), 1,
                    0);
    grid->addWidget(InpLoadfile_, 1, 1);
    grid->addWidget(change, 1, 2);
    grid->setColumnStretch(1, 1);
    return group;
}

QWidget* SettingsDialog::MakeLocation() {
    const std::array<QString, FirstItemValue> captions = {QStringLiteral("&Ländercode"),
                                                          QStringLiteral("&Vorwahl"),
                                                          QStringLiteral("&Gebührenfaktor")};
    auto* group = new QGroupBox(QStringLiteral("Lokalisierung"), this);
    auto* line = new QHBoxLayout(group);
    for (std::size_t number = 0; number < captions.size(); ++number) {
        QLineEdit* value = MakeValue(number, QString(captions.at(number)).remove(u'&'), group);
        value->setMaximumWidth(fontMetrics().averageCharWidth() * 12);
        line->addWidget(MakeLabel(captions.at(number), value, group));
        line->addWidget(value);
        line->addSpacing(fontMetrics().averageCharWidth() * 2);
    }
    line->addStretch();
    return group;
}

QWidget* SettingsDialog::MakeSync() {
    auto* group = new QGroupBox(QStringLiteral("Synchronisation"), this);
    auto* layout = new QGridLayout(group);
    layout->addLayout(MakeSyncFile(group), 0, 0, 1, 2);
    layout->addLayout(MakeSampleChoice(group), 1, 0, 1, 2);
    ListSyncFileItems_ = new QListWidget(group);
    Name(ListSyncFileItems_, "ListSyncFileItems", QStringLiteral("Felder des Datensatzes"));
    ListSyncFileItems_->setItemDelegate(new RowDelegate(ListSyncFileItems_));
    layout->addWidget(MakeLabel(QStringLiteral("&1. Element wählen"), ListSyncFileItems_, group), 2,
                      0);
    layout->addWidget(
        new QLabel(QStringLiteral("2. Feldbezeichnung anklicken, um zu übernehmen"), group), 2, 1);
    layout->addWidget(ListSyncFileItems_, 3, 0);
    layout->addLayout(MakeItems(group), 3, 1);
    layout->setColumnStretch(0, 2);
    layout->setColumnStretch(1, 3);
    layout->setRowStretch(3, 1);
    return group;
}

QLayout* SettingsDialog::MakeSyncFile(QWidget* parent) {
    // The label's spelling is the program's own.
    InpSyncFile_ = MakePath("InpSyncFile", QStringLiteral("Syncronisations-Quelle"), parent);
    auto* change = MakeButton("btnChangeSyncfile", QStringLiteral("Änd&ern"),
                              QStringLiteral("Syncronisations-Quelle ändern"), parent);
    connect(change, &QPushButton::clicked, this,
            [this] { Handle([this] { btnChangeSyncfile_Click(fields_, desktop_); }); });
    chkLoadSyncOnStart_ = MakeCheckBox("chkLoadSyncOnStart", QStringLiteral("&Beim Start laden"),
                                       QStringLiteral("Beim Start laden"), parent);
    auto* grid = new QGridLayout;
    grid->addWidget(MakeLabel(QStringLiteral("&Syncronisations-Quelle"), InpSyncFile_, parent), 0,
                    0);
    grid->addWidget(InpSyncFile_, 0, 1);
    grid->addWidget(change, 0, 2);
    grid->addWidget(chkLoadSyncOnStart_, 1, 1);
    grid->setColumnStretch(1, 1);
    return grid;
}

QLayout* SettingsDialog::MakeSampleChoice(QWidget* parent) {
    ScrollSyncFile_ = new RecordScrollBar(parent);
    Name(ScrollSyncFile_, "ScrollSyncFile", QStringLiteral("Beispieldatensatz"));
    ScrollSyncFile_->setRange(FirstSampleRecord, LastSampleRecord);
    record_ = MakeDisplay("", QStringLiteral("Nummer des Beispieldatensatzes"), parent);
    record_->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("1000")));
    auto* line = new QHBoxLayout;
    line->addWidget(MakeLabel(QStringLiteral("Beispieldatensat&z"), ScrollSyncFile_, parent));
    line->addWidget(record_);
    line->addWidget(ScrollSyncFile_, 1);
    return line;
}

QLayout* SettingsDialog::MakeItems(QWidget* parent) {
    auto* grid = new QGridLayout;
    for (std::size_t item = 0; item < SyncItems; ++item) {
        const int row = static_cast<int>(item);
        const int label = FirstItemLabel + static_cast<int>(item);
        auto* explanation = MakeButton("", ItemCaption(item), ItemCaption(item), parent);
        explanation->setObjectName(IndexedName("itemexpl", label));
        itemexpl_.at(item) = explanation;
        connect(explanation, &QPushButton::clicked, this,
                [this, label] { Handle([this, label] { itemexpl_Click(fields_, label); }); });
        QLineEdit* value = MakeValue(FirstItemValue + item,
                                     ItemCaption(item) + QStringLiteral(": Feldnummer"), parent);
        value->setMaximumWidth(fontMetrics().averageCharWidth() * 6);
        Display* output = MakeDisplay("", ItemCaption(item) + QStringLiteral(": Beispiel"), parent);
        output->setObjectName(IndexedName("Testausgabe", static_cast<int>(item)));
        output->LeaveRoom();
        Testausgabe_.at(item) = output;
        grid->addWidget(explanation, row, 0);
        grid->addWidget(value, row, 1);
        grid->addWidget(output, row, 2);
    }
    grid->setColumnMinimumWidth(2, fontMetrics().averageCharWidth() * 26);
    grid->setColumnStretch(2, 1);
    grid->setRowStretch(static_cast<int>(SyncItems), 1);
    return grid;
}

QLayout* SettingsDialog::MakeButtons() {
    auto* store = MakeButton("btnMakeChanges", QStringLiteral("&Übernehmen"),
                             QStringLiteral("Übernehmen"), this);
    auto* cancel =
        MakeButton("btnCancel", QStringLiteral("Verwerfen"), QStringLiteral("Verwerfen"), this);
    store->setDefault(true);
    connect(store, &QPushButton::clicked, this, [this] {
        Read();
        emit storeWanted();
    });
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    auto* line = new QHBoxLayout;
    line->addStretch();
    line->addWidget(store);
    line->addWidget(cancel);
    return line;
}

void SettingsDialog::Connect() {
    const auto showSample = [this] {
        if (!drawing_) {
            Handle([this] { ShowSampleRecord(fields_); });
        }
    };
    connect(DDSprache_, &QComboBox::currentIndexChanged, this, [this] {
        if (!drawing_) {
            Handle([this] { DDSprache_Click(fields_, desktop_); });
        }
    });
    connect(InpSyncFile_, &QLineEdit::textChanged, this, showSample);
    connect(ScrollSyncFile_, &QScrollBar::valueChanged, this, showSample);
    for (std::size_t box = FirstItemValue; box < SetValue_.size(); ++box) {
        connect(SetValue_.at(box), &QLineEdit::textEdited, this,
                [this, box] { Handle([this, box] { ShowMappedField(fields_, box); }); });
    }
}

void SettingsDialog::Handle(const Operation& handler) {
    Read();
    run_(handler);
    Draw();
}

void SettingsDialog::Read() {
    fields_.DDSprache = DDSprache_->currentIndex();
    fields_.InpLoadfile = ToText(InpLoadfile_->text());
    fields_.InpSyncFile = ToText(InpSyncFile_->text());
    fields_.chkLoadSyncOnStart = chkLoadSyncOnStart_->isChecked();
    for (std::size_t number = 0; number < SetValue_.size(); ++number) {
        fields_.SetValue.at(number) = ToText(SetValue_.at(number)->text());
    }
    fields_.ScrollSyncFile = ScrollSyncFile_->value();
    // The current row alone is not selected yet, such as after Tab into the list.
    const QModelIndexList selected = ListSyncFileItems_->selectionModel()->selectedRows();
    fields_.SelectedItem = selected.isEmpty() ? -1 : selected.front().row();
}

void SettingsDialog::Draw() {
    const bool before = std::exchange(drawing_, true);
    const auto draw = [](QLineEdit* field, TextView text) {
        if (field->text() != ToQString(text)) {  // the cursor stays where the user types
            ShowLimited(field, ToQString(text));
        }
    };
    DDSprache_->setCurrentIndex(fields_.DDSprache);
    draw(InpLoadfile_, fields_.InpLoadfile);
    draw(InpSyncFile_, fields_.InpSyncFile);
    chkLoadSyncOnStart_->setChecked(fields_.chkLoadSyncOnStart);
    for (std::size_t number = 0; number < SetValue_.size(); ++number) {
        draw(SetValue_.at(number), fields_.SetValue.at(number));
    }
    ScrollSyncFile_->setValue(fields_.ScrollSyncFile);
    record_->Show(fields_.ScrollSyncFile);
    DrawSample();
    drawing_ = before;
}

void SettingsDialog::DrawSample() {
    const std::vector<Text>& items = fields_.ListSyncFileItems;
    bool same = ListSyncFileItems_->count() == static_cast<int>(items.size());
    for (std::size_t i = 0; same && i < items.size(); ++i) {
        same = ListSyncFileItems_->item(static_cast<int>(i))->text() == Shown(items[i]);
    }
    if (!same) {
        ListSyncFileItems_->clear();
        for (const Text& item : items) {
            ListSyncFileItems_->addItem(Shown(item));
        }
    }
    if (fields_.SelectedItem < 0) {
        ListSyncFileItems_->clearSelection();
        ListSyncFileItems_->setCurrentItem(nullptr);
    } else {
        ListSyncFileItems_->setCurrentRow(fields_.SelectedItem);
    }
    for (std::size_t item = 0; item < Testausgabe_.size(); ++item) {
        Testausgabe_.at(item)->Show(Shown(fields_.Testausgabe.at(item)));
        SetValue_.at(FirstItemValue + item)->setEnabled(!fields_.SyncFileIsVCard);
        itemexpl_.at(item)->setEnabled(!fields_.SyncFileIsVCard);
    }
    ScrollSyncFile_->setEnabled(!fields_.SyncFileIsVCard);
}

void SettingsDialog::CloseStored() {
    accept();
}

void SettingsDialog::reject() {
    run_([this] { NVSET_btnCancel_Click(desktop_); });
    QDialog::reject();
}

bool SettingsDialog::eventFilter(QObject* object, QEvent* event) {
    if (event->type() != QEvent::KeyPress) {
        return QDialog::eventFilter(object, event);
    }
    const auto* key = static_cast<QKeyEvent*>(event);  // NOLINT(*-static-cast-downcast)
    const bool down =
        key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter || key->key() == Qt::Key_Down;
    for (std::size_t box = 0; box < SetValue_.size(); ++box) {
        if (SetValue_.at(box) == object && (down || key->key() == Qt::Key_Up)) {
            std::size_t next = NextValueBox(box, !down);
            while (!SetValue_.at(next)->isEnabled()) {  // those of the location always are
                next = NextValueBox(next, !down);
            }
            SetValue_.at(next)->setFocus(Qt::TabFocusReason);  // its text is selected
            return true;
        }
    }
    return QDialog::eventFilter(object, event);
}

}  // namespace norvik
