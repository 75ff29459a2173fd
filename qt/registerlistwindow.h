// The register list's window: draws its fields, tells them what the user clicked. It stands beside
// the main window, which stays usable.
#pragma once

#include "registertools/fillregisterlist.h"

#include <QDialog>

#include <array>

class QCheckBox;
class QLayout;
class QListView;

namespace norvik {

class Display;
class EntryListModel;

class RegisterListWindow : public QDialog {
    Q_OBJECT
  public:
    explicit RegisterListWindow(QWidget* parent);

    void Draw(const RegisterListFields& fields);
    /// The boxes as the user ticked them.
    [[nodiscard]] std::array<bool, FilterLetters.size()> Boxes() const;

    /// "Abbrechen", the Escape key and the window's own button.
    void reject() override;
    /// Return on a line is not the default button's.
    bool eventFilter(QObject* object, QEvent* event) override;

  signals:
    void boxesChanged();
    void exitClicked();
    void cancelled();
    /// The user wants to see the entry of a line.
    void lineChosen(int line);

  private:
    QWidget* MakeBoxes();
    QLayout* MakeList();
    QLayout* MakeButtons();

    std::array<QCheckBox*, FilterLetters.size()> chkFi_{};
    QListView* ListResult_ = nullptr;
    EntryListModel* model_;
    Display* AnzTreffer_ = nullptr;
    bool drawing_ = false;
};

}  // namespace norvik
