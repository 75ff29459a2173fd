// The dialog of the mobile export: draws its fields, tells them what the user typed and clicked.
#pragma once

#include "dialogs/nvhe.h"

#include <QDialog>

#include <array>
#include <functional>

class QCheckBox;
class QLabel;
class QLineEdit;

namespace norvik {

class NvheDialog : public QDialog {
    Q_OBJECT
  public:
    NvheDialog(NvheFields fields, QWidget* parent, const std::function<void()>& beep);

    [[nodiscard]] const NvheFields& Fields() const { return fields_; }

  signals:
    void exportWanted();
    void saveWanted();

  private:
    QWidget* MakeBoxes(const QString& title, std::initializer_list<std::size_t> boxes);
    QLayout* MakePrefixes();
    QLayout* MakeButtons();
    void Draw();

    NvheFields fields_;
    std::array<QCheckBox*, HandyBoxes> chkHE_{};
    QLineEdit* InpSeparator_ = nullptr;
    bool drawing_ = false;
};

}  // namespace norvik
