// A text field of the entry: keeps to the rules of mainwindow/fieldinput.h while the user types,
// pastes or drops, and passes on the keys that move through the fields.
#pragma once

#include "mainwindow/fieldinput.h"
#include "mainwindow/handlers.h"

#include <QLineEdit>
#include <QValidator>

#include <functional>
#include <vector>

namespace norvik {

/// Applies the rules to every change of a line edit that the user makes.
class FieldValidator : public QValidator {
    Q_OBJECT
  public:
    FieldValidator(const FieldRule& rule, QLineEdit* field);

    State validate(QString& input, int& cursor) const override;

    /// The program shows a text of its own: it is taken as it is.
    void Show(const QString& text);

  signals:
    /// A change was refused or cut.
    void beeped() const;
    /// The user changed the text from `before`, with the cursor where it stood then.
    void changing(const QString& before) const;

  private:
    FieldRule rule_;
    QLineEdit* field_;
    mutable QString text_;
    bool showing_ = false;
};

/// Makes a line edit refuse characters that no text of the system can hold; `beep` tells the user.
void LimitToRepertoire(QLineEdit* input, const std::function<void()>& beep,
                       const FieldRule& rule = {});
/// Shows a text of the program's in such a line edit, as it is.
void ShowLimited(QLineEdit* input, const QString& text);

class EntryField : public QLineEdit {
    Q_OBJECT
  public:
    EntryField(const FieldRule& rule, QWidget* parent);

    /// Shows a text of the program's.
    void Show(TextView text);
    /// Another entry is shown: what was typed before is not undone into it.
    void ForgetUndo();
    /// Whether the field has a step of its own to take back, or to do again.
    [[nodiscard]] bool HasUndo() const;
    [[nodiscard]] bool HasRedo() const;

  signals:
    void keyPressed(norvik::FieldKey key, bool shift);
    /// Page Up (-1) or Page Down (+1).
    void stepped(int records);
    void beeped();

  protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

  private:
    [[nodiscard]] int EndOfText() const;
    bool HandleFieldKey(const QKeyEvent& event);
    bool HandlePaddedKey(QKeyEvent& event);
    void Undo();
    void Redo();

    FieldRule rule_;
    FieldValidator* validator_;
    /// The texts before each change. The line edit forgets its own steps where a text is padded or
    /// cut.
    std::vector<QString> undo_;
    std::vector<QString> redo_;
    bool undoing_ = false;
};

}  // namespace norvik
