#include "qt/entrylist.h"

#include "mainwindow/listrows.h"
#include "qt/textconversion.h"

#include <QAccessible>
#include <QApplication>
#include <QMouseEvent>

#include <utility>

namespace norvik {

void EntryListModel::SetRows(const std::vector<Text>& rows) {
    if (rows == rows_) {
        return;
    }
    beginResetModel();
    rows_ = rows;
    endResetModel();
}

const Text& EntryListModel::Row(int row) const {
    return rows_.at(static_cast<std::size_t>(row));
}

int EntryListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

QVariant EntryListModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::ToolTipRole)) {
        return {};
    }
    const QString row = ToQString(Row(index.row()));
    // A tool tip knows markup, a row holds none.
    return role == Qt::DisplayRole
               ? row
               : QStringLiteral("<p style='white-space:pre-wrap'>%1</p>").arg(row.toHtmlEscaped());
}

QModelIndexList EntryListModel::match(const QModelIndex& start, int role, const QVariant& value,
                                      int hits, Qt::MatchFlags flags) const {
    if (role != Qt::DisplayRole || flags != (Qt::MatchStartsWith | Qt::MatchWrap) || hits != 1 ||
        value.toString().isEmpty()) {
        return QAbstractListModel::match(start, role, value, hits, flags);
    }
    const QString typed = value.toString();
    QModelIndex found = RowOfName(typed, start.row());
    // The same letter again and again goes from one of its names to the next.
    if (!found.isValid() && typed.count(typed.front(), Qt::CaseInsensitive) == typed.size()) {
        found = RowOfName(typed.first(1), start.row());
    }
    return found.isValid() ? QModelIndexList{found} : QModelIndexList();
}

QModelIndex EntryListModel::RowOfName(const QString& beginning, int start) const {
    const int count = rowCount({});
    for (int i = 0; i < count; ++i) {
        const int row = (start + i) % count;
        if (ToQString(WithoutPosition(Row(row))).startsWith(beginning, Qt::CaseInsensitive)) {
            return index(row, 0);
        }
    }
    return {};
}

QSize RowDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    constexpr int RoomAbove = 2;
    return QStyledItemDelegate::sizeHint(option, index) + QSize(0, RoomAbove);
}

EntryListView::EntryListView(QWidget* parent) : QListView(parent) {
    setItemDelegate(new RowDelegate(this));
    setUniformItemSizes(true);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
}

void EntryListView::SelectRow(std::optional<int> row) {
    const bool before = std::exchange(selecting_, true);
    if (row) {
        const QModelIndex index = model()->index(*row, 0);
        setCurrentIndex(index);
        scrollTo(index);
    } else {
        selectionModel()->clear();
    }
    selecting_ = before;
}

void EntryListView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    // The toolkit's list tells a screen reader that the row has the focus, wherever the focus is.
    // NOLINTNEXTLINE(bugprone-parent-virtual-call)
    QAbstractItemView::currentChanged(current, previous);
    TellFocus();
    if (!selecting_ && !deferred_) {
        Choose(current);
    }
}

void EntryListView::focusInEvent(QFocusEvent* event) {
    // A list without a current row makes its first one current by itself; nobody chose that.
    const bool none = !currentIndex().isValid();
    const bool before = std::exchange(selecting_, true);
    QListView::focusInEvent(event);
    if (none) {
        selectionModel()->clear();
    }
    selecting_ = before;
    if (event->reason() != Qt::MouseFocusReason) {  // the mouse is about to choose a row
        TellFocus();
    }
}

void EntryListView::TellFocus() {
    if (currentIndex().isValid() && hasFocus()) {
        QAccessibleEvent event(this, QAccessible::Focus);
        event.setChild(currentIndex().row());
        QAccessible::updateAccessibility(&event);
    }
}

bool EntryListView::TakesBlank(const QKeyEvent& event) {
    const bool goesOn =
        typed_.isValid() && typed_.elapsed() <= QApplication::keyboardInputInterval();
    const QString text = event.text();
    if (!text.isEmpty() && text.front().isPrint() && (goesOn || !text.front().isSpace())) {
        typed_.start();
    } else {
        typed_.invalidate();
    }
    return goesOn && event.key() == Qt::Key_Space;
}

void EntryListView::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Delete &&
        (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier) {
        if (!event->isAutoRepeat() && selectionModel()->hasSelection()) {  // one entry, not all
            emit eraseWanted();
        }
        return;
    }
    const QPersistentModelIndex before = currentIndex();
    deferred_ = true;
    if (TakesBlank(*event)) {
        keyboardSearch(event->text());
    } else {
        QListView::keyPressEvent(event);
    }
    deferred_ = false;
    if (currentIndex() != before) {
        Choose(currentIndex());
    }
}

void EntryListView::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || !indexAt(event->position().toPoint()).isValid()) {
        return;  // nothing is chosen by other buttons, nor below the rows
    }
    deferred_ = true;
    QListView::mousePressEvent(event);
}

void EntryListView::mouseReleaseEvent(QMouseEvent* event) {
    QListView::mouseReleaseEvent(event);
    const bool pressed = std::exchange(deferred_, false);
    if (pressed && event->button() == Qt::LeftButton) {
        Choose(currentIndex());
    }
}

void EntryListView::Choose(const QModelIndex& index) {
    if (index.isValid()) {
        emit rowChosen(index.row());
    }
}

}  // namespace norvik
