// The phone list's dialog: draws its fields and reports what the user chose and clicked.
#pragma once

#include "mainwindow/program.h"

#include <QDialog>

#include <array>

class QButtonGroup;
class QLayout;

namespace norvik {

class PhoneListDialog : public QDialog {
    Q_OBJECT
  public:
    PhoneListDialog(const PhoneListFields& fields, QWidget* parent);

    [[nodiscard]] const PhoneListOptions& Options() const { return options_; }

  signals:
    void previewWanted();
    /// "Drucken..." or "Speichern...", whichever the dialog is for.
    void listWanted();

  private:
    QWidget* MakeChoice(const QString& title, const char* name, const QStringList& captions,
                        int chosen, void (PhoneListDialog::*choose)(int));
    QLayout* MakeButtons(bool asPdf);
    void ChooseEntries(int which);
    void ChooseColumns(int which);
    void ChoosePaper(int which);

    PhoneListOptions options_;
};

}  // namespace norvik
