// The doubled numbers' window: draws its fields, tells them what the user clicked. It stands beside
// the main window, which stays usable.
#pragma once

#include "mainwindow/program.h"

#include <QDialog>

class QLabel;
class QPushButton;
class QTableWidget;

namespace norvik {

class DoublesWindow : public QDialog {
    Q_OBJECT
  public:
    explicit DoublesWindow(QWidget* parent);

    void Draw(const DoublesFields& fields);

    /// "Schließen", the Escape key and the window's own button.
    void reject() override;

  signals:
    void rowChosen(int row);
    void eraseClicked();
    void closed();

  private:
    QTableWidget* MakeTable();
    void DrawRows(const std::vector<DoubleRow>& rows);

    QTableWidget* ListDoubles_ = nullptr;
    QLabel* count_ = nullptr;
    QPushButton* btnErase_ = nullptr;
    std::vector<DoubleRow> rows_;
    bool drawing_ = false;
};

}  // namespace norvik
