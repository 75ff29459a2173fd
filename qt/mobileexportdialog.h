// The dialog of the mobile export: draws its fields, tells them what the user typed and clicked.
#pragma once

#include "dialogs/mobileexportfields.h"

#include <QDialog>

#include <array>
#include <functional>

class QCheckBox;
class QLabel;
class QLineEdit;

namespace norvik {

class MobileExportDialog : public QDialog {
    Q_OBJECT
  public:
    MobileExportDialog(MobileExportFields fields, QWidget* parent,
                       const std::function<void()>& beep);

    [[nodiscard]] const MobileExportFields& Fields() const { return fields_; }

  signals:
    void exportWanted();
    void saveWanted();

  private:
    QWidget* MakeBoxes(const QString& title, std::initializer_list<std::size_t> boxes);
    QLayout* MakePrefixes();
    QLayout* MakeButtons();
    void Draw();

    MobileExportFields fields_;
    std::array<QCheckBox*, HandyBoxes> chkHE_{};
    QLineEdit* InpSeparator_ = nullptr;
    bool drawing_ = false;
};

}  // namespace norvik
