#include "qt/versionswindow.h"

#include "qt/entrylist.h"
#include "qt/panelarea.h"
#include "qt/textconversion.h"
#include "qt/widgetmakers.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include <array>
#include <utility>

namespace norvik {

namespace {

constexpr std::array<Text VersionRow::*, 4> Columns = {&VersionRow::When, &VersionRow::Original,
                                                       &VersionRow::Why, &VersionRow::Entries};
constexpr int FileColumn = 1;
constexpr int EntriesColumn = 3;

}  // namespace

VersionsWindow::VersionsWindow(QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::WindowMinMaxButtonsHint | Qt::WindowCloseButtonHint),
      names_(new EntryListModel(this)) {
    setObjectName(QStringLiteral("VERSIONS"));
    setWindowTitle(QStringLiteral("Frühere Stände"));
    auto* panel = new QWidget(this);
    auto* layout = new QHBoxLayout(panel);
    layout->addLayout(MakeTable(), 3);
    layout->addLayout(MakeNames(), 1);
    LayOut(*this, panel, MakeButtons());
    ListVersions_->installEventFilter(this);
    connect(ListVersions_, &QTableWidget::cellDoubleClicked, ofChosen_.front(),
            &QPushButton::click);
    Resize(*this, sizeHint().expandedTo(
                      {fontMetrics().averageCharWidth() * 130, fontMetrics().height() * 24}));
    ListVersions_->setFocus();
}

QLayout* VersionsWindow::MakeTable() {
    ListVersions_ = new QTableWidget(0, static_cast<int>(Columns.size()), this);
    Name(ListVersions_, "ListVersions", QStringLiteral("Frühere Stände"));
    ListVersions_->setHorizontalHeaderLabels({QStringLiteral("Wann"), QStringLiteral("Datei"),
                                              QStringLiteral("Warum"), QStringLiteral("Einträge")});
    ListVersions_->verticalHeader()->hide();
    ListVersions_->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    ListVersions_->horizontalHeader()->setSectionResizeMode(FileColumn, QHeaderView::Stretch);
    ListVersions_->setTextElideMode(Qt::ElideLeft);  // a path's end tells most
    ListVersions_->setWordWrap(false);
    ListVersions_->setSelectionBehavior(QAbstractItemView::SelectRows);
    ListVersions_->setSelectionMode(QAbstractItemView::SingleSelection);
    ListVersions_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    ListVersions_->setTabKeyNavigation(false);
    connect(ListVersions_, &QTableWidget::currentCellChanged, this, [this](int row) {
        if (!drawing_) {
            emit rowChosen(row);
        }
    });
    auto* layout = new QVBoxLayout;
    layout->addWidget(MakeLabel(QStringLiteral("&Aufgehobene Stände"), ListVersions_, this));
    layout->addWidget(ListVersions_);
    return layout;
}

QLayout* VersionsWindow::MakeNames() {
    ListNames_ = new QListView(this);
    Name(ListNames_, "ListNames", QStringLiteral("Namen im gewählten Stand"));
    ListNames_->setUniformItemSizes(true);
    ListNames_->setItemDelegate(new RowDelegate(ListNames_));
    ListNames_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    ListNames_->setModel(names_);
    auto* layout = new QVBoxLayout;
    layout->addWidget(MakeLabel(QStringLiteral("&Namen darin"), ListNames_, this));
    layout->addWidget(ListNames_);
    return layout;
}

QLayout* VersionsWindow::MakeButtons() {
    auto* line = new QHBoxLayout;
    line->addStretch();
    const auto add = [this, line](const char* name, const QString& caption,
                                  void (VersionsWindow::*clicked)()) {
        auto* button = MakeButton(name, caption, QString(caption).remove(u'&'), this);
        connect(button, &QPushButton::clicked, this, clicked);
        line->addWidget(button);
        return button;
    };
    ofChosen_ = {
        add("btnLoad", QStringLiteral("&Laden"), &VersionsWindow::loadClicked),
        add("btnSaveAs", QStringLiteral("&Speichern unter..."), &VersionsWindow::saveAsClicked),
        add("btnRemove", QStringLiteral("&Entfernen"), &VersionsWindow::removeClicked)};
    add("btnClose", QStringLiteral("S&chließen"), &VersionsWindow::closed)->setDefault(true);
    return line;
}

bool VersionsWindow::eventFilter(QObject* object, QEvent* event) {
    if (object == ListVersions_ && event->type() == QEvent::KeyPress) {
        const auto* press = dynamic_cast<QKeyEvent*>(event);
        const int key = press->key();
        QPushButton* button = key == Qt::Key_Return || key == Qt::Key_Enter ? ofChosen_.front()
                              : key == Qt::Key_Delete                       ? ofChosen_.back()
                                                                            : nullptr;
        if (button != nullptr) {
            if (!press->isAutoRepeat()) {  // a key held down removes one version, not all
                button->click();
            }
            return true;
        }
    }
    return QDialog::eventFilter(object, event);
}

void VersionsWindow::DrawRows(const std::vector<VersionRow>& rows) {
    if (rows_ == rows) {
        return;
    }
    rows_ = rows;
    ListVersions_->setRowCount(static_cast<int>(rows.size()));
    for (std::size_t row = 0; row < rows.size(); ++row) {
        for (std::size_t column = 0; column < Columns.size(); ++column) {
            const QString text = ToQString(rows.at(row).*Columns.at(column));
            auto* item = new QTableWidgetItem(text);
            item->setToolTip(text);
            if (column == EntriesColumn) {
                item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            }
            ListVersions_->setItem(static_cast<int>(row), static_cast<int>(column), item);
        }
    }
}

void VersionsWindow::Draw(const VersionsFields& fields) {
    const bool before = std::exchange(drawing_, true);
    DrawRows(fields.ListVersions);
    if (ListVersions_->currentRow() != fields.Chosen) {
        ListVersions_->setCurrentCell(fields.Chosen, 0);
    }
    names_->SetRows(fields.ListNames);
    for (QPushButton* button : ofChosen_) {
        button->setEnabled(fields.Chosen >= 0);
    }
    drawing_ = before;
}

void VersionsWindow::reject() {
    emit closed();
}

}  // namespace norvik
