// The settings dialog: draws its fields, tells them what the user typed and clicked.
#pragma once

#include "dialogs/settingsfields.h"

#include <QDialog>

#include <array>
#include <functional>

class QCheckBox;
class QComboBox;
class QLayout;
class QLineEdit;
class QListWidget;
class QPushButton;
class QScrollBar;

namespace norvik {

class Display;

class SettingsDialog : public QDialog {
    Q_OBJECT
  public:
    using Operation = std::function<void()>;

    /// `run` runs an operation as the main window does.
    SettingsDialog(SettingsFields fields, Desktop& desktop,
                   std::function<void(const Operation&)> run, QWidget* parent);

    [[nodiscard]] const SettingsFields& Fields() const { return fields_; }

    /// Closes the dialog after its values were stored.
    void CloseStored();
    /// "Verwerfen", the Escape key and the window's own button.
    void reject() override;

    bool eventFilter(QObject* object, QEvent* event) override;

  signals:
    void storeWanted();

  private:
    QWidget* MakeGeneral();
    QWidget* MakeLocation();
    QWidget* MakeSync();
    QLayout* MakeSyncFile(QWidget* parent);
    QLayout* MakeSampleChoice(QWidget* parent);
    QLayout* MakeItems(QWidget* parent);
    QLayout* MakeButtons();
    QLineEdit* MakeValue(std::size_t number, const QString& accessibleName, QWidget* parent);
    QLineEdit* MakePath(const char* name, const QString& accessibleName, QWidget* parent);
    void Connect();

    /// Runs a handler between reading the fields from the widgets and drawing them again.
    void Handle(const Operation& handler);
    void Read();
    void Draw();
    void DrawSample();

    SettingsFields fields_;
    Desktop& desktop_;
    std::function<void(const Operation&)> run_;
    QComboBox* DDSprache_ = nullptr;
    QLineEdit* InpLoadfile_ = nullptr;
    QLineEdit* InpSyncFile_ = nullptr;
    QCheckBox* chkLoadSyncOnStart_ = nullptr;
    std::array<QLineEdit*, SettingValues> SetValue_{};
    QScrollBar* ScrollSyncFile_ = nullptr;
    Display* record_ = nullptr;
    QListWidget* ListSyncFileItems_ = nullptr;
    std::array<QPushButton*, SyncItems> itemexpl_{};
    std::array<Display*, SyncItems> Testausgabe_{};
    bool drawing_ = false;
};

}  // namespace norvik
