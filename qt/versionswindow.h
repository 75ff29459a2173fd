// The earlier versions' window: draws its fields, tells them what the user clicked. It stands
// beside the main window, which stays usable.
#pragma once

#include "mainwindow/program.h"

#include <QDialog>

class QLayout;
class QListView;
class QPushButton;
class QTableWidget;

namespace norvik {

class EntryListModel;

class VersionsWindow : public QDialog {
    Q_OBJECT
  public:
    explicit VersionsWindow(QWidget* parent);

    void Draw(const VersionsFields& fields);

    /// "Schließen", the Escape key and the window's own button.
    void reject() override;

    /// Enter loads the chosen version, Del removes it.
    bool eventFilter(QObject* object, QEvent* event) override;

  signals:
    void rowChosen(int row);
    void loadClicked();
    void saveAsClicked();
    void removeClicked();
    void closed();

  private:
    QLayout* MakeTable();
    QLayout* MakeNames();
    QLayout* MakeButtons();
    void DrawRows(const std::vector<VersionRow>& rows);

    QTableWidget* ListVersions_ = nullptr;
    QListView* ListNames_ = nullptr;
    EntryListModel* names_;
    std::vector<QPushButton*> ofChosen_;  ///< need a chosen version
    std::vector<VersionRow> rows_;
    bool drawing_ = false;
};

}  // namespace norvik
