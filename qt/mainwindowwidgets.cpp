#include "qt/mainwindowwidgets.h"

#include "qt/display.h"
#include "qt/entryfield.h"
#include "qt/entrygroups.h"
#include "qt/entrylist.h"
#include "qt/panelarea.h"
#include "qt/phonepicture.h"
#include "qt/recordscrollbar.h"
#include "qt/widgetmakers.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSplitter>
#include <QStatusBar>
#include <QVBoxLayout>

#include <vector>

namespace norvik {

namespace {

QLabel* MakeQuietLabel(const QString& text, QWidget* parent) {
    auto* label = new QLabel(text, parent);
    label->setForegroundRole(QPalette::PlaceholderText);
    return label;
}

/// "Eintrag 1 von 60   2 markiert   Quelle 195, 20.11.2026 10:00"
QLayout* MakeCountLine(MainWindowWidgets& widgets, QWidget* parent) {
    widgets.AnzNr = MakeDisplay("AnzNr", QStringLiteral("Aktueller Eintrag"), parent);
    widgets.AnzGes = MakeDisplay("AnzGes", QStringLiteral("Anzahl der Einträge"), parent);
    widgets.AnzMarkiert =
        MakeDisplay("AnzMarkiert", QStringLiteral("Anzahl der markierten Einträge"), parent);
    widgets.AnzQuelle = MakeDisplay("AnzQuelle", QStringLiteral("Quelle"), parent);
    widgets.AnzQuellZeit = MakeDisplay("AnzQuellZeit", QStringLiteral("Stand der Quelle"), parent);
    auto* line = new QHBoxLayout;
    const int gap = parent->fontMetrics().averageCharWidth() * 3;
    line->addWidget(MakeLabel(QStringLiteral("Eintrag"), widgets.Satzwahl, parent));
    line->addWidget(widgets.AnzNr);
    line->addWidget(new QLabel(QStringLiteral("von"), parent));
    line->addWidget(widgets.AnzGes);
    line->addSpacing(gap);
    line->addWidget(new QLabel(QStringLiteral("markiert:"), parent));
    line->addWidget(widgets.AnzMarkiert);
    line->addSpacing(gap);
    line->addWidget(new QLabel(QStringLiteral("Quelle:"), parent));
    line->addWidget(widgets.AnzQuelle);
    line->addWidget(widgets.AnzQuellZeit);
    line->addStretch();
    return line;
}

QLayout* MakeHead(MainWindowWidgets& widgets, QWidget* parent) {
    widgets.Bild1 = new PhonePicture(parent);
    Name(widgets.Bild1, "Bild1", QStringLiteral("Rufnummer umwandeln (Test)"));
    widgets.Satzwahl = new RecordScrollBar(parent);
    Name(widgets.Satzwahl, "Satzwahl", QStringLiteral("Satzwahl"));
    widgets.Satzwahl->setRange(1, 1);
    // While the scroll box is dragged only the number follows.
    widgets.Satzwahl->setTracking(false);
    auto* head = new QGridLayout;
    head->addWidget(widgets.Bild1, 0, 0, 2, 1);
    head->addLayout(MakeCountLine(widgets, parent), 0, 1);
    head->addWidget(widgets.Satzwahl, 1, 1);
    head->setColumnStretch(1, 1);
    return head;
}

QLayout* MakeButtonLine(MainWindowWidgets& widgets, QWidget* parent) {
    widgets.btnSaveChange = MakeButton("btnSaveChange", QStringLiteral("&Übernehmen"),
                                       QStringLiteral("Eintrag übernehmen"), parent);
    widgets.btnNew =
        MakeButton("btnNew", QStringLiteral("N&eu"), QStringLiteral("Neuer Eintrag"), parent);
    widgets.btnErase = MakeButton("btnErase", QStringLiteral("Lös&chen"),
                                  QStringLiteral("Eintrag löschen"), parent);
    widgets.btnSearch =
        MakeButton("btnSearch", QStringLiteral("s&uchen..."), QStringLiteral("Suchen"), parent);
    widgets.btnSearchMore = MakeButton("btnSearchMore", QStringLiteral("meh&r..."),
                                       QStringLiteral("Weitersuchen"), parent);
    auto* line = new QHBoxLayout;
    line->addWidget(widgets.btnSaveChange);
    line->addWidget(widgets.btnNew);
    line->addWidget(widgets.btnErase);
    line->addStretch();
    line->addWidget(widgets.btnSearch);
    line->addWidget(widgets.btnSearchMore);
    return line;
}

QLineEdit* MakeDiagnosticField(int number, const QString& caption, QWidget* parent) {
    auto* field = new QLineEdit(parent);
    field->setObjectName(IndexedName("Anzeigefeld", number));
    field->setAccessibleName(QStringLiteral("Diagnose ") + caption);
    field->setReadOnly(true);
    field->setFocusPolicy(Qt::ClickFocus);  // to copy from; nobody who types wants to come by
    field->setFrame(false);
    QPalette quiet = field->palette();
    quiet.setColor(QPalette::Base, Qt::transparent);
    quiet.setColor(QPalette::Text, quiet.color(QPalette::PlaceholderText));
    field->setPalette(quiet);
    field->setMinimumWidth(field->fontMetrics().horizontalAdvance(QStringLiteral("FF (2000)  ")));
    field->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    return field;
}

/// One row of raw values, a caption above each.
QLayout* MakeDiagnostics(MainWindowWidgets& widgets, QWidget* parent) {
    const std::array<QString, 6> captions = {
        QStringLiteral("Ton"),        QStringLiteral("Einheiten"), QStringLiteral("AB"),
        QStringLiteral("MSN/Filter"), QStringLiteral("RecIndex"),  QStringLiteral("RecNumber")};
    auto* grid = new QGridLayout;
    grid->setVerticalSpacing(0);
    for (std::size_t column = 0; column < captions.size(); ++column) {
        const int number = FirstDiagnosticField + static_cast<int>(column);
        QLineEdit* field = MakeDiagnosticField(number, captions.at(column), parent);
        widgets.Diagnostics.at(static_cast<std::size_t>(number)) = field;
        QLabel* caption = MakeQuietLabel(captions.at(column), parent);
        caption->setBuddy(field);
        // The field's own text stands a few pixels inside its frame.
        caption->setIndent(2);
        grid->addWidget(caption, 0, static_cast<int>(column));
        grid->addWidget(field, 1, static_cast<int>(column));
    }
    widgets.Index = MakeDisplay("Index", QStringLiteral("Platz in der Tabelle"), parent);
    widgets.Index->setForegroundRole(QPalette::PlaceholderText);
    const int column = static_cast<int>(captions.size());
    grid->addWidget(MakeQuietLabel(QStringLiteral("Index"), parent), 0, column);
    grid->addWidget(widgets.Index, 1, column);
    return grid;
}

QWidget* MakeEntryPanel(MainWindowWidgets& widgets, QWidget* parent) {
    auto* panel = new QWidget(parent);
    auto* left = new QVBoxLayout;
    auto* right = new QVBoxLayout;
    auto* layout = new QGridLayout(panel);
    layout->addLayout(MakeHead(widgets, panel), 0, 0, 1, 2);
    left->addWidget(MakeNameGroup(widgets, panel));
    left->addWidget(MakeInfoGroup(widgets, panel));
    right->addWidget(MakeToneGroup(widgets, panel));
    right->addWidget(MakeFilterGroup(widgets, panel));
    right->addWidget(MakeChargeGroup(widgets, panel));
    widgets.chkExport = MakeCheckBox("chkExport", QStringLiteral("Export&ieren"),
                                     QStringLiteral("Zum Exportieren markiert"), panel);
    right->addWidget(widgets.chkExport);
    right->addStretch();
    layout->addLayout(left, 1, 0, Qt::AlignTop);
    layout->addLayout(right, 1, 1);
    layout->addLayout(MakeButtonLine(widgets, panel), 2, 0, 1, 2);
    widgets.NotStored = MakeQuietLabel(QStringLiteral("nicht übernommen"), panel);
    widgets.NotStored->setObjectName(QStringLiteral("NotStored"));
    QSizePolicy kept = widgets.NotStored->sizePolicy();
    kept.setRetainSizeWhenHidden(true);  // nothing moves when it comes and goes
    widgets.NotStored->setSizePolicy(kept);
    layout->addWidget(widgets.NotStored, 3, 0, 1, 2, Qt::AlignTop | Qt::AlignLeft);
    layout->setRowStretch(3, 1);
    layout->addLayout(MakeDiagnostics(widgets, panel), 4, 0, 1, 2);
    return panel;
}

QWidget* MakeListPanel(MainWindowWidgets& widgets, QWidget* parent) {
    auto* panel = new QWidget(parent);
    widgets.TelRegListe = new EntryListView(panel);
    Name(widgets.TelRegListe, "TelRegListe", QStringLiteral("Telefonregister"));
    widgets.chkListFilter = MakeCheckBox("chkListFilter", QStringLiteral("Filter akti&v"),
                                         QStringLiteral("Listenfilter aktiv"), panel);
    auto* layout = new QVBoxLayout(panel);
    layout->addWidget(MakeLabel(QStringLiteral("Aus&wahl:"), widgets.TelRegListe, panel));
    layout->addWidget(widgets.TelRegListe);
    layout->addWidget(widgets.chkListFilter);
    return panel;
}

void SetTabOrder(const MainWindowWidgets& widgets) {
    std::vector<QWidget*> order = {widgets.Bild1, widgets.Satzwahl};
    for (EntryField* field : widgets.Texts) {
        if (field != nullptr) {
            order.push_back(field);
        }
    }
    order.insert(order.end(), {widgets.DDTon, widgets.chkTon, widgets.DDAB, widgets.DDMSN});
    order.insert(order.end(), widgets.OptFilter.begin(), widgets.OptFilter.end());
    order.insert(order.end(), {widgets.chkCharge, widgets.btnEraseCharge, widgets.chkExport,
                               widgets.btnSaveChange, widgets.btnNew, widgets.btnErase,
                               widgets.btnSearch, widgets.btnSearchMore});
    order.insert(order.end(), {widgets.TelRegListe, widgets.chkListFilter});
    for (std::size_t i = 1; i < order.size(); ++i) {
        QWidget::setTabOrder(order[i - 1], order[i]);
    }
}

}  // namespace

MainWindowWidgets MakeMainWindowWidgets(QMainWindow& window) {
    MainWindowWidgets widgets;
    auto* splitter = new QSplitter(Qt::Horizontal, &window);
    splitter->setObjectName(QStringLiteral("Teilung"));
    QWidget* entry = MakeEntryPanel(widgets, splitter);
    auto* scrollable = new PanelArea(entry, splitter);
    QWidget* list = MakeListPanel(widgets, splitter);
    splitter->addWidget(scrollable);
    splitter->addWidget(list);
    splitter->setChildrenCollapsible(false);
    splitter->setStretchFactor(0, 0);
    splitter->setStretchFactor(1, 1);
    window.setCentralWidget(splitter);
    const int listWidth = list->fontMetrics().averageCharWidth() * 60;
    splitter->setSizes({entry->sizeHint().width(), listWidth});

    widgets.Status = MakeDisplay("Status", QStringLiteral("Statuszeile"), &window);
    widgets.Status->LeaveRoom();
    widgets.Status->setIndent(window.fontMetrics().averageCharWidth());
    window.statusBar()->addWidget(widgets.Status, 1);
    SetTabOrder(widgets);
    const QSize wanted(entry->sizeHint().width() + listWidth,
                       window.sizeHint().height() + window.fontMetrics().height() * 2);
    Resize(window, wanted);
    return widgets;
}

}  // namespace norvik
