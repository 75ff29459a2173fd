// The main window's list of entries: a model that hands out the core's rows, and a view that tells
// a row chosen by the user from one that the program selects.
#pragma once

#include "base/text.h"

#include <QAbstractListModel>
#include <QElapsedTimer>
#include <QListView>
#include <QStyledItemDelegate>

#include <optional>
#include <vector>

namespace norvik {

class EntryListModel : public QAbstractListModel {
    Q_OBJECT
  public:
    using QAbstractListModel::QAbstractListModel;

    void SetRows(const std::vector<Text>& rows);
    [[nodiscard]] const Text& Row(int row) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    /// What is typed finds the name, in front of which a row may have its number.
    [[nodiscard]] QModelIndexList match(const QModelIndex& start, int role, const QVariant& value,
                                        int hits, Qt::MatchFlags flags) const override;

  private:
    /// The first row from `start` on, all around, whose name begins so.
    [[nodiscard]] QModelIndex RowOfName(const QString& beginning, int start) const;

    std::vector<Text> rows_;
};

/// Rows with room for the dots of an "Ä": the toolkit makes them as low as the font's capitals.
class RowDelegate : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const override;
};

class EntryListView : public QListView {
    Q_OBJECT
  public:
    explicit EntryListView(QWidget* parent);

    /// Shows the program's choice; nothing selects no row.
    void SelectRow(std::optional<int> row);

  signals:
    /// The user chose a row, by mouse or keyboard; also the row that is selected already.
    void rowChosen(int row);
    /// The user wants the selected row's entry erased.
    void eraseWanted();

  protected:
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

  private:
    void Choose(const QModelIndex& index);
    /// Tells a screen reader which row has the focus, if one has.
    void TellFocus();
    /// A blank goes on with a name that is being typed.
    bool TakesBlank(const QKeyEvent& event);

    /// A choice is reported when the key or the mouse button has done its work, not in its midst.
    bool deferred_ = false;
    bool selecting_ = false;
    QElapsedTimer typed_;  ///< since the last character of a name
};

}  // namespace norvik
