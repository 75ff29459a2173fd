#include "qt/doubleswindow.h"

#include "qt/panelarea.h"
#include "qt/textconversion.h"
#include "qt/widgetmakers.h"
#include "qt/windowplace.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include <array>
#include <utility>

namespace norvik {

namespace {

constexpr int NameColumn = 1;
constexpr int PositionColumn = 3;

std::array<QString, 4> TextsOf(const DoubleRow& row) {
    return {ToQString(row.Dialled), ToQString(row.Name), ToQString(row.Tel),
            QString::number(row.Position)};
}

bool IsSelected(const QTableWidget& table) {
    return table.selectionModel()->hasSelection();
}

QString CountText(const std::vector<DoubleRow>& rows) {
    const int numbers = rows.empty() ? 0 : rows.back().Group + 1;
    return numbers == 0 ? QStringLiteral("Keine Rufnummer steht mehrmals im Register.")
           : numbers == 1
               ? QStringLiteral("Eine Rufnummer steht mehrmals im Register:")
               : QStringLiteral("%1 Rufnummern stehen mehrmals im Register:").arg(numbers);
}

}  // namespace

DoublesWindow::DoublesWindow(QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::WindowMinMaxButtonsHint | Qt::WindowCloseButtonHint),
      ListDoubles_(MakeTable()) {
    setObjectName(QStringLiteral("DOUBLES"));
    setWindowTitle(QStringLiteral("Doppelte Rufnummern"));
    count_ = MakeLabel(CountText({}), ListDoubles_, this);
    btnErase_ = MakeButton("btnErase", QStringLiteral("&Löschen"),
                           QStringLiteral("Gewählten Eintrag löschen"), this);
    auto* btnClose =
        MakeButton("btnClose", QStringLiteral("S&chließen"), QStringLiteral("Schließen"), this);
    btnClose->setDefault(true);
    connect(btnErase_, &QPushButton::clicked, this, &DoublesWindow::eraseClicked);
    connect(btnClose, &QPushButton::clicked, this, &DoublesWindow::closed);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(btnErase_);
    buttons->addWidget(btnClose);
    auto* panel = new QWidget(this);
    auto* layout = new QVBoxLayout(panel);
    layout->addWidget(count_);
    layout->addWidget(ListDoubles_);
    LayOut(*this, panel, buttons);
    Resize(*this, sizeHint().expandedTo(
                      {fontMetrics().averageCharWidth() * 90, fontMetrics().height() * 24}));
    PlaceBeside(*this, *parent);
    ListDoubles_->setFocus();
}

QTableWidget* DoublesWindow::MakeTable() {
    auto* table = new QTableWidget(0, static_cast<int>(TextsOf({}).size()), this);
    Name(table, "ListDoubles", QStringLiteral("Einträge mit derselben Rufnummer"));
    table->setHorizontalHeaderLabels({QStringLiteral("Rufnummer"), QStringLiteral("Name"),
                                      QStringLiteral("Nummer im Register"),
                                      QStringLiteral("Eintrag")});
    table->verticalHeader()->hide();
    table->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    table->horizontalHeader()->setSectionResizeMode(NameColumn, QHeaderView::Stretch);
    table->setWordWrap(false);
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setSelectionMode(QAbstractItemView::SingleSelection);
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->setTabKeyNavigation(false);
    // The focus alone makes a row the current one, but selects none.
    connect(table, &QTableWidget::itemSelectionChanged, this, [this, table] {
        // A mouse button tells when it has done its work: a question may follow.
        if (!drawing_ && QApplication::mouseButtons() == Qt::NoButton) {
            emit rowChosen(table->currentRow());
        }
    });
    connect(table, &QTableWidget::cellClicked, this, &DoublesWindow::rowChosen);
    return table;
}

void DoublesWindow::DrawRows(const std::vector<DoubleRow>& rows) {
    if (rows_ == rows) {
        return;
    }
    rows_ = rows;
    ListDoubles_->setRowCount(static_cast<int>(rows.size()));
    for (std::size_t row = 0; row < rows.size(); ++row) {
        const auto texts = TextsOf(rows.at(row));
        for (std::size_t column = 0; column < texts.size(); ++column) {
            auto* item = new QTableWidgetItem(texts.at(column));
            if (rows.at(row).Group % 2 != 0) {  // tells one number's entries from the next one's
                item->setBackground(palette().alternateBase());
            }
            if (column == PositionColumn) {
                item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            }
            ListDoubles_->setItem(static_cast<int>(row), static_cast<int>(column), item);
        }
    }
}

void DoublesWindow::Draw(const DoublesFields& fields) {
    const bool before = std::exchange(drawing_, true);
    DrawRows(fields.ListDoubles);
    count_->setText(CountText(fields.ListDoubles));
    if (fields.Chosen < 0) {
        ListDoubles_->clearSelection();
    } else if (ListDoubles_->currentRow() != fields.Chosen || !IsSelected(*ListDoubles_)) {
        ListDoubles_->setCurrentCell(fields.Chosen, 0);
    }
    btnErase_->setEnabled(fields.Chosen >= 0);
    drawing_ = before;
}

void DoublesWindow::reject() {
    emit closed();
}

}  // namespace norvik
